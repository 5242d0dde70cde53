// Moving through the event list by the buttons and by the slide show, and the player panel
// refreshed after each move.
#include "shell/window_fixture.h"

using namespace trelvin::testing;

class NavigationTest : public QObject {
    Q_OBJECT

private slots:
    void buttonsAndSlideShowReapplyFromTheFirstEvent() {
        Window t;
        t.open("rada.trp", PlainReplay(10));
        frmMain& w = *t.window;
        for (int i = 0; i < 4; ++i) w.cmdForw_Click();
        QCOMPARE(t.applies([&] { w.cmdBack_Click(); }), Range(1, 4));
        QCOMPARE(EnabledButtons(w), QString("1111111111"));
        w.cmdBack_Click();
        QCOMPARE(t.applies([&] { w.cmdEnd_Click(); }), Range(1, 10));  // from 3
        QCOMPARE(w.lblTah->text(), QString("10 (10)"));
        QCOMPARE(EnabledButtons(w), QString("0000011111"));
        QCOMPARE(t.applies([&] { w.cmdBegin_Click(); }), Range(1, 1));
        QCOMPARE(EnabledButtons(w), QString("1111100000"));

        // The show forwards from 9 steps at once and stops one tick after the end.
        w.cmdEnd_Click();
        w.cmdBack_Click();
        QCOMPARE(t.applies([&] { w.cmdRD_Click(); }), Range(10, 10));
        QVERIFY(w.tSlide->isActive() && w.cmdS->isEnabled() && w.tSlide->interval() == 1000);
        QVERIFY(t.applies([&] { w.tSlide_Timer(); }).empty());
        QVERIFY(!w.tSlide->isActive() && !w.cmdS->isEnabled());
        w.cmdBegin_Click();
        w.cmdForw_Click();
        w.cmdZ_Click();  // backwards from 2
        QVERIFY(w.playback->position() == 1 && w.tSlide->isActive() && !w.playback->slideForward() && w.tSlide->interval() == 5000);
        w.tSlide_Timer();
        QVERIFY(!w.tSlide->isActive());
        w.ov[1]->click();
        w.cmdD_Click();
        QVERIFY(w.tSlide->isActive() && w.cmdForw->isHidden());
        w.ov[0]->click();  // a change of mode stops the show
        QVERIFY(!w.tSlide->isActive() && !w.cmdForw->isHidden() && w.cmdD->isHidden());

        Window single;
        single.open("jedna.trp", PlainReplay(1));
        QCOMPARE(EnabledButtons(*single.window), QString("0000000000"));
    }

    void noTickInsideAMessageBoxAndAtMostOneAfterIt() {
        Window t;
        std::vector<std::string> lines = PlainReplay(10);
        lines[3] = "2004-06-19-08-03-00;create_hq;Petr;les;Z9";  // outside the map: event 3 fails
        t.open("rada.trp", lines);
        std::size_t appliedWhileShown = 0;
        t.messages.whileShown = [&] {
            const std::size_t before = t.applied.size();
            QTest::qWait(100);  // many intervals of the 5 ms timer pass meanwhile
            appliedWhileShown += t.applied.size() - before;
        };
        t.window->cmdForw_Click();
        t.window->useTimer(true, 5);
        QTRY_VERIFY(!t.window->tSlide->isActive());
        QCOMPARE(t.messages.texts.size(), 1);
        QCOMPARE(appliedWhileShown, std::size_t{0});
        QCOMPARE(t.applied, Range(1, 10));
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
