// How values of a replay are read: numbers in their three readings and Windows-1250 text.
// Dates are read through the loader (replay_loader_test.cpp).
#include <gtest/gtest.h>

#include <string>

#include "model/checked_math.h"
#include "model/number_reading.h"
#include "model/text_encoding.h"

namespace trelvin {
namespace {

// The result of a reading as text: its value, or the kind of failure it threw.
template <typename Read>
std::string outcome(Read&& read) {
    try {
        return std::to_string(read());
    } catch (const RuleError& error) {
        switch (error.kind()) {
            case RuleError::Kind::TypeMismatch: return "type mismatch";
            case RuleError::Kind::Overflow: return "overflow";
            default: return "other failure";
        }
    }
}

TEST(NumberReading, StrictAndLeadingReadingsFollowOneGrammar) {
    struct Case {
        const char* text;
        const char* strict;
        const char* leading;
    };
    const Case cases[] = {
        {"12abc", "type mismatch", "12"},
        {"2.5", "2", "2"},
        {"3.5", "4", "4"},
        {"-2.5", "-2", "-2"},
        {"0.4", "0", "0"},
        {"0.6", "1", "1"},
        {"5.", "5", "5"},
        {".5", "0", "0"},
        {"1.5e1x", "type mismatch", "15"},
        {"1e", "type mismatch", "1"},
        {"+3", "3", "3"},
        {"1e9", "overflow", "overflow"},
        {"1e999", "overflow", "overflow"},
        {"32767.4", "32767", "32767"},
        {"32767.5", "overflow", "overflow"},
        {"-32768", "-32768", "-32768"},
        {"-32769", "overflow", "overflow"},
        {"", "type mismatch", "0"},
        {".", "type mismatch", "0"},
        {"-", "type mismatch", "0"},
        {"abc", "type mismatch", "0"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(outcome([&] { return readStrictNumber(c.text); }), c.strict) << c.text;
        EXPECT_EQ(outcome([&] { return readLeadingNumber(c.text); }), c.leading) << c.text;
    }
    // Only the blank counts as a space around a strict number.
    EXPECT_EQ(readStrictNumber("  7 "), 7);
    EXPECT_EQ(outcome([] { return readStrictNumber("\t7"); }), "type mismatch");
    EXPECT_EQ(outcome([] { return readStrictNumber("7 7"); }), "type mismatch");
}

TEST(NumberReading, HeaderValuesAreWholeBytes) {
    EXPECT_EQ(outcome([] { return readWholeByte(" 255 "); }), "255");
    EXPECT_EQ(outcome([] { return readWholeByte("2.5"); }), "2");
    EXPECT_EQ(outcome([] { return readWholeByte("-0.4"); }), "0");
    EXPECT_EQ(outcome([] { return readWholeByte("256"); }), "overflow");
    EXPECT_EQ(outcome([] { return readWholeByte("-1"); }), "overflow");
    EXPECT_EQ(outcome([] { return readWholeByte("3x"); }), "type mismatch");
    EXPECT_EQ(outcome([] { return readWholeByte(""); }), "type mismatch");
    // A text box ignores blanks inside a number and stops at what cannot continue it.
    EXPECT_DOUBLE_EQ(readLooseNumber(" 1 2x"), 12.0);
    EXPECT_DOUBLE_EQ(readLooseNumber("x"), 0.0);
}

TEST(TextEncoding, WindowsBytesAndUtf8ConvertBothWays) {
    EXPECT_EQ(cp1250ToUtf8("\x9A"), "š");
    EXPECT_EQ(cp1250ToUtf8("Beru\x9Aka"), "Beruška");
    EXPECT_EQ(cp1250ToUtf8("\x81\x83\x88\x90\x98"), "\xC2\x81\xC2\x83\xC2\x88\xC2\x90\xC2\x98");
    EXPECT_EQ(cp1250ToUtf8("\x80"), "€");
    EXPECT_EQ(utf8ToCp1250("€"), "\x80");
    EXPECT_EQ(utf8ToCp1250("Šváb Vosička"), "\x8Av\xE1\x62 Vosi\xE8ka");
    EXPECT_EQ(utf8ToCp1250("日本"), "??");
    EXPECT_EQ(utf8ToCp1250("a\xFF" "b"), "a?b");

    std::string everyByte;
    for (int code = 1; code < 256; ++code) everyByte += static_cast<char>(code);
    EXPECT_EQ(utf8ToCp1250(cp1250ToUtf8(everyByte)), everyByte);

    EXPECT_TRUE(looksLikeUtf8Text("Vosička"));
    EXPECT_FALSE(looksLikeUtf8Text("plain"));
    EXPECT_FALSE(looksLikeUtf8Text("Vosi\xE8ka"));
}

}  // namespace
}  // namespace trelvin
