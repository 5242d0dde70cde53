// How a replay's values are read: numbers, Windows-1250 text, field names and player names.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "model/checked_math.h"
#include "model/date_time.h"
#include "model/number_reading.h"
#include "model/text_encoding.h"
#include "support/world_builder.h"

namespace trelvin {
namespace {

using testing::AddPlayer;
using testing::MakeWorld;

// The result of a reading as text: its value, or the kind of failure it threw.
template <typename Read>
std::string outcome(Read&& read) {
    try {
        return std::to_string(read());
    } catch (const RuleError& error) {
        if (error.kind() == RuleError::Kind::Overflow) return "overflow";
        return error.kind() == RuleError::Kind::TypeMismatch ? "mismatch" : "other";
    }
}

using Row = std::pair<const char*, const char*>;

template <typename Read>
void expectOutcomes(Read&& read, std::initializer_list<Row> rows) {
    for (const auto& [text, result] : rows) EXPECT_EQ(outcome([&] { return read(text); }), result) << text;
}

TEST(NumberReading, StrictLeadingAndByteReadingsRoundHalfToEvenWithinTheirWidth) {
    struct Case { const char *text, *strict, *leading; };
    const Case cases[] = {
        {"12abc", "mismatch", "12"}, {"2.5", "2", "2"}, {"3.5", "4", "4"}, {"-2.5", "-2", "-2"}, {".5", "0", "0"},
        {".7", "1", "1"}, {"5.", "5", "5"}, {"1.5e1x", "mismatch", "15"}, {"+3", "3", "3"}, {"1e", "mismatch", "1"},
        {"32767.4", "32767", "32767"}, {"32767.5", "overflow", "overflow"}, {"-32768", "-32768", "-32768"},
        {"-32769", "overflow", "overflow"}, {"32768", "overflow", "overflow"}, {"-0042", "-42", "-42"},
        {"", "mismatch", "0"}, {".", "mismatch", "0"}, {"-", "mismatch", "0"}, {"9999", "9999", "9999"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(outcome([&] { return readStrictNumber(c.text); }), c.strict) << c.text;
        EXPECT_EQ(outcome([&] { return readLeadingNumber(c.text); }), c.leading) << c.text;
    }
    // Only the blank counts as a space around a strict number.
    expectOutcomes(readStrictNumber, {{"  7 ", "7"}, {"\t7", "mismatch"}, {"7 7", "mismatch"}});
    expectOutcomes(readWholeByte, {{" 255 ", "255"}, {"2.5", "2"}, {"-0.4", "0"}, {"256", "overflow"},
                                   {"-1", "overflow"}, {"3x", "mismatch"}, {"", "mismatch"}});
}

TEST(TextEncoding, WindowsBytesAndUtf8ConvertBothWays) {
    EXPECT_EQ(cp1250ToUtf8("Beru\x9Aka\x80\x81"), "Beruška€\xC2\x81");  // undefined codes keep their value
    EXPECT_EQ(utf8ToCp1250("Šváb €"), "\x8Av\xE1\x62 \x80");
    EXPECT_EQ(utf8ToCp1250("日本 a\xFF"), "?? a?");
    std::string everyByte;
    for (int code = 1; code < 256; ++code) everyByte += static_cast<char>(code);
    EXPECT_EQ(utf8ToCp1250(cp1250ToUtf8(everyByte)), everyByte);
    const auto utf8 = [](std::initializer_list<std::string_view> pieces) {
        Utf8Detector detector;
        for (std::string_view piece : pieces) detector.feed(piece);
        return detector.isUtf8Text();
    };
    EXPECT_FALSE(utf8({"plain"}));
    EXPECT_FALSE(utf8({"Vosi\xE8ka"}));
    // A character may straddle pieces; one left unfinished at the end is no UTF-8.
    EXPECT_TRUE(utf8({"a\xE1", "\x9A", "\xA0" "b"}));
    EXPECT_FALSE(utf8({"a\xE1", "\x9A" "b"}));
    EXPECT_FALSE(utf8({"a\xC5"}));
    // The smallest character of each length is valid; one less is an overlong form.
    EXPECT_TRUE(utf8({"\xC2\x80 \xE0\xA0\x80 \xF0\x90\x80\x80"}));
    EXPECT_FALSE(utf8({"\xC1\xBF"}));
    EXPECT_FALSE(utf8({"\xE0\x9F\xBF"}));
}

TEST(FieldAddressing, IndexNameDistanceAndPlayerLookups) {
    const WorldState w = MakeWorld(10, 8, "");
    expectOutcomes([&](const char* name) { return FieldIndex(w, name); }, {
        {"A0", "1"}, {"J7", "80"}, {"A1", "11"}, {"", "0"}, {"   ", "0"}, {"a0", "33"}, {"C 3 ", "33"}, {"K0", "11"},
        {"A-1", "-9"}, {"B0.25", "5"}, {"A3276.6", "32767"}, {"B", "mismatch"}, {"B3x", "mismatch"}, {" B0", "mismatch"},
        {"A4000", "overflow"}, {"A3276.7", "overflow"},  // the last step adds 1 and checks again
    });

    EXPECT_EQ(FieldName(w, 10) + FieldName(w, 11) + FieldName(w, 80), "J0A1J7");
    const WorldState wide = MakeWorld(120, 2, "");  // columns past "Z" continue the code page
    EXPECT_EQ(FieldName(wide, 27) + ColumnCharacter(190), "[0\xFF");
    EXPECT_THROW(ColumnCharacter(191), RuleError);  // past the code page
    EXPECT_THROW(FieldName(MakeWorld(0, 3, ""), 1), RuleError);

    struct Distance { const char *a, *b; std::int16_t scale; int distance; };
    const Distance distances[] = {
        {"A0", "C0", 5, 10}, {"A0", "B1", 2, 2}, {"D5", "C4", 5, 7}, {"A0", "D4", 4, 20},
        {"A0", "A40", 5, 0},     // 200 x 200 is past 16 bits: the result stays 0
        {"A 5", "A0", 5, 0},     // a blank ends the row number at once
        {"", "C4", 5, 20},       // no first character: dx stays 0
        {"A0", "C0", 20000, 2},  // the scaling overflows and is skipped
        {"A2x", "A0", 3, 6},
    };
    for (const Distance& d : distances)
        EXPECT_EQ(FieldDistance(d.a, d.b, d.scale), d.distance) << d.a << " " << d.b << " " << d.scale;

    WorldState players = MakeWorld(3, 2, "NNNNNN");
    AddPlayer(players, "Karel", "les", "A0");
    AddPlayer(players, "Karel", "louka", "B0");
    AddPlayer(players, "", "les", "C0");
    EXPECT_EQ(std::tuple(PlayerIndex(players, "Karel"), PlayerIndex(players, "karel"), PlayerIndex(players, "Karel "),
                         PlayerIndex(players, "")), std::tuple(1, 0, 0, 3));  // the first exact name
}

}  // namespace
}  // namespace trelvin

namespace trelvin {
namespace {

// Every day of years around leap-rule and era boundaries, counted by a plain calendar here
// and by whole days in the class: both must agree, and each date must read back as itself.
TEST(DateTimeTest, EveryDayOfCenturyAndLeapBoundariesAndTheRangeLimits) {
    const auto leap = [](int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; };
    const int monthDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (const int first : {100, 399, 1600, 1899, 2003, 2099, 9998}) {
        DateTime t = *DateTime::fromParts(first, 1, 1, 13, 5, 9);
        for (int y = first; y <= first + 1; ++y) {
            for (int m = 1; m <= 12; ++m) {
                const int days = monthDays[m - 1] + (m == 2 && leap(y));
                EXPECT_FALSE(DateTime::fromParts(y, m, days + 1, 0, 0, 0)) << y << "-" << m;
                for (int d = 1; d <= days; ++d) {
                    char expected[32];
                    std::snprintf(expected, sizeof expected, "%04d-%02d-%02dT13:05:09", y, m, d);
                    ASSERT_EQ(t.iso(), expected);
                    ASSERT_EQ(DateTime::fromParts(y, m, d, 13, 5, 9), t);
                    if (y < 9999 || m < 12 || d < days) t = t.plusDays(1);
                }
            }
        }
    }
    const DateTime last = *DateTime::fromParts(9999, 12, 31, 23, 59, 59);
    EXPECT_THROW(last.plusSeconds(1), RuleError);
    EXPECT_THROW(DateTime::fromParts(100, 1, 1, 0, 0, 0)->plusSeconds(-1), RuleError);
    for (const auto& [y, mo, d, h, mi, s] : {std::array{2004, 6, 19, 24, 0, 0}, {2004, 6, 19, 23, 60, 0},
                                             {2004, 6, 19, 23, 0, 60}, {10000, 1, 1, 0, 0, 0},
                                             {99, 12, 31, 0, 0, 0}, {2004, 0, 1, 0, 0, 0}})
        EXPECT_FALSE(DateTime::fromParts(y, mo, d, h, mi, s)) << y << "-" << mo << "-" << d << " " << h << ":" << mi << ":" << s;
    const DateTime t = *DateTime::fromParts(2004, 2, 28, 23, 59, 30);
    EXPECT_EQ(t.fullHour().iso(), "2004-02-28T23:00:00");
    EXPECT_EQ(t.plusHours(25).fullHour().hoursSince(t.fullHour()), 25);
    EXPECT_EQ(DateTime().iso(), "1899-12-30T00:00:00");
}

}  // namespace
}  // namespace trelvin
