// The playback alone: which events each step applies, where it leaves the position, the
// button states and end flags it leaves, and the slide show's ticks.
#include <QtTest>

#include "widgets/action_search.h"
#include "playback/playback.h"
#include "support/replays.h"

using trelvin::Playback;
using trelvin::testing::Range;

namespace {

// A list of `count` events; applying one records its index, and event `failing` reports.
struct Replay {
    explicit Replay(int count, int failing = 0)
        : failing(failing),
          playback(world, reporter, [this](std::int16_t i, trelvin::Reporter& r) {
              applied.push_back(i);
              if (i == this->failing) r.report("failed");
          }) {
        world.events.resize(static_cast<std::size_t>(count) + 1);
        world.eventCount = static_cast<std::int16_t>(count);
        QObject::connect(&playback, &Playback::positionChanged, [this](int position, int count) {
            appliedAtMove.push_back(int(applied.size()));
            announced.emplace_back(position, count);
        });
        playback.openAtFirstEvent();
        playback.updateButtons();
    }
    void moveTo(int position) {
        playback.first();
        while (playback.position() < position) playback.forward();
    }
    template <typename Step>
    std::vector<int> applies(Step step) {
        applied.clear();
        appliedAtMove.clear();
        step();
        return applied;
    }
    // Forward group, backward group, stop, atBegin, atEnd: '1' for each that holds.
    QString flags() const {
        QString result;
        for (bool b : {playback.forwardEnabled(), playback.backwardEnabled(), playback.stopEnabled(),
                       playback.atBegin(), playback.atEnd()})
            result += b ? '1' : '0';
        return result;
    }

    trelvin::WorldState world;
    trelvin::RecordingReporter reporter;
    int failing;
    std::vector<int> applied;
    std::vector<int> appliedAtMove;  // events applied when each refresh was announced
    std::vector<std::pair<int, int>> announced;  // the position and count each refresh told
    Playback playback;
};

}  // namespace

class PlaybackTest : public QObject {
    Q_OBJECT

private slots:
    void stepsApplyTheirEventsAndRefreshOnceAfterAll() {
        struct Case {
            int from;
            void (Playback::*step)();
            std::vector<int> applied;
            int to;
            const char* flags;
        };
        const Case cases[] = {
            {5, &Playback::back, Range(1, 4), 4, "11000"},  {2, &Playback::back, {1}, 1, "10010"},
            {9, &Playback::forward, {10}, 10, "01001"},     {3, &Playback::last, Range(1, 10), 10, "01001"},
            {7, &Playback::first, {1}, 1, "10010"},         {10, &Playback::forward, {10}, 10, "01001"},
        };
        for (const Case& c : cases) {
            Replay r(10);
            r.moveTo(c.from);
            QCOMPARE(r.applies([&] { (r.playback.*c.step)(); }), c.applied);
            QCOMPARE(r.playback.position(), std::int16_t(c.to));
            QCOMPARE(r.flags(), QString(c.flags));
            QCOMPARE(r.appliedAtMove, std::vector<int>{int(c.applied.size())});
            QCOMPARE(r.announced.back(), std::pair(c.to, 10));
        }
        Replay single(1);
        QCOMPARE(single.flags(), QString("00011"));
    }

    void aStoppedRebuildLeavesThePositionAtTheEventAppliedLast() {
        Replay r(10);
        struct StopAt : trelvin::TaskProgress {
            bool keepGoing(std::uint64_t done, std::uint64_t total) override { return total != 10 || done < 6; }
        };
        r.playback.setRebuildProgress([] { return std::make_unique<StopAt>(); });
        QCOMPARE(r.applies([&] { r.playback.last(); }), Range(1, 6));
        QCOMPARE(r.playback.position(), std::int16_t(6));
        QCOMPARE(r.flags(), QString("11000"));
        QCOMPARE(r.appliedAtMove, std::vector<int>{6});
    }

    void aShortcutReportsTheEventsItPassesOverAndStopsWhereTheProgressStops() {
        // The state after event 6 is kept; events 3 and 6, the kept one itself, reported on the way.
        struct Kept : trelvin::RebuildShortcut {
            int shortcutTo(int target) const override { return target >= 6 ? 6 : 0; }
            const std::vector<int>& reportingEvents() const override { return reporting; }
            void reportAgain(int, trelvin::Reporter& reporter) const override { reporter.report("again"); }
            std::vector<int> reporting{3, 6};
            void restore(int event) override { restored.push_back(event); }
            std::vector<int> restored;
        };
        struct StopAt : trelvin::TaskProgress {
            explicit StopAt(int event) : event(event) {}
            bool keepGoing(std::uint64_t done, std::uint64_t) override { return int(done) != event; }
            int event;
        };
        struct Case {
            int stopAt;
            int failing;
            std::vector<int> applied;
            std::vector<int> restored;
            std::vector<std::string> reports;
        };
        const Case cases[] = {
            {0, 8, Range(7, 10), {6}, {"again", "again", "failed"}},
            {8, 8, {7, 8}, {6}, {"again", "again", "failed"}},
            // Stopped at a report before the kept state: reached from the first, without reports.
            {3, 2, Range(1, 3), {}, {"again"}},
        };
        for (const Case& c : cases) {
            Replay r(10, c.failing);
            Kept kept;
            r.playback.setRebuildShortcut(&kept);
            r.playback.setRebuildProgress([&] { return std::make_unique<StopAt>(c.stopAt); });
            r.reporter.texts.clear();
            QCOMPARE(r.applies([&] { r.playback.last(); }), c.applied);
            QCOMPARE(kept.restored, c.restored);
            QCOMPARE(r.reporter.texts, c.reports);
            QCOMPARE(r.playback.position(), std::int16_t(c.stopAt ? c.stopAt : 10));
        }
        // A jump, which does not follow the position on its way, also stays where it was stopped.
        for (const int stopAt : {3, 8}) {
            Replay r(10);
            Kept kept;
            r.playback.setRebuildShortcut(&kept);
            r.playback.setRebuildProgress([&] { return std::make_unique<StopAt>(stopAt); });
            trelvin::RecordingReporter quiet;
            r.playback.jumpTo(10, quiet);
            QCOMPARE(r.playback.position(), std::int16_t(stopAt));
        }
    }

    void aRefreshThatChangesNothingTellsNothing() {
        Replay r(10);
        QSignalSpy told(&r.playback, &Playback::stepsEnabledChanged);
        r.playback.updateButtons();
        QCOMPARE(told.size(), 0);
    }

    void aJumpStaysInsideTheReplay() {
        trelvin::RecordingReporter quiet;
        Replay one(1);
        for (const int target : {-5, 0, 2, 99}) {
            one.playback.jumpTo(target, quiet);
            QCOMPARE(one.playback.position(), std::int16_t(1));
        }
    }

    void aPositionPastTheCountLeavesTheForwardGroupAsItWas() {
        Replay r(10);  // after a failed load the count can fall below the position
        r.world.eventCount = 0;
        r.playback.updateButtons();
        QCOMPARE(r.flags(), QString("10010"));
    }

    void theShowStepsAtOnceAndStopsOneTickAfterItsEnd() {
        Replay r(10);
        r.moveTo(9);
        QCOMPARE(r.applies([&] { r.playback.useTimer(true, 1000); }), std::vector<int>{10});
        QCOMPARE(std::pair(r.playback.isPlaying(), r.playback.interval()), std::pair(true, 1000));
        QCOMPARE(r.flags(), QString("01101"));
        QVERIFY(r.applies([&] { r.playback.tSlide_Timer(); }).empty());
        QVERIFY(!r.playback.isPlaying());
        QCOMPARE(r.flags(), QString("01001"));

        r.moveTo(2);
        QCOMPARE(r.applies([&] { r.playback.useTimer(false, 5000); }), std::vector<int>{1});
        r.playback.tSlide_Timer();
        QCOMPARE(std::pair(r.playback.isPlaying(), r.playback.stopEnabled()), std::pair(false, false));

        // From the first event the forward show steps at once; a jump to either end keeps it
        // running, and at the end it stops at the next tick.
        QCOMPARE(r.applies([&] { r.playback.useTimer(true, 5000); }), std::vector<int>{2});
        r.playback.first();
        QVERIFY(r.playback.isPlaying());
        QCOMPARE(r.applies([&] { r.playback.tSlide_Timer(); }), std::vector<int>{2});
        r.playback.last();
        QVERIFY(r.playback.isPlaying());
        r.playback.tSlide_Timer();
        QVERIFY(!r.playback.isPlaying());
    }

    void noTickInsideAStepAndAtMostOneAfterIt() {
        Replay r(10, 3);
        std::size_t appliedWhileReporting = 0;
        // A failing event shows a message box: many intervals of the timer pass meanwhile.
        struct WaitingReporter : trelvin::Reporter {
            std::function<void()> shown;
            void report(const std::string&) override { shown(); }
        } slow;
        slow.shown = [&] {
            const std::size_t before = r.applied.size();
            QTest::qWait(100);
            appliedWhileReporting += r.applied.size() - before;
        };
        Playback playback(r.world, slow, [&](std::int16_t i, trelvin::Reporter& rep) {
            r.applied.push_back(i);
            if (i == 3) rep.report("failed");
        });
        r.applied.clear();
        playback.openAtFirstEvent();
        playback.useTimer(true, 5);
        QTRY_VERIFY(!playback.isPlaying());
        QCOMPARE(appliedWhileReporting, std::size_t{0});
        QCOMPARE(r.applied, Range(1, 10));
    }

    // The ends are reached with the show running; a tick that falls due while such a step shows
    // a message box runs right after the step, and only once.
    void aTickDueDuringAButtonStepRunsOnceRightAfterIt() {
        Replay r(10, 1);
        bool waiting = false;
        struct WaitingReporter : trelvin::Reporter {
            std::function<void()> shown;
            void report(const std::string&) override { shown(); }
        } slow;
        slow.shown = [&] {
            if (waiting) QTest::qWait(500);
        };
        Playback playback(r.world, slow, [&](std::int16_t i, trelvin::Reporter& rep) {
            r.applied.push_back(i);
            if (i == 1) rep.report("failed");
        });
        playback.openAtFirstEvent();
        playback.useTimer(true, 400);
        r.applied.clear();
        waiting = true;
        playback.first();  // event 1's box outlasts one interval
        QCOMPARE(r.applied, std::vector<int>{1});
        QCoreApplication::processEvents();
        QCOMPARE(r.applied, (std::vector<int>{1, 2}));
        QCoreApplication::processEvents();
        QCOMPARE(r.applied, (std::vector<int>{1, 2}));
    }

    // A field's name is found whole and in its case; other text anywhere, in any case.
    void theSearchFindsFieldNamesWholeAndOtherTextAnywhere() {
        const struct {
            const char* search;
            const char* row;
            bool found;
        } cases[] = {
            {"B3", "Utok z B3 (Karel) na B4", true},  {"B3", "Pohyb z B37 na B38", false},
            {"B3", "Pohyb z b3 na A1", false},        {"b3", "Pohyb z b3 na A1", true},
            {"b3", "Pohyb z B3 na A1", false},        {"B3", "AB3 B30", false},
            {"B3", "B37 a pak (B3)", true},           {"B3", "B3", true},
            {" B3 ", "Nakup na B3.", true},           {"B3", "1B3", false},
            {"jana", "Dobyto veleni hrace Jana", true}, {"tok z b", "Utok z B3", true},
            {"B", "Utok z B3", true},
        };
        for (const auto& c : cases) {
            const trelvin::ActionSearch search{QString::fromLatin1(c.search)};
            QVERIFY2(search.matches(QString::fromLatin1(c.row)) == c.found,
                     qPrintable(QStringLiteral("'%1' in '%2'").arg(c.search, c.row)));
            // The list asks the folded text first: it may not lose a row, nor keep one of other text.
            const bool mayMatch = search.mayMatchFolded(QString::fromLatin1(c.row).toCaseFolded());
            const QString where = QStringLiteral("'%1' in the folded '%2'").arg(c.search, c.row);
            if (!search.namesField()) QVERIFY2(mayMatch == c.found, qPrintable(where));
            else if (c.found) QVERIFY2(mayMatch, qPrintable(where));
        }
        QVERIFY(trelvin::ActionSearch("B37").namesField());
        QVERIFY(trelvin::ActionSearch(QString::fromUtf8("\u0160" "0")).namesField());  // a column past Z
        QVERIFY(!trelvin::ActionSearch("Jana2").namesField());
        QVERIFY(!trelvin::ActionSearch("37").namesField());
    }
};

QTEST_GUILESS_MAIN(PlaybackTest)
#include "playback_test.moc"
