// What the field panel reads from a named field in each way of viewing.
#include <gtest/gtest.h>

#include "support/world_builder.h"
#include "view/field_inspection.h"
#include "view/field_pictures.h"

namespace trelvin {
namespace {

using namespace testing;

class Inspection : public ::testing::Test {
protected:
    // 10 x 10 grass. Karel (les) holds A0 (headquarters, 4 "Hovado") and E0 (unknown terrain);
    // Jana (louka) holds B0 (3 "Komár") and her empty headquarters J9. C0 is free, D0 is
    // unconquerable ("X").
    Inspection() : w(MakeWorld(10, 10, "NBSXQ" + std::string(95, 'N'))) {
        AddPlayer(w, "Karel", "les", "A0");
        AddPlayer(w, "Jana", "louka", "J9");
        At(w, "A0") = Tile{"N", "Karel", "Hovado", 4, false};
        At(w, "B0") = Tile{"B", "Jana", "Kom\xE1r", 3, false};
        At(w, "E0").owner = "Karel";
    }

    // The four labels as "terrain|owner|army type|count", or "unchanged".
    std::string panel(const std::string& name, ViewMode mode) {
        const auto labels = InspectField(w, name, mode);
        if (!labels) return "unchanged";
        return labels->terrain + "|" + labels->owner + "|" + labels->armyType + "|" + labels->armyCount;
    }

    // Redraws in `mode` as the window does before the panel is read.
    std::string seen(const std::string& name, ViewMode mode) {
        RedrawPictures(w, mode, w.fieldCount());
        return panel(name, mode);
    }

    WorldState w;
};

TEST_F(Inspection, ValidNamesLieWithinTheGrid) {
    for (const char* valid : {"A0", "J9", "J0", "A9", "B8.5", "B 2", "B2x", "B", "B\t3"})
        EXPECT_TRUE(IsValidFieldName(w, valid)) << valid;
    for (const char* invalid : {"K0", "A10", "b2", "", "@0", "B9.5", "A99999", " A0"})
        EXPECT_FALSE(IsValidFieldName(w, invalid)) << invalid;

    WorldState wide = MakeWorld(40, 2, "");
    EXPECT_TRUE(IsValidFieldName(wide, "b1"));  // column 33 exists in a wide world
    EXPECT_FALSE(IsValidFieldName(wide, "b2"));

    // Invalid names and names the field lookup cannot read leave the panel as it is.
    RedrawPictures(w, ViewMode::All, w.fieldCount());
    for (const char* name : {"K0", "A10", "b2", "", "B"})
        EXPECT_EQ(panel(name, ViewMode::All), "unchanged") << name;
}

TEST_F(Inspection, LabelsFollowTheWayOfViewing) {
    struct Case {
        const char* field;
        const char* all;
        const char* asLes;
        const char* asLouka;
    };
    const Case cases[] = {
        {"A0", "Normalni|Karel|Hovado|4", "Normalni|Karel|Hovado|4", "Normalni|Karel|neznamy|neznamo"},
        {"B0", "Bazina|Jana|Kom\xE1r|3", "Bazina|Jana|neznamy|neznamo", "Bazina|Jana|Kom\xE1r|3"},
        {"C0", "|volne uzemi||", "|nezname uzemi||", "|volne uzemi||"},
        {"D0", "|Nedobytne pole||", "|Nedobytne pole||", "|Nedobytne pole||"},
        {"E0", "|Karel||0", "|Karel||0", "|nezname uzemi||"},
        {"J9", "Normalni|Jana||0", "|nezname uzemi||", "Normalni|Jana||0"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(seen(c.field, ViewMode::All), c.all) << c.field;
        EXPECT_EQ(seen(c.field, ViewMode::AsLes), c.asLes) << c.field;
        EXPECT_EQ(seen(c.field, ViewMode::AsLouka), c.asLouka) << c.field;
    }
    // A side that is neither shows its army to everyone.
    w.players[2].side = "hory";
    EXPECT_EQ(seen("B0", ViewMode::AsLes), "Bazina|Jana|Kom\xE1r|3");
}

TEST_F(Inspection, BeforeAnyRedrawOnlyUnconquerableFieldsAreKnown) {
    EXPECT_EQ(panel("D0", ViewMode::All), "|Nedobytne pole||");
    EXPECT_EQ(panel("A0", ViewMode::All), "|nezname uzemi||");
    EXPECT_EQ(panel("C0", ViewMode::All), "|nezname uzemi||");
}

}  // namespace
}  // namespace trelvin
