#include <gtest/gtest.h>

#include "model/checked_math.h"
#include "model/field_addressing.h"
#include "model/number_reading.h"
#include "model/text_encoding.h"
#include "support/world_builder.h"

namespace trelvin {
namespace {

using testing::MakeWorld;

RuleError::Kind failureOf(auto&& body) {
    try {
        body();
    } catch (const RuleError& e) {
        return e.kind();
    }
    return RuleError::Kind::Other;
}

TEST(NumberReading, StrictLeadingAndHeaderReadingsDiffer) {
    EXPECT_EQ(readLeadingNumber("12abc"), 12);
    EXPECT_EQ(failureOf([] { readStrictNumber("12abc"); }), RuleError::Kind::TypeMismatch);
    EXPECT_EQ(failureOf([] { readStrictNumber(""); }), RuleError::Kind::TypeMismatch);
    EXPECT_EQ(readLeadingNumber(""), 0);
    EXPECT_EQ(readLeadingNumber(" 5"), 0);  // no blank skipped before a leading number
    EXPECT_EQ(readStrictNumber("  7 "), 7);
    EXPECT_EQ(readStrictNumber("2.5"), 2);
    EXPECT_EQ(readStrictNumber("3.5"), 4);
    EXPECT_EQ(readStrictNumber("-2.5"), -2);
    EXPECT_EQ(readStrictNumber("5."), 5);
    EXPECT_EQ(readStrictNumber(".5"), 0);
    EXPECT_EQ(readLeadingNumber("1.5e1x"), 15);
    EXPECT_EQ(readLeadingNumber("0.4"), 0);
    EXPECT_EQ(readLeadingNumber("0.6"), 1);
    EXPECT_EQ(failureOf([] { readLeadingNumber("1e9"); }), RuleError::Kind::Overflow);
    EXPECT_EQ(failureOf([] { readStrictNumber("1e999"); }), RuleError::Kind::Overflow);
    EXPECT_EQ(readStrictNumber("32767.4"), 32767);
    EXPECT_EQ(failureOf([] { readStrictNumber("32767.5"); }), RuleError::Kind::Overflow);
    EXPECT_EQ(readWholeByte(" 255 "), 255);
    EXPECT_EQ(failureOf([] { readWholeByte("256"); }), RuleError::Kind::Overflow);
    EXPECT_EQ(failureOf([] { readWholeByte("-1"); }), RuleError::Kind::Overflow);
    EXPECT_EQ(failureOf([] { readWholeByte("\t3"); }), RuleError::Kind::TypeMismatch);
    EXPECT_DOUBLE_EQ(readLooseNumber(" 1 2x"), 12.0);
}

TEST(CheckedMath, WidthsFailInsteadOfWrapping) {
    EXPECT_EQ(checked16(-32768), -32768);
    EXPECT_EQ(failureOf([] { checked16(32768); }), RuleError::Kind::Overflow);
    EXPECT_EQ(failureOf([] { checked32(2147483648LL); }), RuleError::Kind::Overflow);
    EXPECT_EQ(failureOf([] { checkedU8(-1); }), RuleError::Kind::Overflow);
    EXPECT_EQ(roundHalfEven(0.5), 0.0);
    EXPECT_EQ(roundHalfEven(1.5), 2.0);
    EXPECT_EQ(roundHalfEven(-1.5), -2.0);
}

TEST(TextEncoding, WindowsBytesAndUtf8ConvertBothWays) {
    EXPECT_EQ(cp1250ToUtf8("Beru\x9Aka"), "Beruška");
    EXPECT_EQ(cp1250ToUtf8("\x81"), "\xC2\x81");
    EXPECT_EQ(cp1250ToUtf8("\x80"), "€");
    EXPECT_EQ(utf8ToCp1250("Šváb €"), "\x8Av\xE1\x62 \x80");
    EXPECT_EQ(utf8ToCp1250("日"), "?");
    EXPECT_TRUE(looksLikeUtf8Text("Vosička"));
    EXPECT_FALSE(looksLikeUtf8Text("plain"));
    EXPECT_FALSE(looksLikeUtf8Text("Vosi\xE8ka"));
}

TEST(FieldAddressing, NamesAndIndexesConvertBothWays) {
    WorldState w = MakeWorld(10, 8, "");
    EXPECT_EQ(FieldIndex(w, "A0"), 1);
    EXPECT_EQ(FieldIndex(w, "B0"), 2);
    EXPECT_EQ(FieldIndex(w, "A1"), 11);
    EXPECT_EQ(FieldIndex(w, ""), 0);
    EXPECT_EQ(FieldIndex(w, "   "), 0);
    EXPECT_EQ(FieldIndex(w, "a0"), 33);
    EXPECT_EQ(FieldIndex(w, "C 3 "), 33);
    EXPECT_EQ(failureOf([&] { FieldIndex(w, "B"); }), RuleError::Kind::TypeMismatch);
    EXPECT_EQ(failureOf([&] { FieldIndex(w, "B3x"); }), RuleError::Kind::TypeMismatch);
    EXPECT_EQ(failureOf([&] { FieldIndex(w, "A4000"); }), RuleError::Kind::Overflow);
    EXPECT_EQ(FieldName(w, 80), "J7");
    EXPECT_EQ(FieldName(w, 1), "A0");
    EXPECT_EQ(ColumnCharacter(26), "[");
    EXPECT_EQ(ColumnCharacter(108), "\xAD");
}

TEST(FieldAddressing, DistanceSkipsOverflowingSteps) {
    EXPECT_EQ(FieldDistance("A0", "C0", 5), 10);
    EXPECT_EQ(FieldDistance("A0", "B1", 2), 2);
    EXPECT_EQ(FieldDistance("C4", "D5", 5), 7);
    EXPECT_EQ(FieldDistance("A0", "D4", 4), 20);
    EXPECT_EQ(FieldDistance("A0", "A40", 5), 0);
    EXPECT_EQ(FieldDistance("A 5", "A0", 5), 0);
    EXPECT_EQ(FieldDistance("", "C0", 5), 0);
}

TEST(FieldAddressing, PlayerLookupTakesTheFirstExactName) {
    WorldState w = MakeWorld(3, 2, "NNNNNN");
    testing::AddPlayer(w, "Karel", "les", "A0");
    testing::AddPlayer(w, "Karel", "louka", "B0");
    EXPECT_EQ(PlayerIndex(w, "Karel"), 1);
    EXPECT_EQ(PlayerIndex(w, "karel"), 0);
    EXPECT_EQ(PlayerIndex(w, ""), 0);
}

}  // namespace
}  // namespace trelvin
