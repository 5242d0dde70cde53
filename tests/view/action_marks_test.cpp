// The marks of the current action on the map: the right fields for each kind of action, and
// nothing that the way of viewing hides.
#include <gtest/gtest.h>

#include "support/world_builder.h"
#include "view/action_marks.h"

namespace trelvin {
namespace {

using namespace testing;

// A0 B0 C0 / A1 B1 C1: Karel ("les") holds A0 (headquarters) and B0 with armies, Jana ("louka")
// C0 and C1 (headquarters), with armies. "les" sees every field; "louka" only B and C.
WorldState TwoSides() {
    WorldState w = MakeWorld(3, 2, "NNNNNN");
    AddPlayer(w, "Karel", "les", "A0");
    AddPlayer(w, "Jana", "louka", "C1");
    At(w, "B0").owner = "Karel";
    At(w, "C0").owner = "Jana";
    for (const char* field : {"A0", "B0", "C0", "C1"}) {
        At(w, field).armyType = "Beruska";
        At(w, field).armyCount = 10;
    }
    return w;
}

ReplayEvent Named(ReplayEvent e, const std::string& player, const std::string& armyType = "") {
    e.playerName = player;
    e.armyType = armyType;
    return e;
}

struct Case {
    const char* what;
    ReplayEvent event;
    ViewMode mode;
    std::vector<int> outlined;
    std::pair<int, int> arrow;
    int captured;
};

TEST(ActionMarksTest, MarksTheNamedFieldsAndNothingTheWayOfViewingHides) {
    using enum ViewMode;
    const Case cases[] = {
        {"a move seen whole", Event("move", "A0", "B0", 2), All, {1, 2}, {1, 2}, 0},
        {"a move of the other side on fields in sight", Event("move", "C1", "C0", 2), AsLes, {}, {0, 0}, 0},
        {"an attack: both fields, an arrow", Event("attack", "B0", "B1", 2, true, 1), AsLouka, {2, 5}, {2, 5}, 0},
        {"an attack from a field out of sight: no arrow", Event("attack", "A0", "B1", 2, true, 1), AsLouka, {5}, {0, 0}, 0},
        {"an attack off the map", Event("attack", "B0", "Z9", 2, false, 0), All, {2}, {0, 0}, 0},
        {"a headquarters taken", Event("attack", "B0", "C1", 2, true, 1), AsLes, {2, 6}, {2, 6}, 6},
        {"a headquarters taken, its side left blind", Event("attack", "B0", "C1", 2, true, 1), AsLouka, {}, {0, 0}, 0},
        {"a purchase by the side", Named(Event("buy", "C0", "", 3), "", "Beruska"), AsLouka, {3}, {0, 0}, 0},
        {"a sale", Event("retreat", "A0", "", 1), All, {1}, {0, 0}, 0},
        {"a change of terrain: its letter is no field", Event("convert_gnd", "C0", "B"), AsLes, {3}, {0, 0}, 0},
        {"a trade names players", Event("trade", "Karel", "Jana", 5), All, {}, {0, 0}, 0},
        {"a headquarters founded, seen by its side", Named(Event("create_hq", "B1", "les"), "Petr"), AsLes, {5}, {0, 0}, 0},
        {"a headquarters founded, hidden from the other", Named(Event("create_hq", "B1", "les"), "Petr"), AsLouka, {}, {0, 0}, 0},
    };
    for (const Case& c : cases) {
        WorldState w = TwoSides();
        const bool took = ApplyEvent(w, c.event).tookHeadquarters();
        RevealForView(w, c.mode, 6);
        const ActionMarks marks = MarkAction(w, w.eventCount, took, c.mode, 6);
        EXPECT_EQ(marks.outlined, c.outlined) << c.what;
        EXPECT_EQ(std::pair(marks.arrowFrom, marks.arrowTo), c.arrow) << c.what;
        EXPECT_EQ(marks.capturedHeadquarters, c.captured) << c.what;
    }
}

TEST(ActionMarksTest, AnActionOutsideTheListOrTheMapIsNotMarked) {
    WorldState w = TwoSides();
    Apply(w, Event("move", "A0", "B0", 2));
    RevealForView(w, ViewMode::All, 6);
    for (const int position : {0, 2, -1}) EXPECT_TRUE(MarkAction(w, position, false, ViewMode::All, 6).empty()) << position;
    // A grid that stops short of the map marks only the fields it has.
    EXPECT_EQ(MarkAction(w, 1, false, ViewMode::All, 1).outlined, std::vector<int>{1});
}

}  // namespace
}  // namespace trelvin
