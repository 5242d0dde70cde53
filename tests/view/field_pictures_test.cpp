// What each way of viewing shows of a field, and what the inspection panel reads from it.
#include <gtest/gtest.h>

#include "support/world_builder.h"
#include "view/field_inspection.h"
#include "view/field_pictures.h"

namespace trelvin {
namespace {

using namespace testing;

class Pictures : public ::testing::Test {
protected:
    // 5 x 4:  row 0 "NBSXN", rows 1..3 grass; les holds only the corner A0.
    Pictures() : w(MakeWorld(5, 4, "NBSXNNNNNNNNNNNNNNNN")) {
        AddPlayer(w, "Karel", "les", "A0");
        AddPlayer(w, "Jana", "louka", "E3");
        At(w, "D3") = Tile{"B", "Jana", "Kom\xE1r", 3, false};
        At(w, "C3") = Tile{"S", "Jana", "", 0, false};
    }
    std::vector<int> draw(ViewMode mode) { return RedrawPictures(w, mode, w.fieldCount()); }
    int pictureOf(ViewMode mode, const std::string& field) { return draw(mode)[FieldIndex(w, field) - 1]; }
    WorldState w;
};

TEST_F(Pictures, SeeingEverything) {
    const auto p = draw(ViewMode::All);
    EXPECT_EQ(p, (std::vector<int>{15, 2, 2, 16, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 13, 12, 15}));
}

TEST_F(Pictures, SeeingAsOneSide) {
    const auto les = draw(ViewMode::AsLes);
    int visible = 0;
    for (int k = 1; k <= w.fieldCount(); ++k) visible += w.tiles[k].visible;
    EXPECT_EQ(visible, 4);  // the 2 x 2 block at the corner
    EXPECT_EQ(les[0], 15);
    EXPECT_EQ(les[1], 2);
    EXPECT_EQ(les[3], 1);  // an "X" field out of sight is hidden too
    EXPECT_EQ(les[6], 2);

    At(w, "B1").owner = "Karel";
    At(w, "C2").owner = "Karel";  // now louka's C3 and D3 are in sight of les
    EXPECT_EQ(pictureOf(ViewMode::AsLes, "D3"), 11);
    EXPECT_EQ(pictureOf(ViewMode::AsLes, "C3"), 13);
    EXPECT_EQ(pictureOf(ViewMode::AsLouka, "D3"), 12);
    EXPECT_EQ(pictureOf(ViewMode::AsLouka, "E3"), 15);
    EXPECT_EQ(pictureOf(ViewMode::AsLouka, "C2"), 3);
    EXPECT_EQ(pictureOf(ViewMode::AsLouka, "A0"), 1);
    At(w, "B1").armyCount = 1;
    EXPECT_EQ(pictureOf(ViewMode::AsLes, "B1"), 4);
}

TEST_F(Pictures, MalformedWorldsStillDraw) {
    At(w, "A1") = Tile{"", "Karel", "", 0, false};
    At(w, "C1") = Tile{"Q", "Jana", "Hovado", 5, false};
    At(w, "D1") = Tile{"N", "Ghost", "", 0, false};
    w.players[2].hqField = "E";  // no row: marks no field
    EXPECT_EQ(pictureOf(ViewMode::AsLouka, "A1"), 1);
    EXPECT_EQ(At(w, "A1").terrain, "");  // hidden fields keep their empty terrain
    EXPECT_EQ(pictureOf(ViewMode::All, "A1"), 3);
    EXPECT_EQ(At(w, "A1").terrain, "N");
    EXPECT_EQ(pictureOf(ViewMode::All, "C1"), 2);
    EXPECT_EQ(pictureOf(ViewMode::All, "D1"), 3);
    EXPECT_EQ(pictureOf(ViewMode::All, "E3"), 9);
    EXPECT_EQ(ChoosePicture(w, 99, ViewMode::All), 1);

    WorldState never = MakeWorld(2, 1, "NN");
    never.loaded = false;
    never.tiles[1].visible = true;
    UpdateVisibility(never, "les");
    EXPECT_TRUE(never.tiles[1].visible);
}

TEST_F(Pictures, InspectionFollowsTheWayOfViewing) {
    EXPECT_TRUE(IsValidFieldName(w, "E3"));
    EXPECT_FALSE(IsValidFieldName(w, "F0"));
    EXPECT_FALSE(IsValidFieldName(w, "A4"));
    EXPECT_FALSE(IsValidFieldName(w, "e3"));
    EXPECT_FALSE(IsValidFieldName(w, ""));
    EXPECT_TRUE(IsValidFieldName(w, "B"));
    EXPECT_FALSE(InspectField(w, "B", ViewMode::All).has_value());
    EXPECT_FALSE(InspectField(w, "B1.6", ViewMode::All).has_value());

    const auto label = [&](const std::string& name, ViewMode mode) {
        const auto i = InspectField(w, name, mode);
        return i ? i->terrain + "|" + i->owner + "|" + i->armyType + "|" + i->armyCount : "none";
    };
    EXPECT_EQ(label("D0", ViewMode::All), "|Nedobytne pole||");  // before any redraw
    EXPECT_EQ(label("D3", ViewMode::All), "|nezname uzemi||");
    draw(ViewMode::All);
    EXPECT_EQ(label("B0", ViewMode::All), "|volne uzemi||");
    EXPECT_EQ(label("D3", ViewMode::All), "Bazina|Jana|Kom\xE1r|3");
    EXPECT_EQ(label("C3", ViewMode::All), "Skala|Jana||0");
    EXPECT_EQ(label("D3", ViewMode::AsLes), "Bazina|Jana|neznamy|neznamo");
    EXPECT_EQ(label(" D 3", ViewMode::All), "none");
}

}  // namespace
}  // namespace trelvin
