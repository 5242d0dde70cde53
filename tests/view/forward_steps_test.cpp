// Stepping a world as the step buttons do: the same world and pictures as a redraw after every
// single action, though the redraw's whole pass is made only where it can write.
#include <gtest/gtest.h>

#include "support/world_builder.h"
#include "view/field_pictures.h"
#include "view/forward_steps.h"

namespace trelvin {
namespace {

using namespace testing;

// Only A0 has a terrain letter: the headquarters stand on bare fields, which a redraw fills
// with grass where they are seen, and the start's income reads that letter; a change of terrain
// makes Karel's headquarters bare again just before Jana takes it.
const std::string kBareFields =
    "0;Holiny;2;5;1;3\r\n"
    "2004-06-19-08-00-00;create_world;N\r\n"
    "2004-06-19-08-10-00;create_hq;Karel;les;B0\r\n"
    "2004-06-19-08-20-00;create_hq;Jana;louka;E0\r\n"
    "2004-06-19-09-30-00;attack;E0;D0;1;1;1\r\n"
    "2004-06-19-09-40-00;attack;B0;C0;1;1;1\r\n"
    "2004-06-19-09-50-00;attack;D0;C0;1;1;1\r\n"
    "2004-06-19-10-10-00;convert_gnd;B0;\r\n"
    "2004-06-19-10-20-00;attack;C0;B0;1;1;1\r\n";

// What the pictures do not show but later actions read: terrain letters and incomes.
std::vector<std::string> Hidden(const WorldState& w) {
    std::vector<std::string> values;
    for (int k = 1; k <= w.fieldCount(); ++k) values.push_back(w.tiles[k].terrain + "|" + w.tiles[k].owner);
    for (int i = 1; i <= w.lastPlayerIndex(); ++i)
        values.push_back(w.players[i].name + "|" + std::to_string(w.players[i].nectarPerHour) + "|" +
                         std::to_string(w.players[i].nectar));
    return values;
}

TEST(ForwardStepsTest, MatchesARedrawAfterEveryActionInEveryWayOfViewing) {
    WorldState loaded;
    ASSERT_EQ(Load(loaded, kBareFields), std::vector<std::string>{});
    for (const ViewMode mode : {ViewMode::AsLouka, ViewMode::AsLes, ViewMode::All}) {
        SCOPED_TRACE(static_cast<int>(mode));
        WorldState window = loaded;
        RecordingReporter reporter;
        for (int action = 1; action <= loaded.eventCount; ++action) {
            SCOPED_TRACE(action);
            ExecuteEvent(window, static_cast<std::int16_t>(action), reporter);
            const std::vector<int> shown = RedrawPictures(window, mode, window.fieldCount());
            // Stepped there afresh, the pictures drawn only on arrival.
            WorldState stepped = loaded;
            ForwardSteps steps(stepped, mode, stepped.fieldCount());
            steps.first();
            while (steps.position() < action) steps.forward();
            EXPECT_EQ(steps.redraw(), shown);
            EXPECT_EQ(Hidden(stepped), Hidden(window));
        }
    }
    // Without the redraws' grass the incomes differ: the case above is one where they count.
    WorldState unseen = loaded, seen = loaded;
    ForwardSteps steps(seen, ViewMode::All, seen.fieldCount());
    RecordingReporter reporter;
    steps.first();
    for (int action = 1; action <= 4; ++action) ExecuteEvent(unseen, static_cast<std::int16_t>(action), reporter);
    for (int action = 2; action <= 4; ++action) steps.forward();
    EXPECT_NE(Hidden(unseen), Hidden(seen));
}

}  // namespace
}  // namespace trelvin
