// What each way of viewing shows of a field: visibility to a side and the picture chosen.
#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "support/world_builder.h"
#include "view/field_pictures.h"

namespace trelvin {
namespace {

using namespace testing;

class Pictures : public ::testing::Test {
protected:
    // 5 x 4:  row 0 "NBSXN", rows 1..3 grass; les holds only the corner A0, louka E3 and more.
    Pictures() : w(MakeWorld(5, 4, "NBSXNNNNNNNNNNNNNNNN")) {
        AddPlayer(w, "Karel", "les", "A0");
        AddPlayer(w, "Jana", "louka", "E3");
        At(w, "D3") = Tile{"B", "Jana", "Kom\xE1r", 3, false};
        At(w, "C3") = Tile{"S", "Jana", "", 0, false};
    }
    std::vector<int> draw(ViewMode mode) { return RedrawPictures(w, mode, w.fieldCount()); }
    int pictureOf(ViewMode mode, const std::string& field) { return draw(mode)[FieldIndex(w, field) - 1]; }
    std::string visibleFields() {
        std::string rows;
        for (int k = 1; k <= w.fieldCount(); ++k) {
            rows += w.tiles[k].visible ? '#' : '.';
            if (k % w.mapWidth == 0 && k < w.fieldCount()) rows += '/';
        }
        return rows;
    }
    WorldState w;
};

TEST_F(Pictures, SeeingEverything) {
    EXPECT_EQ(ViewSide(ViewMode::All), "");
    EXPECT_EQ(ViewSide(ViewMode::AsLes), "les");
    EXPECT_EQ(ViewSide(ViewMode::AsLouka), "louka");
    EXPECT_EQ(draw(ViewMode::All),
              (std::vector<int>{15, 2, 2, 16, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 13, 12, 15}));
    EXPECT_EQ(visibleFields(), "#####/#####/#####/#####");
}

TEST_F(Pictures, SideSeesItsFieldsAndTheirNeighbours) {
    const auto les = draw(ViewMode::AsLes);
    EXPECT_EQ(visibleFields(), "##.../##.../...../.....");
    EXPECT_EQ(les, (std::vector<int>{15, 2, 1, 1, 1, 2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));

    draw(ViewMode::AsLouka);
    EXPECT_EQ(visibleFields(), "...../...../.####/.####");
    At(w, "C1").owner = "Jana";
    draw(ViewMode::AsLouka);
    EXPECT_EQ(visibleFields(), ".###./.###./.####/.####");

    // Without land a side sees nothing.
    At(w, "A0").owner = "";
    draw(ViewMode::AsLes);
    EXPECT_EQ(visibleFields(), "...../...../...../.....");
}

TEST_F(Pictures, OnlyTheViewingSideShowsArmiesAndHeadquarters) {
    At(w, "B1").owner = "Karel";
    At(w, "D2").owner = "Karel";  // now all of louka's land is in sight of les
    At(w, "E2") = Tile{"N", "Jana", "Hovado", 4, false};
    for (const auto& [field, asLes, asLouka, all] : std::vector<std::tuple<const char*, int, int, int>>{
             {"D3", 11, 12, 12}, {"C3", 13, 13, 13}, {"E2", 9, 10, 10}, {"E3", 9, 15, 15},
             {"D2", 3, 3, 3},    {"B1", 3, 1, 3}}) {
        EXPECT_EQ(pictureOf(ViewMode::AsLes, field), asLes) << field;
        EXPECT_EQ(pictureOf(ViewMode::AsLouka, field), asLouka) << field;
        EXPECT_EQ(pictureOf(ViewMode::All, field), all) << field;
    }
    At(w, "B1").armyCount = 1;
    At(w, "D2").armyCount = 1;
    At(w, "D2").terrain = "S";
    EXPECT_EQ(pictureOf(ViewMode::AsLes, "B1"), 4);
    EXPECT_EQ(pictureOf(ViewMode::AsLouka, "D2"), 7);
    EXPECT_EQ(pictureOf(ViewMode::All, "D2"), 8);
    EXPECT_EQ(pictureOf(ViewMode::AsLouka, "A0"), 1);

    // A side that is neither gets the plain les pictures and never marks.
    w.players[1].side = "hory";
    EXPECT_EQ(pictureOf(ViewMode::All, "A0"), 3);
    EXPECT_EQ(pictureOf(ViewMode::All, "B1"), 3);
}

TEST_F(Pictures, MalformedWorldsStillDraw) {
    At(w, "A1") = Tile{"", "Karel", "", 0, false};
    At(w, "C1") = Tile{"Q", "Jana", "Hovado", 5, false};
    At(w, "B0") = Tile{"n", "Karel", "", 0, false};
    At(w, "D1") = Tile{"N", "Ghost", "", 0, false};
    EXPECT_EQ(pictureOf(ViewMode::AsLouka, "A1"), 1);
    EXPECT_EQ(At(w, "A1").terrain, "");  // hidden fields keep their empty terrain
    EXPECT_EQ(pictureOf(ViewMode::All, "A1"), 3);
    EXPECT_EQ(At(w, "A1").terrain, "N");
    EXPECT_EQ(pictureOf(ViewMode::All, "C1"), 2);
    EXPECT_EQ(pictureOf(ViewMode::AsLouka, "C1"), 2);
    EXPECT_EQ(pictureOf(ViewMode::AsLes, "B0"), 2);
    At(w, "A0").terrain = "W";  // an unknown letter beats the headquarters too
    EXPECT_EQ(pictureOf(ViewMode::All, "A0"), 2);
    EXPECT_EQ(pictureOf(ViewMode::All, "D1"), 3);  // an owner naming no player
    EXPECT_EQ(ChoosePicture(w, 99, ViewMode::All), 1);
    EXPECT_EQ(ChoosePicture(w, 0, ViewMode::All), 1);

    for (const char* hq : {"E", "E3x", "E99999", "", "\xFF" "3"}) {
        w.players[2].hqField = hq;  // malformed: marks no field
        EXPECT_EQ(pictureOf(ViewMode::All, "E3"), 9) << hq;
    }

    // Before any load nothing changes.
    WorldState never = MakeWorld(2, 1, "NN");
    never.loaded = false;
    never.tiles[1].visible = true;
    UpdateVisibility(never, "les");
    UpdateVisibility(never, "");
    EXPECT_TRUE(never.tiles[1].visible);
    EXPECT_FALSE(never.tiles[2].visible);
}

}  // namespace
}  // namespace trelvin
