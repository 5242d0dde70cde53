// What the map and the field panel show of a field in each way of viewing.
#include <gtest/gtest.h>

#include "model/checked_math.h"
#include "support/world_builder.h"
#include "view/field_details.h"
#include "view/field_pictures.h"
#include "view/grid_layout.h"

namespace trelvin {
namespace {

using namespace testing;
using enum ViewMode;

class FieldView : public ::testing::Test {
protected:
    // 5 x 4: row 0 "NBSXN", the rest grass; les holds only the corner A0, louka E3, D3 and C3.
    FieldView() : w(MakeWorld(5, 4, "NBSXN" + std::string(15, 'N'))) {
        AddPlayer(w, "Karel", "les", "A0");
        AddPlayer(w, "Jana", "louka", "E3");
        At(w, "D3") = Tile{"B", "Jana", "Kom\xE1r", 3, false};
        At(w, "C3") = Tile{"S", "Jana", "", 0, false};
    }
    std::vector<int> draw(ViewMode mode) {
        RevealForView(w, mode, w.fieldCount());
        return ChoosePictures(w, mode, w.fieldCount());
    }
    int pictureOf(ViewMode mode, const std::string& field) { return draw(mode)[FieldIndex(w, field) - 1]; }
    // "#" for a visible field, rows separated by "/".
    std::string seen() {
        std::string rows;
        for (int k = 1; k <= w.fieldCount(); ++k)
            rows += std::string(k > 1 && k % w.mapWidth == 1 ? "/" : "") + (w.tiles[k].visible ? '#' : '.');
        return rows;
    }
    // The panel as "terrain|owner|army type|count" after the redraw the window does first.
    std::string panel(const std::string& name, ViewMode mode) {
        draw(mode);
        const auto labels = InspectField(w, name, mode);
        if (!labels) return "unchanged";
        return labels->terrain + "|" + labels->owner + "|" + labels->armyType + "|" + labels->armyCount;
    }
    WorldState w;
};

TEST_F(FieldView, ASideSeesItsFieldsAndTheirNeighbours) {
    EXPECT_EQ(draw(All), (std::vector<int>{15, 2, 2, 16, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 13, 12, 15}));
    EXPECT_EQ(seen(), "#####/#####/#####/#####");
    EXPECT_EQ(draw(AsLes), (std::vector<int>{15, 2, 1, 1, 1, 2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(seen(), "##.../##.../...../.....");  // the corner sees 2 x 2
    draw(AsLouka);
    EXPECT_EQ(seen(), "...../...../.####/.####");
    At(w, "D3").owner = "";  // louka keeps only the last field
    At(w, "C3").owner = "";
    draw(AsLouka);
    EXPECT_EQ(seen(), "...../...../...##/...##");
    WorldState column = MakeWorld(1, 3, "NNN");  // one column: the block is cut at both sides
    AddPlayer(column, "Karel", "les", "A2");
    RevealForView(column, AsLes, 3);
    EXPECT_EQ(std::tuple(column.tiles[1].visible, column.tiles[2].visible, column.tiles[3].visible),
              std::tuple(false, true, true));
    w.loaded = false;  // before any load nothing changes
    UpdateVisibility(w, "");
    EXPECT_EQ(seen(), "...../...../...##/...##");
}

TEST_F(FieldView, PicturesShowArmiesAndHeadquartersOnlyToTheirSide) {
    At(w, "B1").owner = "Karel";
    At(w, "D2").owner = "Karel";  // now all of louka's land is in sight of les
    At(w, "E2") = Tile{"N", "Jana", "Hovado", 4, false};
    At(w, "D1") = Tile{"S", "Karel", "", 1, false};
    const std::tuple<const char*, int, int, int> pictures[] = {
        {"D3", 11, 12, 12}, {"C3", 13, 13, 13}, {"E2", 9, 10, 10}, {"E3", 9, 15, 15},
        {"D2", 3, 3, 3},    {"B1", 3, 1, 3},    {"D1", 8, 7, 8}};
    for (const auto& [field, asLes, asLouka, all] : pictures)
        EXPECT_EQ(std::tuple(pictureOf(AsLes, field), pictureOf(AsLouka, field), pictureOf(All, field)),
                  std::tuple(asLes, asLouka, all)) << field;

    At(w, "A1") = Tile{"", "Karel", "", 0, false};
    EXPECT_EQ(pictureOf(AsLouka, "A1"), 1);
    EXPECT_EQ(At(w, "A1").terrain, "");  // a hidden field keeps its empty terrain
    EXPECT_EQ(pictureOf(All, "A1"), 3);
    EXPECT_EQ(At(w, "A1").terrain, "N");
    At(w, "A0").terrain = "W";  // an unknown letter beats the headquarters too
    EXPECT_EQ(pictureOf(All, "A0"), 2);
    for (const char* hq : {"E", "E3x", "E99999", ""}) {
        w.players[2].hqField = hq;  // malformed: marks no field
        EXPECT_EQ(pictureOf(All, "E3"), 9) << hq;
    }
}

TEST_F(FieldView, PanelLabelsFollowTheWayOfViewing) {
    At(w, "A0") = Tile{"N", "Karel", "Hovado", 4, false};
    At(w, "B1") = Tile{"Q", "Karel", "", 0, false};
    At(w, "D2") = Tile{"N", "Karel", "Hovado", 2, false};
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"A0", "Normalni|Karel|Hovado|4", "Normalni|Karel|Hovado|4", "|nezname uzemi||"},
        {"D2", "Normalni|Karel|Hovado|2", "Normalni|Karel|Hovado|2", "Normalni|Karel|neznamy|neznamo"},
        {"D3", "Bazina|Jana|Kom\xE1r|3", "Bazina|Jana|neznamy|neznamo", "Bazina|Jana|Kom\xE1r|3"},
        {"B3", "|volne uzemi||", "|nezname uzemi||", "|volne uzemi||"},
        {"D0", "|Nedobytne pole||", "|Nedobytne pole||", "|Nedobytne pole||"},
        {"B1", "|Karel||0", "|Karel||0", "|nezname uzemi||"},
    };
    for (const auto& [field, all, asLes, asLouka] : cases)
        EXPECT_EQ(panel(field, All) + "/" + panel(field, AsLes) + "/" + panel(field, AsLouka),
                  std::string(all) + "/" + asLes + "/" + asLouka) << field;
    EXPECT_EQ(panel("E3", All), "Normalni|Jana||0");  // the last column and row are fields
    EXPECT_EQ(panel("A3", All), "|volne uzemi||");
    for (const char* name : {"F0", "A4", "b2", "", "B", "@0", "A99999", " A0", "A-1"})
        EXPECT_EQ(panel(name, All), "unchanged") << name;
    w.tiles.resize(41);  // a table a failed load left larger: names past the map stay no fields
    EXPECT_EQ(panel("A4", All), "unchanged");
    for (const char* name : {"B2.5", "B 2", "B2x"}) EXPECT_TRUE(IsValidFieldName(w, name)) << name;
    EXPECT_TRUE(IsValidFieldName(MakeWorld(40, 2, ""), "b1"));  // column 33 exists in a wide world
}

}  // namespace
}  // namespace trelvin

namespace trelvin {
namespace {

// The grid of a 10 x 10 map in a window 6630 twips wide, the limits of its 16-bit positions,
// and the field under a point.
TEST(GridLayoutTest, PlacesFieldsAndLabelsStopsAtItsLimitsAndFindsFields) {
    GridLayout grid;
    grid.build(10, 10, 6630);
    ASSERT_EQ(std::tuple(grid.fieldCount(), grid.labelCount()), std::tuple(100, 20));
    const auto at = [](const GridRect& r) { return std::tuple(r.left, r.top, r.width, r.height); };
    EXPECT_EQ(at(grid.fields()[0].rect), std::tuple(3465.0, 2950.0, 300.0, 300.0));
    EXPECT_EQ(at(grid.fields()[99].rect), std::tuple(6165.0, 5650.0, 300.0, 300.0));
    EXPECT_EQ(at(grid.labels()[0].rect), std::tuple(3465.0, 2650.0, 300.0, 300.0));   // "A" above m(1)
    EXPECT_EQ(at(grid.labels()[10].rect), std::tuple(3165.0, 2950.0, 300.0, 300.0));  // "0" left of m(1)
    EXPECT_EQ(at(grid.labels()[19].rect), std::tuple(3165.0, 5650.0, 300.0, 300.0));  // "9" left of m(91)
    EXPECT_EQ(grid.labels()[0].caption + grid.labels()[9].caption + grid.labels()[10].caption +
                  grid.labels()[19].caption, "AJ09");
    EXPECT_EQ(at(grid.bounds()), std::tuple(3165.0, 2650.0, 3300.0, 3300.0));
    EXPECT_EQ(std::tuple(grid.fieldAt(3465, 2950), grid.fieldAt(3764, 3249), grid.fieldAt(3765, 3249),
                         grid.fieldAt(6464, 5949), grid.fieldAt(6465, 5000), grid.fieldAt(3464, 3000),
                         grid.fieldAt(4000, 2949), grid.fieldAt(4000, 5950)),
              std::tuple(1, 1, 2, 100, 0, 0, 0, 0));

    // Row 101 and column 110 pass 16 bits: the element is loaded, hidden, and the build stops.
    const std::tuple<int, int, int, int> limits[] = {{101, 1, 101, 0}, {1, 110, 110, 0}, {100, 1, 100, 101}};
    for (const auto& [rows, columns, fields, labels] : limits) {
        GridLayout limited;
        if (fields == rows * columns && labels > 0)
            limited.build(rows, columns, 6630);
        else
            EXPECT_THROW(limited.build(rows, columns, 6630), RuleError);
        EXPECT_EQ(std::tuple(limited.fieldCount(), limited.labelCount()), std::tuple(fields, labels));
        EXPECT_EQ(limited.fields().back().visible, labels > 0);
    }
    GridLayout noColumns;  // rows without columns cannot be labelled
    EXPECT_THROW(noColumns.build(3, 0, 6630), RuleError);
    EXPECT_EQ(std::tuple(noColumns.labelCount(), noColumns.labels()[0].visible, noColumns.fieldAt(0, 0)),
              std::tuple(1, false, 0));
}

}  // namespace
}  // namespace trelvin
