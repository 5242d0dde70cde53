// The replay cursor alone: which actions each move applies and where it leaves the position,
// what it tells and when, and that every move, from a keyframe or not, reaches exactly what
// applying the actions from the first reaches.
#include <gtest/gtest.h>

#include <random>

#include "cursor/replay_cursor.h"
#include "cursor/step_buttons.h"
#include "support/generated_lines.h"
#include "support/world_builder.h"
#include "view/field_pictures.h"

namespace trelvin {
namespace {

using namespace testing;

ReplayCursor Opened(const std::string& replay, OpenResult* result = nullptr) {
    ReplayCursor cursor;
    ReplayText text(replay);
    const OpenResult opened = cursor.open(text);
    if (result) *result = opened;
    return cursor;
}

// What a move tells its watcher, in order: "P5" when the position is set to 5, "R3" for a report of
// action 3; and where it stops.
struct Told : MoveWatcher {
    void positionSet(int position) override { heard += "P" + std::to_string(position) + " "; }
    void reported(const EventReport& report) override { heard += "R" + std::to_string(report.event) + " "; }
    bool keepGoing(int done, int) override { return done != stopAt; }
    std::string heard;
    int stopAt = 0;
};

// Every value of the world, a line each, to compare two worlds at once.
std::vector<std::string> WorldLines(const WorldState& w) {
    std::vector<std::string> lines{w.actionText, w.currentTime.iso(), w.storedWinner.value_or("(none)")};
    for (const Tile& t : w.tiles)
        lines.push_back(t.terrain + "|" + t.owner + "|" + t.armyType + "|" + std::to_string(t.armyCount) + "|" +
                        std::to_string(t.visible));
    for (const Player& p : w.players)
        lines.push_back(p.name + "|" + p.side + "|" + p.hqField + "|" + std::to_string(p.moves) + "|" +
                        std::to_string(p.nectar) + "|" + std::to_string(p.nectarPerHour) + "|" +
                        std::to_string(p.territory) + "|" + std::to_string(p.playing));
    return lines;
}

// Events: 1 create_world, 2 and 3 create_hq, 4 start, 5 a move off the map (fails),
// 6 the attack that takes Jana's headquarters, 7 the end.
TEST(ReplayCursorTest, EachMoveAppliesItsActionsAndTellsInTheStepButtonsOrder) {
    struct Case {
        int from;
        MoveResult (ReplayCursor::*move)(MoveWatcher*);
        std::vector<int> applied;
        int to;
        std::string heard;
    };
    const Case cases[] = {
        {7, &ReplayCursor::back, Range(1, 6), 6, "R5 P6 "},   {2, &ReplayCursor::back, {1}, 1, "P1 "},
        {4, &ReplayCursor::forward, {5}, 5, "P5 R5 "},        {7, &ReplayCursor::forward, {7}, 7, "P7 "},
        {3, &ReplayCursor::last, Range(1, 7), 7, "R5 P7 "},   {6, &ReplayCursor::first, {1}, 1, "P1 "},
        {1, &ReplayCursor::back, {}, 0, "P0 "},  // called as a plain procedure at the first action
    };
    for (const Case& c : cases) {
        ReplayCursor cursor = Opened(kCapture);
        cursor.setMap(ViewMode::All, {2, 2});
        cursor.jumpTo(c.from);
        Told told;
        const MoveResult result = (cursor.*c.move)(&told);
        EXPECT_EQ(result.applied, c.applied) << c.from;
        EXPECT_EQ(cursor.position(), c.to);
        EXPECT_EQ(told.heard, c.heard) << c.from;
        EXPECT_FALSE(result.stopped);
    }
    // A jump keeps within the replay and tells what the actions on its way reported.
    ReplayCursor cursor = Opened(kCapture);
    const MoveResult jump = cursor.jumpTo(99);
    EXPECT_EQ(std::tuple(cursor.position(), jump.applied, jump.reports.size()), std::tuple(7, Range(1, 7), std::size_t{1}));
    EXPECT_EQ(jump.reports.front().event, 5);
    EXPECT_TRUE(jump.reports.front().text.starts_with("Chyba pri provadeni tahu - "));
    cursor.jumpTo(-3);
    EXPECT_EQ(cursor.position(), 1);
    // A replay of one action has one place to jump to; before any replay a step back stays.
    ReplayCursor one = Opened(BlankWorld(2, 1));
    one.jumpTo(5);
    EXPECT_EQ(one.position(), 1);
    ReplayCursor none;
    none.back();
    EXPECT_EQ(none.position(), 0);
}

// A jump tells what the user had not passed yet: forward, the reports after where it started up to
// where it landed; back, the target's own.
TEST(ReplayCursorTest, AJumpTellsOnlyTheReportsOfTheActionsNotPassedYet) {
    const MoveResult jump{0, Range(1, 7), {{2, "a"}, {5, "b"}, {5, "c"}, {7, "d"}}, false};
    const auto events = [&](int from, int reached) {
        std::vector<int> told;
        for (const EventReport& report : NewsOfJump(jump, from, reached)) told.push_back(report.event);
        return told;
    };
    EXPECT_EQ(events(5, 7), std::vector<int>{7});         // 5 was passed already
    EXPECT_EQ(events(4, 7), (std::vector<int>{5, 5, 7}));
    EXPECT_EQ(events(1, 5), (std::vector<int>{2, 5, 5}));  // stopped at 5 on the way to 7
    EXPECT_EQ(events(7, 5), (std::vector<int>{5, 5}));     // back: the target's own
    EXPECT_EQ(events(7, 6), std::vector<int>{});
    EXPECT_EQ(events(5, 5), std::vector<int>{});  // staying tells nothing new
}

TEST(ReplayCursorTest, OpeningAppliesTheFirstActionAndAFailedLoadKeepsWhatItRead) {
    OpenResult opened;
    ReplayCursor cursor = Opened(kAlfa, &opened);
    EXPECT_TRUE(opened.load.succeeded());
    EXPECT_EQ(std::tuple(opened.first.applied, cursor.position(), cursor.eventCount(), cursor.history().log.size()),
              std::tuple(std::vector<int>{1}, 1, 7, 7));
    EXPECT_TRUE(cursor.frame().pictures.empty());  // free land until the first move

    // Two lines of another replay, then a bad one: the count stays, the list is what was read.
    ReplayText broken("0;Zlom;2;3;2;3\r\n2004-06-19-08-00-00;create_world;NNNNNN\r\nnonsense\r\n");
    opened = cursor.open(broken);
    EXPECT_EQ(opened.load.line, 3);
    EXPECT_TRUE(opened.load.failure.starts_with(kLoadFailure));
    EXPECT_EQ(std::tuple(cursor.eventCount(), cursor.world().lastEventIndex(), cursor.history().log.size()),
              std::tuple(7, 1, 1));
    // The actions the list lacks report that they are missing, one each; a jump keeps to what was read.
    const MoveResult end = cursor.last();
    EXPECT_EQ(end.reports.size(), 6u);
    EXPECT_EQ(end.reports.back().text, "Chyba pri provadeni tahu - Index mimo rozsah: udalost 7 neexistuje");
    cursor.jumpTo(5);
    EXPECT_EQ(std::pair(cursor.position(), cursor.actionsRead()), std::pair(1, 1));
    ReplayText empty("");
    cursor.open(empty);
    cursor.jumpTo(5);
    EXPECT_EQ(std::pair(cursor.position(), cursor.actionsRead()), std::pair(1, 0));
}

TEST(ReplayCursorTest, AStoppedRebuildEndsAtTheActionItReached) {
    for (const bool jump : {false, true}) {
        ReplayCursor cursor = Opened(PlainReplay(10));
        Told told;
        told.stopAt = 6;
        const MoveResult result = jump ? cursor.jumpTo(10, &told) : cursor.last(&told);
        EXPECT_EQ(std::tuple(result.applied, result.stopped, cursor.position()), std::tuple(Range(1, 6), true, 6));
        EXPECT_EQ(told.heard, "P6 ");
    }
}

// The step buttons' four tests, each on its own.
TEST(ReplayCursorTest, TheStepButtonsFollowThePositionTestByTest) {
    // One after another, as moves follow each other: each state from the one before.
    const std::tuple<int, int, const char*> moves[] = {
        // position, count: forward, backward, at the first, at the last
        {1, 10, "1010"}, {5, 10, "1100"}, {10, 10, "0101"}, {2, 10, "1100"}, {1, 10, "1010"},
        {2, 10, "1100"}, {10, 10, "0101"}, {1, 1, "0011"}, {5, 10, "1100"}, {0, 0, "0011"},
        {5, 10, "1100"}, {5, 0, "1100"}};  // a count that fell below the position leaves the forward group
    StepButtons buttons;
    for (const auto& [position, count, expected] : moves) {
        buttons.follow(position, count);
        const std::string flags{char('0' + buttons.forwardEnabled), char('0' + buttons.backwardEnabled),
                                char('0' + buttons.atBegin), char('0' + buttons.atEnd)};
        EXPECT_EQ(flags, expected) << position << " of " << count;
    }
}

// An export's picture is what the window shows when the step buttons reach its action: the
// map's redraw after every step writes grass that later actions read. Only A0 has a terrain
// letter: the headquarters stand on bare fields, which a redraw fills where they are seen, and
// the start's income reads that letter; a change of terrain makes Karel's headquarters bare again
// just before Jana takes it.
TEST(ReplayCursorTest, AWalkReachesWhatTheStepsReachWithTheirRedraws) {
    const std::string bareFields =
        "0;Holiny;2;5;1;3\r\n"
        "2004-06-19-08-00-00;create_world;N\r\n"
        "2004-06-19-08-10-00;create_hq;Karel;les;B0\r\n"
        "2004-06-19-08-20-00;create_hq;Jana;louka;E0\r\n"
        "2004-06-19-09-30-00;attack;E0;D0;1;1;1\r\n"
        "2004-06-19-09-40-00;attack;B0;C0;1;1;1\r\n"
        "2004-06-19-09-50-00;attack;D0;C0;1;1;1\r\n"
        "2004-06-19-10-10-00;convert_gnd;B0;\r\n"
        "2004-06-19-10-20-00;attack;C0;B0;1;1;1\r\n";
    // The same with no letter at all, the first field among the bare ones.
    std::string noLetters = bareFields;
    noLetters.replace(noLetters.find("create_world;N"), 14, "create_world;");
    for (const std::string& replay : {bareFields, noLetters})
        for (const ViewMode mode : {ViewMode::AsLouka, ViewMode::AsLes, ViewMode::All}) {
            SCOPED_TRACE(static_cast<int>(mode));
            ReplayCursor stepped = Opened(replay);
            stepped.setMap(mode, {5, 5});
            stepped.first();
            for (int action = 1; action <= stepped.eventCount(); ++action) {
                if (action > 1) stepped.forward();
                ReplayCursor walked(Opened(replay).world());
                walked.setMap(mode, {5, 5});
                ASSERT_TRUE(walked.walkTo(action));
                EXPECT_EQ(walked.frame(), stepped.frame()) << action;
                EXPECT_EQ(WorldLines(walked.world()), WorldLines(stepped.world())) << action;
            }
        }
    // Without the redraws' grass the incomes differ: the case above is one where they count.
    ReplayCursor unseen = Opened(bareFields), seen(unseen.world());
    seen.setMap(ViewMode::All, {5, 5});
    seen.walkTo(4);
    unseen.jumpTo(4);
    EXPECT_NE(unseen.world().players[1].nectarPerHour, seen.world().players[1].nectarPerHour);
    // A field a creation of no letters leaves as it was, owned and bare before the walk and the
    // only such field, first or last: the first redraw fills it, and the attack's income reads it.
    for (const auto& [field, name] : {std::pair{1, "A0"}, {4, "D0"}}) {
        const std::string noCreation = std::string("0;Prazdny;2;4;1;3\r\n2004-06-19-08-00-00;create_world;\r\n") +
                                       "2004-06-19-08-10-00;create_hq;Karel;les;B0\r\n2004-06-19-08-20-00;start\r\n"
                                       "2004-06-19-08-30-00;attack;B0;" + name + ";1;1;1\r\n";
        WorldState before = Opened(noCreation).world();
        before.tiles[std::size_t(field)].owner = "Nekdo";
        before.tiles[2].terrain = "N";
        ReplayCursor walked(before), steppedOver(before);
        for (ReplayCursor* cursor : {&walked, &steppedOver}) cursor->setMap(ViewMode::All, {4, 4});
        walked.walkTo(5);
        steppedOver.first();
        while (steppedOver.position() < 5) steppedOver.forward();
        EXPECT_EQ(WorldLines(walked.world()), WorldLines(steppedOver.world())) << name;
        EXPECT_EQ(walked.world().players[1].nectarPerHour, 24) << name;
    }

    // A grid that holds fewer fields than the map redraws those alone.
    ReplayCursor shortGrid = Opened(kCapture), shortSteps = Opened(kCapture);
    for (ReplayCursor* cursor : {&shortGrid, &shortSteps}) cursor->setMap(ViewMode::All, {1, 1});
    shortGrid.walkTo(7);
    shortSteps.first();
    while (shortSteps.position() < 7) shortSteps.forward();
    EXPECT_EQ(WorldLines(shortGrid.world()), WorldLines(shortSteps.world()));
    EXPECT_EQ(shortGrid.frame().pictures.size(), 1u);

    // A walk that its progress stops goes no further; the progress hears of the whole it is a part of.
    struct StopAt : TaskProgress {
        bool keepGoing(std::uint64_t done, std::uint64_t total) override {
            totals.push_back(total);
            return done < 3;
        }
        std::vector<std::uint64_t> totals;
    } stop;
    EXPECT_FALSE(seen.walkTo(8, &stop));
    EXPECT_EQ(seen.position(), 3);
    EXPECT_TRUE(seen.walkTo(2, &stop, 20));
    EXPECT_EQ(stop.totals, (std::vector<std::uint64_t>{8, 8, 8, 20}));
    // Another way of viewing redraws the map at once.
    const MapFrame whole = seen.frame();
    seen.setViewMode(ViewMode::AsLouka);
    EXPECT_NE(seen.frame().pictures, whole.pictures);
}

// The marks of a headquarters taken stand on the field attacked, also when the cursor reaches the
// attack from its keyframe without applying it.
TEST(ReplayCursorTest, TheActionAKeyframeStandsOnIsMarkedAndTellsAgainAsApplied) {
    // A world of two fields, a start, then `action` as the keyframe's own action.
    const auto keyframedAt = [](const std::string& action) {
        std::string replay = "0;Klic;9;2;1;3\r\n2004-06-19-08-00-00;create_world;NN\r\n"
                             "2004-06-19-08-00-00;create_hq;Karel;les;A0\r\n2004-06-19-08-00-00;create_hq;Jana;louka;B0\r\n"
                             "2004-06-19-08-00-00;start\r\n";
        for (int event = 5; event < Keyframes::kSpacing; ++event) replay += "2004-06-19-08-00-00;fly\r\n";
        return replay + "2004-06-19-08-00-00;" + action + "\r\n2004-06-19-08-00-00;fly\r\n";
    };
    constexpr int k = Keyframes::kSpacing;
    // The headquarters taken, reached by a step onto it and from the keyframe; an attack that takes
    // none marks none; an action that failed tells so again.
    const std::tuple<const char*, int, std::size_t> cases[] = {
        {"attack;A0;B0;1;1;1", 2, 0}, {"attack;A0;B0;1;0;1", 0, 0}, {"move;A0;Z9;1", 0, 1}};
    for (const auto& [action, captured, reports] : cases) {
        ReplayCursor cursor = Opened(keyframedAt(action));
        cursor.setMap(ViewMode::All, {2, 2});
        ASSERT_EQ(cursor.history().keyframes.size(), 1);
        for (const int from : {k - 1, k + 1}) {
            cursor.jumpTo(from);
            const MoveResult result = from < k ? cursor.forward() : cursor.jumpTo(k);
            EXPECT_EQ(result.keyframe == k, from > k);
            EXPECT_EQ(std::pair(cursor.frame().marks.capturedHeadquarters, result.reports.size()),
                      std::pair(captured, reports))
                << action << " from " << from;
        }
        cursor.back();
        EXPECT_EQ(cursor.frame().marks.capturedHeadquarters, 0);
    }
}

// A rebuild that its progress stops ends at the action it reached, also while it tells again what
// the actions a keyframe passes over reported, and after the keyframe.
TEST(ReplayCursorTest, ARebuildFromAKeyframeStopsWhereItsProgressStopsIt) {
    GeneratedLines failing({20, 15, 4, 2 * Keyframes::kSpacing + 700, 3});
    failing.insertEvery(97, {"move;A0;Z99;5"});
    const std::string replay = failing.text();
    const std::vector<int> reporting = Opened(replay).history().keyframes.reportingEvents();
    ASSERT_GT(reporting.size(), 3u);
    ASSERT_LT(reporting[2], Keyframes::kSpacing);
    struct Case {
        int target;
        int stopAt;
        int keyframe;
        std::vector<int> applied;
        std::size_t reports;
    };
    constexpr int k = Keyframes::kSpacing;
    const Case cases[] = {{k + 100, reporting[2], 0, Range(1, reporting[2]), 3},
                          {k + 100, k + 5, k, Range(k + 1, k + 5), 0}};
    for (const Case& c : cases) {
        ReplayCursor cursor = Opened(replay);
        Told told;
        told.stopAt = c.stopAt;
        const MoveResult result = cursor.jumpTo(c.target, &told);
        EXPECT_TRUE(result.stopped);
        EXPECT_EQ(std::tuple(cursor.position(), result.keyframe, result.applied), std::tuple(c.stopAt, c.keyframe, c.applied));
        if (c.reports > 0) {
            EXPECT_EQ(result.reports.size(), c.reports);
        }
        WorldState rebuilt = Opened(replay).world();
        for (int index = 1; index <= c.stopAt; ++index) ExecuteEvent(rebuilt, std::int16_t(index));
        EXPECT_EQ(WorldLines(cursor.world()), WorldLines(rebuilt));
    }
}

// The guard of the keyframes: on generated replays, valid and hostile, every move leaves the
// world and tells the messages, in order, exactly as applying the actions from the first to the
// world it started from does.
constexpr int kColumns = 20;
constexpr int kRows = 15;
constexpr int kEvents = 2 * Keyframes::kSpacing + 700;  // two keyframes and actions after the last

struct Lines : GeneratedLines {
    Lines() : GeneratedLines({kColumns, kRows, 4, kEvents, 3}) {}
};

enum class Keyframing { Used, NotUsed, UsedUntilFieldZeroChanges };

struct Case {
    const char* name;
    std::string replay;
    Keyframing keyframing;
    bool failing;  // some of its actions report a failure
};

std::vector<Case> Cases() {
    std::vector<Case> cases;
    // Valid, with the end the loader adds after a final attack: the rule stores the winner, which a
    // rebuild to before it keeps.
    Lines valid;
    valid.append("buy;C5;Hovado;1");
    valid.append("end;");
    cases.push_back({"valid", valid.text(), Keyframing::Used, false});

    // Failing moves and purchases, attacks without the moves to pay for them, ends in the middle
    // that store the winner for the last action, a headquarters whose terrain is emptied (the
    // redraw fills in grass), and a last action that reads the winner stored for it: a player
    // joining.
    Lines failing;
    failing.insertEvery(97, {"move;A0;Z99;5", "end;louka", "attack;A0;B0;5;1;3", "convert_gnd;C5;",
                             "buy;A14;Hovado;30000", "trade;Nikdo;Hrac1;7", "retreat;C3;9"});
    failing.append("create_hq;Pozdni;les;B2");
    cases.push_back({"failing actions and ends", failing.text(), Keyframing::Used, true});

    // Ends whose rule cannot store: the action before the last names no field.
    Lines unwritable;
    unwritable.insertEvery(301, {"end;les"});
    unwritable.append("move;Z99;A0;1");
    unwritable.append("end;les");
    cases.push_back({"ends that cannot store", unwritable.text(), Keyframing::Used, true});

    // A purchase on a blank field writes into entry 0 of the fields, which the world's creation
    // never resets: a rebuild then depends on what the world held before it.
    Lines blank;
    blank.insert(blank.lines.size() - 300, "buy;;Hovado;5");
    cases.push_back({"a blank field", blank.text(), Keyframing::UsedUntilFieldZeroChanges, false});

    // A creation shorter than the map leaves the fields after it as they were, armies bought
    // there included; a longer one fails before it empties the players.
    for (const int change : {-1, 1}) {
        Lines odd;
        std::string& creation = odd.lines[1];
        creation.resize(creation.size() + std::size_t(change), 'S');
        odd.insertEvery(499, {"buy;T14;Hovado;3"});
        cases.push_back({change < 0 ? "a short creation" : "a long creation", odd.text(), Keyframing::NotUsed,
                         change > 0});
    }
    // A first action as long as the map that creates nothing.
    Lines uncreated;
    uncreated.lines[1] = uncreated.lines[1].substr(0, 20) + "trade;" + std::string(kColumns * kRows, 'N') + ";Hrac1;5";
    cases.push_back({"no creation", uncreated.text(), Keyframing::NotUsed, false});
    return cases;
}

// The world and the messages that applying actions `first` .. `target` and the map's redraw in
// `mode` leave: `first` is 1 for a move that rebuilds, the target itself for a step forward or to
// the first action.
std::pair<std::vector<std::string>, std::vector<std::string>> Applied(WorldState world, int first, int target,
                                                                      ViewMode mode) {
    std::vector<std::string> messages;
    for (int index = first; index <= target; ++index)
        for (const std::string& text : ExecuteEvent(world, std::int16_t(index)).messages) messages.push_back(text);
    RevealForView(world, mode, kColumns * kRows);
    return {WorldLines(world), messages};
}

TEST(ReplayCursorTest, EveryMoveLeavesWhatTheRebuildFromTheFirstActionLeaves) {
    for (const Case& c : Cases()) {
        SCOPED_TRACE(c.name);
        ReplayCursor cursor = Opened(c.replay);
        const int count = cursor.eventCount();
        ASSERT_GT(count, 2 * Keyframes::kSpacing);
        ASSERT_EQ(cursor.history().log.nearest(0, EventKind::Failures, true) > 0, c.failing);
        std::mt19937 random(11);
        int rebuilds = 0, fromKeyframes = 0;
        // End first: every replay goes past its last keyframe at once.
        for (int move = 0; move < 60; ++move) {
            const int roll = move == 0 ? 0 : int(random() % 10);
            const int position = cursor.position();
            // The redraw after the last move, in a way of viewing of its own.
            cursor.setMap(ViewMode(random() % 3), {kColumns * kRows, kColumns * kRows});
            cursor.setViewMode(*cursor.viewMode());
            const bool fieldZeroChanged = !cursor.world().tiles[0].armyType.empty();

            int first = 1, target = 1;
            std::function<MoveResult()> step;
            if (roll == 0) {
                target = count;
                step = [&] { return cursor.last(); };
            } else if (roll <= 2 && position > 1) {
                target = std::max(position - 1, 1);
                step = [&] { return cursor.back(); };
            } else if (roll <= 3) {
                first = target = std::min(position + 1, count);
                step = [&] { return cursor.forward(); };
            } else if (roll == 4) {
                step = [&] { return cursor.first(); };
            } else {
                // Around a keyframe as often as anywhere.
                const int k = int(1 + random() % 2) * Keyframes::kSpacing;
                target = roll <= 6 ? k - 1 + int(random() % 3) : 1 + int(random() % unsigned(count));
                step = [&] { return cursor.jumpTo(target); };
            }
            const auto [world, messages] = Applied(cursor.world(), first, target, *cursor.viewMode());
            const MoveResult result = step();
            SCOPED_TRACE("move " + std::to_string(move) + " to " + std::to_string(target));
            ASSERT_EQ(WorldLines(cursor.world()), world);
            std::vector<std::string> told;
            for (const EventReport& report : result.reports) told.push_back(report.text);
            EXPECT_EQ(told, messages);
            EXPECT_EQ(cursor.position(), target);

            if (first > 1 || target < Keyframes::kSpacing) continue;
            ++rebuilds;
            const bool keyframed = result.keyframe > 0;
            fromKeyframes += keyframed;
            if (c.keyframing == Keyframing::UsedUntilFieldZeroChanges) {
                EXPECT_NE(keyframed, fieldZeroChanged);
            }
        }
        EXPECT_GT(rebuilds, 10);
        switch (c.keyframing) {
        case Keyframing::Used: EXPECT_EQ(fromKeyframes, rebuilds); break;
        case Keyframing::NotUsed: EXPECT_EQ(fromKeyframes, 0); break;
        case Keyframing::UsedUntilFieldZeroChanges: EXPECT_GT(fromKeyframes, 0); break;
        }
    }
}

}  // namespace
}  // namespace trelvin
