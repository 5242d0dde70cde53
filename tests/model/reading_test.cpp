// How a replay's values are read: numbers, Windows-1250 text, field names and player names.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "model/checked_math.h"
#include "model/date_time.h"
#include "model/decimal_reading.h"
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

#ifdef TRELVIN_HAS_DOUBLE_FROM_CHARS
// Where the standard library has no from_chars for double (the browser's build), strtod in the
// "C" locale reads instead; a replay must give the same numbers in both builds.
class DecimalReadings : public ::testing::Test {
protected:
    static std::uint64_t bits(double value) { return std::bit_cast<std::uint64_t>(value); }

    static void expectSameBits(const std::string& digits) {
        EXPECT_EQ(bits(decimalByFromChars(digits)), bits(decimalInCLocale(digits))) << digits;
    }

    static void expectValue(const std::string& digits, double expected) {
        EXPECT_EQ(bits(decimalByFromChars(digits)), bits(expected)) << digits;
        EXPECT_EQ(bits(decimalInCLocale(digits)), bits(expected)) << digits;
    }

    // The exact decimal of a value that long double holds exactly, as digits of the grammar.
    static std::string exactDecimal(long double value) {
        std::string text(1200, '\0');
        text.resize(std::snprintf(text.data(), text.size(), "%.1100Le", value));
        const std::size_t exponentAt = text.find('e');
        const std::size_t lastDigit = text.find_last_not_of('0', exponentAt - 1);
        return text.substr(0, lastDigit + 1) + text.substr(exponentAt);
    }

    // The point halfway between a double and the next one up (past the largest too): ties go to the
    // even neighbour. A step is 2^-52 of the value's power of two, and never below the smallest denormal.
    static long double halfwayAbove(double value) {
        return value + std::ldexp(1.0L, std::max(std::ilogb(value), -1022) - 53);
    }
};

// Known answers hold both ways to the nearest double, so that they cannot agree on a wrong one.
TEST_F(DecimalReadings, EdgesOfTheRangeAndTiesHaveKnownValues) {
    static_assert(std::numeric_limits<long double>::digits >= 64, "halfway points need a wider mantissa");
    const double infinity = std::numeric_limits<double>::infinity();
    const double largest = std::numeric_limits<double>::max();
    const double smallest = std::numeric_limits<double>::denorm_min();
    expectValue("5.", 5.0);
    expectValue(".5", 0.5);
    expectValue("0.000", 0.0);
    expectValue("1e400", infinity);
    expectValue("1E+99999999999999999999999", infinity);
    expectValue("1e-400", 0.0);
    expectValue("1e-99999999999999999999999", 0.0);
    // The power of ten of the first significant digit decides, not the exponent's sign.
    expectValue("." + std::string(400, '0') + "1", 0.0);
    expectValue("." + std::string(400, '0') + "1e+70", 0.0);
    expectValue("1" + std::string(400, '0') + "e-70", infinity);
    expectValue("0.00001" + std::string(400, '0') + "e312", 1e307);
    expectValue("4.9e-324", smallest);
    expectValue("2.2250738585072011e-308", std::nextafter(std::numeric_limits<double>::min(), 0.0));
    expectValue("1.7976931348623157e308", largest);
    expectValue("1.7976931348623159e308", infinity);
    // An exact tie rounds to the even neighbour; a digit more anywhere after it rounds up.
    const std::string oneAndAHalfUlp = exactDecimal(halfwayAbove(1.0));
    expectValue(oneAndAHalfUlp, 1.0);
    expectValue(oneAndAHalfUlp.substr(0, oneAndAHalfUlp.find('e')) + "000000001e0", std::nextafter(1.0, 2.0));
    expectValue("9007199254740993", 9007199254740992.0);
    expectValue("9007199254740995", 9007199254740996.0);
    const std::string halfTheSmallest = exactDecimal(static_cast<long double>(smallest) / 2);
    expectValue(halfTheSmallest, 0.0);
    expectValue(halfTheSmallest.substr(0, halfTheSmallest.find('e')) + "1e-324", smallest);
    const std::string pastLargest = exactDecimal(halfwayAbove(largest));  // the largest is odd: up to infinity
    expectValue(pastLargest, infinity);
    expectValue(pastLargest.substr(0, pastLargest.find('e') - 1) + "0999e308", largest);
    // Through a whole reading: a long fraction too small for a double is zero, not an overflow.
    EXPECT_EQ(outcome([] { return readStrictNumber("0." + std::string(400, '0') + "7"); }), "0");
}

TEST_F(DecimalReadings, EveryKindOfTextGivesTheSameBitsBothWays) {
    std::mt19937_64 random(20240611);
    const auto digitsOf = [&](std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) text += static_cast<char>('0' + random() % 10);
        return text;
    };
    // Texts of the grammar: whole, "5.", ".5", with and without an exponent of either sign and case,
    // from a few digits to hundreds of them.
    for (int i = 0; i < 20000; ++i) {
        const std::size_t longest = i % 10 == 0 ? 800 : 25;
        std::string text = digitsOf(random() % longest);
        if (random() % 2 != 0 || text.empty()) text += "." + digitsOf(random() % longest + (text.empty() ? 1 : 0));
        if (random() % 2 != 0) {
            text += random() % 2 != 0 ? "e" : "E";
            const int sign = static_cast<int>(random() % 3);
            text += sign == 0 ? "" : sign == 1 ? "+" : "-";
            text += std::to_string(random() % 700);
        }
        expectSameBits(text);
    }
    // Every double's shortest text and its neighbours' halfway points (denormals, normals and the
    // largest alike), exact, cut short, and one digit past.
    for (int i = 0; i < 5000; ++i) {
        const double value = std::bit_cast<double>(random() % 0x7FF0000000000000ULL);
        char shortest[40];
        std::snprintf(shortest, sizeof shortest, "%.17g", value);
        expectSameBits(shortest);
        const std::string halfway = exactDecimal(halfwayAbove(value));
        const std::string mantissa = halfway.substr(0, halfway.find('e')), exponent = halfway.substr(halfway.find('e'));
        expectSameBits(halfway);
        expectSameBits(mantissa.substr(0, std::min<std::size_t>(mantissa.size(), 20)) + exponent);
        expectSameBits(mantissa + "00000000000000000000000001" + exponent);
    }
}

TEST_F(DecimalReadings, TheDesktopsDecimalCommaIsNotRead) {
    const std::string previous = std::setlocale(LC_NUMERIC, nullptr);
    if (std::setlocale(LC_NUMERIC, "cs_CZ.UTF-8") == nullptr) GTEST_SKIP() << "no Czech locale here";
    const double read = decimalInCLocale("2.5");
    std::setlocale(LC_NUMERIC, previous.c_str());
    EXPECT_EQ(read, 2.5);
}
#endif

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
