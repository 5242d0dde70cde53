// Moving through the event list by the buttons and by the slide show, and the player panel
// refreshed after each move.
#include "shell/window_fixture.h"

using namespace trelvin::testing;

class NavigationTest : public QObject {
    Q_OBJECT

private slots:
    // The playback's own tests cover which events each step applies; here, that the window's
    // buttons, rows and texts follow it.
    void buttonsRowsAndTextsFollowThePlayback() {
        Window t;
        t.open("rada.trp", PlainReplay(10));
        frmMain& w = *t.window;
        for (int i = 0; i < 4; ++i) w.cmdForw_Click();
        QCOMPARE(t.applies([&] { w.cmdBack_Click(); }), Range(1, 4));
        QCOMPARE(EnabledButtons(w), QString("1111111111"));
        w.cmdEnd_Click();
        QCOMPARE(w.lblTah->text(), QString("10 (10)"));
        QCOMPARE(EnabledButtons(w), QString("0000011111"));
        w.cmdBegin_Click();
        QCOMPARE(EnabledButtons(w), QString("1111100000"));

        w.ov[1]->click();
        w.cmdD_Click();
        QVERIFY(w.tSlide->isActive() && w.cmdS->isEnabled() && w.cmdForw->isHidden() && !w.cmdD->isHidden());
        QCOMPARE(w.lblTah->text(), QString("2 (10)"));
        w.ov[0]->click();  // a change of mode stops the show; the stop button keeps its state
        QVERIFY(!w.tSlide->isActive() && w.cmdS->isEnabled() && !w.cmdForw->isHidden() && w.cmdD->isHidden());
        w.cmdS_Click();
        QVERIFY(!w.cmdS->isEnabled());

        Window single;
        single.open("jedna.trp", PlainReplay(1));
        QCOMPARE(EnabledButtons(*single.window), QString("0000000000"));
    }

    void playerPanelKeepsTheSelectionByIndex() {
        Window t;
        // Jana's headquarters falls at event 5.
        t.open("dobyti.trp", {"0;Dobyti;2;2;1;3", "2004-06-19-08-00-00;create_world;NN",
                              "2004-06-19-08-10-00;create_hq;Karel;les;A0",
                              "2004-06-19-08-20-00;create_hq;Jana;louka;B0", "2004-06-19-08-30-00;attack;A0;B0;1;1;1"});
        frmMain& w = *t.window;
        const auto panel = [&w] {
            return QStringList{w.lblPocetTahu->text(), w.lblMnozstviNektaru->text(), w.lblVeleni->text(),
                               w.lblVelikostUzemi->text()};
        };
        for (int i = 0; i < 3; ++i) w.cmdForw_Click();
        w.cmbHraci->setCurrentIndex(0);
        w.cmbHraci_Click();
        QCOMPARE(panel(), (QStringList{"15 (+ 3/hod)", "500 (+ 12/hod)", "A0", "1"}));
        w.cmbHraci->setCurrentIndex(1);
        w.cmbHraci_Click();
        w.cmdForw_Click();
        QCOMPARE(w.cmbHraci->currentIndex(), 1);
        QCOMPARE(panel(), (QStringList{"", "", "Uz nehraje", ""}));
    }
};

QTEST_MAIN(NavigationTest)
#include "navigation_window_test.moc"
