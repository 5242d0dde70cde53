// The slide show: ticks step through the navigation handlers and stop one tick after the end
// they head for; a change of mode stops it; a tick never runs inside a step's message box.
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "shell/window_fixture.h"

using trelvin::testing::PlainReplay;
using trelvin::testing::Window;

class SlideShowTest : public QObject {
    Q_OBJECT

private slots:
    void forwardsStopsOneTickAfterTheLastEvent() {
        Window t;
        t.open("rada.trp", PlainReplay(10));
        frmMain& w = *t.window;
        w.cmdEnd_Click();
        w.cmdBack_Click();
        w.cmdRD_Click();  // steps at once
        QCOMPARE(w.position, std::int16_t{10});
        QVERIFY(w.tSlide->isActive() && w.cmdS->isEnabled());
        QCOMPARE(w.tSlide->interval(), 1000);
        QVERIFY(!w.cmdD->isEnabled() && !w.cmdRD->isEnabled() && !w.cmdSEnd->isEnabled());
        t.applied.clear();
        w.tSlide_Timer();
        QVERIFY(t.applied.empty());
        QVERIFY(!w.tSlide->isActive() && !w.cmdS->isEnabled());
    }

    void backwardsFromTheSecondEvent() {
        Window t;
        t.open("rada.trp", PlainReplay(10));
        frmMain& w = *t.window;
        w.cmdForw_Click();
        w.cmdZ_Click();
        QCOMPARE(w.position, std::int16_t{1});
        QCOMPARE(w.tSlide->interval(), 5000);
        QVERIFY(w.tSlide->isActive() && !w.slideForward);
        w.tSlide_Timer();
        QCOMPARE(w.position, std::int16_t{1});
        QVERIFY(!w.tSlide->isActive());
    }

    void runsByItsTimerToTheEnd() {
        Window t;
        t.open("rada.trp", PlainReplay(10));
        frmMain& w = *t.window;
        w.useTimer(true, 5);
        QTRY_COMPARE(w.position, std::int16_t{10});
        QTRY_VERIFY(!w.tSlide->isActive());
        QCOMPARE(t.applied.size(), std::size_t{10});
    }

    void modeChangeSwapsTheRowsAndStops() {
        Window t;
        t.open("rada.trp", PlainReplay(10));
        frmMain& w = *t.window;
        w.ov[1]->click();
        QVERIFY(w.cmdForw->isHidden() && !w.cmdD->isHidden() && !w.cmdS->isHidden());
        w.cmdD_Click();
        QVERIFY(w.tSlide->isActive());
        w.cmdSBegin_Click();  // moves without stopping
        QCOMPARE(w.position, std::int16_t{1});
        QVERIFY(w.tSlide->isActive());
        w.ov[0]->click();
        QVERIFY(!w.tSlide->isActive());
        QVERIFY(!w.cmdForw->isHidden() && w.cmdD->isHidden() && w.cmdSEnd->isHidden());
        QVERIFY(w.cmdForw->isEnabled() && !w.cmdBack->isEnabled());
    }

    void noTickInsideAMessageBoxAndAtMostOneAfterIt() {
        Window t;
        // Event 3 fails: its headquarters field lies outside the map.
        std::vector<std::string> lines = PlainReplay(10);
        lines[3] = "2004-06-19-08-03-00;create_hq;Petr;les;Z9";
        t.open("rada.trp", lines);
        frmMain& w = *t.window;
        std::size_t appliedWhileShown = 0;
        t.messages.whileShown = [&] {
            const std::size_t before = t.applied.size();
            QTest::qWait(100);  // many intervals of the 5 ms timer pass meanwhile
            appliedWhileShown += t.applied.size() - before;
        };
        w.cmdForw_Click();
        w.useTimer(true, 5);
        QTRY_VERIFY(!w.tSlide->isActive());
        QCOMPARE(t.messages.texts.size(), 1);
        QCOMPARE(appliedWhileShown, std::size_t{0});
        QCOMPARE(t.applied, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    }
};

QTEST_MAIN(SlideShowTest)
#include "slide_show_test.moc"
