// Navigation through the event list, and the refresh that follows each move: the position
// label, the player list with its selection kept by index, and the player panel.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "playback/clock_face.h"
#include "shell/window_fixture.h"

using trelvin::testing::kAlfa;
using trelvin::testing::PlainReplay;
using trelvin::testing::Window;

namespace {

std::vector<QPushButton*> forwardGroup(const frmMain& w) { return {w.cmdForw, w.cmdEnd, w.cmdSEnd, w.cmdD, w.cmdRD}; }
std::vector<QPushButton*> backwardGroup(const frmMain& w) { return {w.cmdBack, w.cmdBegin, w.cmdSBegin, w.cmdZ, w.cmdRZ}; }

bool allEnabled(const std::vector<QPushButton*>& group, bool enabled) {
    for (QPushButton* button : group)
        if (button->isEnabled() != enabled) return false;
    return true;
}

std::vector<int> range(int first, int last) {
    std::vector<int> result;
    for (int i = first; i <= last; ++i) result.push_back(i);
    return result;
}

// Two players; Jana's headquarters falls at event 5, event 6 ends the world.
const std::vector<std::string> kCapture{
    "0;Dobyti;2;2;1;3",
    "2004-06-19-08-00-00;create_world;NN",
    "2004-06-19-08-10-00;create_hq;Karel;les;A0",
    "2004-06-19-08-20-00;create_hq;Jana;louka;B0",
    "2004-06-19-08-30-00;attack;A0;B0;1;1;1",
};

QStringList panel(const frmMain& w) {
    return {w.lblPocetTahu->text(), w.lblMnozstviNektaru->text(), w.lblVeleni->text(), w.lblVelikostUzemi->text()};
}

}  // namespace

class NavigationTest : public QObject {
    Q_OBJECT

private slots:
    void backAndEndReapplyFromTheFirstEvent() {
        Window t;
        t.open("rada.trp", PlainReplay(10));
        frmMain& w = *t.window;
        for (int i = 0; i < 4; ++i) w.cmdForw_Click();
        QCOMPARE(w.position, std::int16_t{5});
        QCOMPARE(t.applied, range(1, 5));

        t.applied.clear();
        w.cmdBack_Click();
        QCOMPARE(t.applied, range(1, 4));
        QCOMPARE(w.position, std::int16_t{4});
        QVERIFY(allEnabled(forwardGroup(w), true) && allEnabled(backwardGroup(w), true));
        QVERIFY(!w.atBegin && !w.atEnd);

        w.cmdBack_Click();
        t.applied.clear();
        w.cmdEnd_Click();  // from 3
        QCOMPARE(t.applied, range(1, 10));
        QCOMPARE(w.position, std::int16_t{10});
        QVERIFY(allEnabled(forwardGroup(w), false) && allEnabled(backwardGroup(w), true));
        QVERIFY(w.atEnd);
        QCOMPARE(w.lblTah->text(), QString("10 (10)"));

        t.applied.clear();
        w.cmdBegin_Click();
        QCOMPARE(t.applied, std::vector<int>{1});
        QVERIFY(allEnabled(forwardGroup(w), true) && allEnabled(backwardGroup(w), false));
        QVERIFY(w.atBegin && !w.atEnd);
    }

    void stepsToEitherEnd() {
        Window t;
        t.open("rada.trp", PlainReplay(10));
        frmMain& w = *t.window;
        w.cmdForw_Click();
        t.applied.clear();
        w.cmdBack_Click();  // from 2
        QCOMPARE(t.applied, std::vector<int>{1});
        QVERIFY(allEnabled(backwardGroup(w), false) && w.atBegin);

        w.cmdEnd_Click();
        w.cmdBack_Click();
        t.applied.clear();
        w.cmdForw_Click();  // from 9
        QCOMPARE(t.applied, std::vector<int>{10});
        QVERIFY(allEnabled(forwardGroup(w), false) && w.atEnd);
    }

    void singleEventReplayDisablesAllTenButtons() {
        Window t;
        t.open("jedna.trp", PlainReplay(1));
        QVERIFY(allEnabled(forwardGroup(*t.window), false) && allEnabled(backwardGroup(*t.window), false));
        QVERIFY(t.window->atBegin && t.window->atEnd);
        QVERIFY(!t.window->cmdS->isEnabled());
    }

    void refreshShowsPositionTimeAndClock() {
        Window t;
        t.open("alfa.trp", kAlfa);
        frmMain& w = *t.window;
        w.cmdForw_Click();
        QCOMPARE(w.lblTah->text(), QString("2 (7)"));
        QCOMPARE(w.lbl->text(), QString("vytvoreni veleni hrace Karel(les)"));
        QVERIFY(w.lblCas->text().contains("08:10:00") || w.lblCas->text().contains("8:10:00"));
        // The dial's 25 marks and the three hands.
        QCOMPARE(w.pHod->strokes().size(), std::size_t{28});
    }

    void playerListKeepsItsSelectionByIndex() {
        Window t;
        t.open("dobyti.trp", kCapture);
        frmMain& w = *t.window;
        for (int i = 0; i < 3; ++i) w.cmdForw_Click();  // event 4: the start
        QCOMPARE(w.cmbHraci->count(), 2);
        QCOMPARE(w.cmbHraci->itemText(1), QString("Jana (louka)"));
        QCOMPARE(w.cmbHraci->currentIndex(), -1);
        QCOMPARE(panel(w), (QStringList{"", "", "", ""}));

        w.cmbHraci->setCurrentIndex(0);
        w.cmbHraci_Click();
        QCOMPARE(panel(w), (QStringList{"15 (+ 3/hod)", "500 (+ 12/hod)", "A0", "1"}));

        w.cmbHraci->setCurrentIndex(1);
        w.cmbHraci_Click();
        w.cmdForw_Click();  // Jana's headquarters falls
        QCOMPARE(w.cmbHraci->currentIndex(), 1);
        QCOMPARE(panel(w), (QStringList{"", "", "Uz nehraje", ""}));

        w.cmdBegin_Click();
        w.cmdForw_Click();  // only Karel exists: the list loses the selection, the panel stays
        QCOMPARE(w.cmbHraci->count(), 1);
        QCOMPARE(w.cmbHraci->currentIndex(), -1);
        QCOMPARE(panel(w), (QStringList{"", "", "Uz nehraje", ""}));
    }

    void userPickAndEditRefreshThePanel() {
        Window t;
        t.window->show();
        t.open("dobyti.trp", kCapture);
        frmMain& w = *t.window;
        for (int i = 0; i < 3; ++i) w.cmdForw_Click();
        w.cmbHraci->setCurrentIndex(1);
        emit w.cmbHraci->activated(1);
        QCOMPARE(w.lblVeleni->text(), QString("B0"));
        w.cmbHraci->setCurrentIndex(0);
        QCOMPARE(w.lblVeleni->text(), QString("B0"));  // no pick, no edit: unchanged
        QTest::keyClicks(w.cmbHraci->lineEdit(), "x");
        QCOMPARE(w.lblVeleni->text(), QString("A0"));
    }
};

QTEST_MAIN(NavigationTest)
#include "navigation_test.moc"
