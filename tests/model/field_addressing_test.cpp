// Field names, indexes, distances and player lookups by name.
#include <gtest/gtest.h>

#include "model/checked_math.h"
#include "support/world_builder.h"

namespace trelvin {
namespace {

using testing::AddPlayer;
using testing::MakeWorld;

template <typename Body>
RuleError::Kind failureOf(Body&& body) {
    try {
        body();
    } catch (const RuleError& error) {
        return error.kind();
    }
    ADD_FAILURE() << "no failure";
    return RuleError::Kind::Other;
}

TEST(FieldAddressing, IndexOfAName) {
    const WorldState w = MakeWorld(10, 8, "");
    const std::pair<const char*, int> cases[] = {
        {"A0", 1},      {"B0", 2},      {"A1", 11},     {"J7", 80},
        {"", 0},        {"   ", 0},     {"a0", 33},     {"C 3 ", 33},
        {"K0", 11},     {"A-1", -9},    {"A1.5", 16},   {"B0.25", 5},
        {"A0.25", 3},   {"A3276.6", 32767},
    };
    for (const auto& [name, index] : cases) EXPECT_EQ(FieldIndex(w, name), index) << name;

    EXPECT_EQ(failureOf([&] { FieldIndex(w, "B"); }), RuleError::Kind::TypeMismatch);
    EXPECT_EQ(failureOf([&] { FieldIndex(w, "B3x"); }), RuleError::Kind::TypeMismatch);
    EXPECT_EQ(failureOf([&] { FieldIndex(w, " B0"); }), RuleError::Kind::TypeMismatch);
    EXPECT_EQ(failureOf([&] { FieldIndex(w, "A\t3"); }), RuleError::Kind::TypeMismatch);
    EXPECT_EQ(failureOf([&] { FieldIndex(w, "A4000"); }), RuleError::Kind::Overflow);
    // The last step adds 1 and checks the range again.
    EXPECT_EQ(failureOf([&] { FieldIndex(w, "A3276.7"); }), RuleError::Kind::Overflow);
}

TEST(FieldAddressing, NameOfAnIndex) {
    const WorldState w = MakeWorld(10, 8, "");
    EXPECT_EQ(FieldName(w, 1), "A0");
    EXPECT_EQ(FieldName(w, 10), "J0");
    EXPECT_EQ(FieldName(w, 11), "A1");
    EXPECT_EQ(FieldName(w, w.fieldCount()), "J7");

    // Columns past "Z" continue with the following codes of the code page.
    const WorldState wide = MakeWorld(120, 2, "");
    EXPECT_EQ(FieldName(wide, 27), "[0");
    EXPECT_EQ(FieldName(wide, 120 + 33), "a1");
    EXPECT_EQ(ColumnCharacter(26), "\x5B");
    EXPECT_EQ(ColumnCharacter(108), "\xAD");
    EXPECT_EQ(FieldIndex(wide, FieldName(wide, 110)), 110);

    const WorldState noColumns = MakeWorld(0, 3, "");
    EXPECT_THROW(FieldName(noColumns, 1), RuleError);
}

TEST(FieldAddressing, DistanceIsScaledAndSkipsOverflowingSteps) {
    struct Case {
        const char* a;
        const char* b;
        std::int16_t scale;
        int distance;
    };
    const Case cases[] = {
        {"A0", "C0", 5, 10},
        {"A0", "B1", 2, 2},   // the square root of 8, cut down
        {"C4", "D5", 5, 7},
        {"D5", "C4", 5, 7},
        {"A0", "D4", 4, 20},
        {"A0", "A40", 5, 0},  // 200 x 200 is past 16 bits: the result stays 0
        {"A 5", "A0", 5, 0},  // a blank ends the row number at once
        {"A 5", "A2", 5, 10},
        {"", "C0", 5, 0},     // no first character: dx stays 0
        {"", "C4", 5, 20},
        {"A0", "C0", 20000, 2},  // the scaling overflows and is skipped
        {"A2x", "A0", 3, 6},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FieldDistance(c.a, c.b, c.scale), c.distance) << c.a << " " << c.b << " " << c.scale;
}

TEST(FieldAddressing, PlayerLookupTakesTheFirstExactName) {
    WorldState w = MakeWorld(3, 2, "NNNNNN");
    EXPECT_EQ(PlayerIndex(w, ""), 0);
    EXPECT_EQ(PlayerIndex(w, "Karel"), 0);
    AddPlayer(w, "Karel", "les", "A0");
    AddPlayer(w, "Karel", "louka", "B0");
    AddPlayer(w, "", "les", "C0");
    EXPECT_EQ(PlayerIndex(w, "Karel"), 1);
    EXPECT_EQ(PlayerIndex(w, "karel"), 0);
    EXPECT_EQ(PlayerIndex(w, "Karel "), 0);
    EXPECT_EQ(PlayerIndex(w, ""), 3);  // a player with an empty name is found by it
}

}  // namespace
}  // namespace trelvin
