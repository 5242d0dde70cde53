// The playback alone on a replay cursor: the button states and end flags each move leaves, the
// views told once per move, message boxes as the steps report, and the slide show's ticks.
#include <QtTest>

#include "playback/playback.h"
#include "support/recording_reporter.h"
#include "support/replays.h"

using trelvin::Playback;
using trelvin::testing::Range;

namespace {

// `count` events of which event `failing` (when not 0) is a move off the map, which reports.
std::string Replay(int count, int failing = 0) {
    std::string text = trelvin::testing::PlainReplay(count);
    if (failing == 0) return text;
    std::size_t at = 0;
    for (int line = 0; line < failing; ++line) at = text.find("\r\n", at) + 2;
    const std::size_t end = text.find("\r\n", at);
    return text.replace(at + 20, end - at - 20, "move;Z9;A0;1");
}

// A playback on an opened replay; every move's position and count as the views hear them.
struct Steps {
    explicit Steps(int count, int failing = 0, trelvin::Reporter* boxes = nullptr)
        : playback(cursor, boxes ? *boxes : reporter) {
        const std::string replay = Replay(count, failing);
        trelvin::ReplayText text(replay);
        cursor.open(text);
        QObject::connect(&playback, &Playback::positionChanged,
                         [this](int position, int count) { announced.emplace_back(position, count); });
        playback.updateButtons();
    }
    void moveTo(int position) {
        playback.first();
        while (playback.position() < position) playback.forward();
        announced.clear();
    }
    // Forward group, backward group, stop, atBegin, atEnd: '1' for each that holds.
    QString flags() const {
        QString result;
        for (bool b : {playback.forwardEnabled(), playback.backwardEnabled(), playback.stopEnabled(),
                       playback.atBegin(), playback.atEnd()})
            result += b ? '1' : '0';
        return result;
    }

    trelvin::ReplayCursor cursor;
    trelvin::testing::RecordingReporter reporter;
    Playback playback;
    std::vector<std::pair<int, int>> announced;  // the position and count each move told
};

}  // namespace

class PlaybackTest : public QObject {
    Q_OBJECT

private slots:
    void stepsLeaveTheButtonsForThePositionAndTellTheViewsOnce() {
        struct Case {
            int from;
            void (Playback::*step)();
            int to;
            const char* flags;
        };
        const Case cases[] = {
            {5, &Playback::back, 4, "11000"},  {2, &Playback::back, 1, "10010"},  {9, &Playback::forward, 10, "01001"},
            {3, &Playback::last, 10, "01001"}, {7, &Playback::first, 1, "10010"}, {10, &Playback::forward, 10, "01001"},
        };
        for (const Case& c : cases) {
            Steps r(10);
            r.moveTo(c.from);
            (r.playback.*c.step)();
            QCOMPARE(r.flags(), QString(c.flags));
            QCOMPARE(r.announced, (std::vector<std::pair<int, int>>{{c.to, 10}}));
        }
        Steps single(1);
        QCOMPARE(single.flags(), QString("00011"));
    }

    void aStepShowsAMessageBoxForEachReportAndAJumpNone() {
        Steps r(10, 4);
        r.playback.last();
        QCOMPARE(r.reporter.texts.size(), std::size_t{1});
        QVERIFY(r.reporter.texts.front().starts_with("Chyba pri provadeni tahu - "));
        r.reporter.texts.clear();
        const trelvin::MoveResult jump = r.playback.jumpTo(6);
        QCOMPARE(std::pair(r.reporter.texts.size(), jump.reports.size()), std::pair(std::size_t{0}, std::size_t{1}));
        QCOMPARE(r.playback.lastMove().applied, Range(1, 6));
    }

    void aStoppedRebuildLeavesThePositionAtTheEventAppliedLast() {
        Steps r(10);
        struct StopAt : trelvin::TaskProgress {
            bool keepGoing(std::uint64_t done, std::uint64_t total) override { return total != 10 || done < 6; }
        };
        r.playback.setRebuildProgress([] { return std::make_unique<StopAt>(); });
        r.playback.last();
        QCOMPARE(r.playback.position(), 6);
        QCOMPARE(r.flags(), QString("11000"));
        QCOMPARE(r.announced, (std::vector<std::pair<int, int>>{{6, 10}}));
    }

    void aRefreshThatChangesNothingTellsNothing() {
        Steps r(10);
        QSignalSpy told(&r.playback, &Playback::stepsEnabledChanged);
        r.playback.updateButtons();
        QCOMPARE(told.size(), 0);
    }

    void theShowStepsAtOnceAndStopsOneTickAfterItsEnd() {
        Steps r(10);
        r.moveTo(9);
        r.playback.useTimer(true, 1000);
        QCOMPARE(r.announced, (std::vector<std::pair<int, int>>{{10, 10}}));
        QCOMPARE(std::pair(r.playback.isPlaying(), r.playback.interval()), std::pair(true, 1000));
        QCOMPARE(r.flags(), QString("01101"));
        r.playback.tSlide_Timer();
        QCOMPARE(r.announced.size(), std::size_t{1});  // no step at the end
        QVERIFY(!r.playback.isPlaying());
        QCOMPARE(r.flags(), QString("01001"));

        r.moveTo(2);
        r.playback.useTimer(false, 5000);
        QCOMPARE(r.playback.position(), 1);
        r.playback.tSlide_Timer();
        QCOMPARE(std::pair(r.playback.isPlaying(), r.playback.stopEnabled()), std::pair(false, false));

        // From the first event the forward show steps at once; a jump to either end keeps it
        // running, and at the end it stops at the next tick.
        r.playback.useTimer(true, 5000);
        QCOMPARE(r.playback.position(), 2);
        r.playback.first();
        QVERIFY(r.playback.isPlaying());
        r.playback.tSlide_Timer();
        QCOMPARE(r.playback.position(), 2);
        r.playback.last();
        QVERIFY(r.playback.isPlaying());
        r.playback.tSlide_Timer();
        QVERIFY(!r.playback.isPlaying());
    }

    void noTickInsideAStepAndAtMostOneAfterIt() {
        // A failing event shows a message box: many intervals of the timer pass meanwhile.
        struct WaitingReporter : trelvin::Reporter {
            std::function<void()> shown;
            void report(const std::string&) override { shown(); }
        } slow;
        Steps r(10, 3, &slow);
        int movedWhileReporting = 0;
        slow.shown = [&] {
            const std::size_t before = r.announced.size();
            QTest::qWait(100);
            movedWhileReporting += int(r.announced.size() - before);
        };
        r.playback.useTimer(true, 5);
        QTRY_VERIFY(!r.playback.isPlaying());
        QCOMPARE(movedWhileReporting, 0);
        QCOMPARE(r.announced.size(), std::size_t{9});  // one step to each of 2 .. 10
    }

    // The ends are reached with the show running; a tick that falls due while such a step shows
    // a message box runs right after the step, and only once.
    void aTickDueDuringAButtonStepRunsOnceRightAfterIt() {
        bool waiting = false;
        struct WaitingReporter : trelvin::Reporter {
            std::function<void()> shown;
            void report(const std::string&) override { shown(); }
        } slow;
        slow.shown = [&] {
            if (waiting) QTest::qWait(500);
        };
        Steps r(10, 1, &slow);  // the world's creation fails: a creation longer than the map
        r.playback.useTimer(true, 400);
        r.announced.clear();
        waiting = true;
        r.playback.first();  // event 1's box outlasts one interval
        QCOMPARE(r.announced, (std::vector<std::pair<int, int>>{{1, 10}}));
        QCoreApplication::processEvents();
        QCOMPARE(r.announced, (std::vector<std::pair<int, int>>{{1, 10}, {2, 10}}));
        QCoreApplication::processEvents();
        QCOMPARE(r.announced.size(), std::size_t{2});
    }
};

QTEST_GUILESS_MAIN(PlaybackTest)
#include "playback_test.moc"
