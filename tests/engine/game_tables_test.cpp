// The constant tables: terrain yields and names, army prices. Keys match exactly, and army
// names are Windows-1250 bytes.
#include <gtest/gtest.h>

#include "engine/game_tables.h"

namespace trelvin {
namespace {

TEST(GameTables, TerrainsMatchOnlyTheirExactLetter) {
    EXPECT_EQ(TerrainYield("N"), 12);
    EXPECT_EQ(TerrainYield("B"), 7);
    EXPECT_EQ(TerrainYield("S"), 5);
    for (const char* other : {"X", "", "n", " N", "N ", "NN", "Q"})
        EXPECT_EQ(TerrainYield(other), 0) << other;
    EXPECT_EQ(TerrainName("N"), "Normalni");
    EXPECT_EQ(TerrainName("B"), "Bazina");
    EXPECT_EQ(TerrainName("S"), "Skala");
    EXPECT_EQ(TerrainName("X"), "");
    EXPECT_EQ(TerrainName("s"), "");
}

TEST(GameTables, ArmyPricesAreTheSumOfBothValues) {
    const std::pair<const char*, int> prices[] = {
        {"Beru\x9Aka", 8},  {"Chrob\xE1k", 10}, {"Vosi\xE8ka", 12},
        {"Kom\xE1r", 2},    {"Hovado", 10},     {"\x8Av\xE1\x62", 17},
    };
    for (const auto& [name, price] : prices) {
        EXPECT_EQ(UnitPrice(name), price) << name;
        EXPECT_EQ(*ArmyValueA(name) + *ArmyValueB(name), price) << name;
    }
    EXPECT_EQ(ArmyValueA("\x8Av\xE1\x62"), 15);
    EXPECT_EQ(ArmyValueB("Hovado"), 9);
    // Without diacritics, in UTF-8, or with another case the name is no army type.
    for (const char* unknown : {"Beruska", "Beruška", "hovado", "Hovado ", ""}) {
        EXPECT_EQ(UnitPrice(unknown), 0) << unknown;
        EXPECT_FALSE(ArmyValueA(unknown).has_value()) << unknown;
        EXPECT_FALSE(ArmyValueB(unknown).has_value()) << unknown;
    }
}

}  // namespace
}  // namespace trelvin
