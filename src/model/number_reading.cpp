#include "model/number_reading.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale.h>
#include <string>

#include "model/blanks.h"
#include "model/checked_math.h"
#include "model/decimal_reading.h"

namespace trelvin {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t skipDigits(std::string_view text, std::size_t pos) {
    while (pos < text.size() && isDigit(text[pos])) ++pos;
    return pos;
}

[[noreturn]] void throwTypeMismatch(std::string_view text) {
    throw RuleError(RuleError::Kind::TypeMismatch,
                    "Nespravny typ: '" + std::string(text) + "' neni cislo");
}

// Nearly every number of a replay is a few plain digits, perhaps after a minus: such a text
// reads the same under every rule below, and fits 16 bits, so it skips them.
std::optional<std::int16_t> readPlainSmallNumber(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    const std::string_view digits = text.substr(negative ? 1 : 0);
    if (digits.empty() || digits.size() > 4) return std::nullopt;
    int value = 0;
    for (const char c : digits) {
        if (!isDigit(c)) return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return static_cast<std::int16_t>(negative ? -value : value);
}

}  // namespace

#ifdef TRELVIN_HAS_DOUBLE_FROM_CHARS
namespace {

// A number out of double's range lies past the largest or below the smallest: the power of ten of
// its first significant digit tells which, however long its digits or exponent.
bool isPastLargestDouble(std::string_view digits) {
    const std::size_t exponentAt = digits.find_first_of("eE");
    long long exponent = 0;
    if (exponentAt != std::string_view::npos) {
        std::size_t pos = exponentAt + 1;
        const bool negative = pos < digits.size() && digits[pos] == '-';
        if (negative || (pos < digits.size() && digits[pos] == '+')) ++pos;
        // Past this any mantissa's own length is outweighed: only the sign still matters.
        constexpr long long kSaturated = 1'000'000'000'000;
        for (; pos < digits.size() && exponent < kSaturated; ++pos) exponent = exponent * 10 + (digits[pos] - '0');
        if (negative) exponent = -exponent;
    }
    const std::string_view mantissa = digits.substr(0, exponentAt);
    const std::size_t wholeDigits = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) return false;
    // The value is 0.d... times ten to this power.
    const long long power = first < wholeDigits ? static_cast<long long>(wholeDigits - first)
                                                : -static_cast<long long>(first - wholeDigits - 1);
    return power + exponent > 0;
}

}  // namespace

double decimalByFromChars(std::string_view digits) {
    double value = 0.0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    // Out of range leaves the value alone; strtod's answer is infinity or zero.
    if (result.ec == std::errc::result_out_of_range)
        return isPastLargestDouble(digits) ? std::numeric_limits<double>::infinity() : 0.0;
    return value;
}
#endif

double decimalInCLocale(std::string_view digits) {
    static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", locale_t{});
    const std::string terminated(digits);
    return strtod_l(terminated.c_str(), nullptr, cLocale);
}

std::optional<NumberPrefix> readNumberPrefix(std::string_view text) {
    std::size_t pos = 0;
    bool negative = false;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
        negative = text[pos] == '-';
        ++pos;
    }
    const std::size_t mantissaStart = pos;
    const std::size_t intEnd = skipDigits(text, pos);
    const bool hasIntDigits = intEnd > mantissaStart;
    pos = intEnd;
    bool hasFractionDigits = false;
    if (pos < text.size() && text[pos] == '.') {
        const std::size_t fractionEnd = skipDigits(text, pos + 1);
        hasFractionDigits = fractionEnd > pos + 1;
        if (hasIntDigits || hasFractionDigits) pos = fractionEnd;
    }
    if (!hasIntDigits && !hasFractionDigits) return std::nullopt;
    if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E')) {
        std::size_t expPos = pos + 1;
        if (expPos < text.size() && (text[expPos] == '+' || text[expPos] == '-')) ++expPos;
        const std::size_t expEnd = skipDigits(text, expPos);
        if (expEnd > expPos) pos = expEnd;
    }

    // Plain whole numbers, nearly every number of a replay, need no floating-point parse.
    if (pos == intEnd && intEnd - mantissaStart <= 15) {
        double whole = 0.0;
        for (std::size_t i = mantissaStart; i < intEnd; ++i) whole = whole * 10.0 + (text[i] - '0');
        return NumberPrefix{pos, negative ? -whole : whole};
    }

    // Neither way of reading takes a sign of its own: the digits start after it.
    const std::string_view digits = text.substr(mantissaStart, pos - mantissaStart);
#ifdef TRELVIN_HAS_DOUBLE_FROM_CHARS
    const double value = decimalByFromChars(digits);
#else
    const double value = decimalInCLocale(digits);
#endif
    return NumberPrefix{pos, negative ? -value : value};
}

std::optional<double> readStrictDouble(std::string_view text) {
    const std::string_view trimmed = TrimBlanks(text);
    const auto prefix = readNumberPrefix(trimmed);
    if (!prefix || prefix->length != trimmed.size()) return std::nullopt;
    return prefix->value;
}

std::uint8_t readWholeByte(std::string_view text) {
    const auto value = readStrictDouble(text);
    if (!value) throwTypeMismatch(text);
    const double rounded = roundHalfEven(*value);
    if (!(rounded >= 0.0 && rounded <= 255.0)) throwOverflow();
    return static_cast<std::uint8_t>(rounded);
}

std::int16_t readStrictNumber(std::string_view text) {
    if (const auto plain = readPlainSmallNumber(text)) return *plain;
    const auto value = readStrictDouble(text);
    if (!value) throwTypeMismatch(text);
    return roundTo16(*value);
}

std::int16_t readLeadingNumber(std::string_view text) {
    if (const auto plain = readPlainSmallNumber(text)) return *plain;
    const auto prefix = readNumberPrefix(text);
    return prefix ? roundTo16(prefix->value) : 0;
}

double readLooseNumber(std::string_view text) {
    std::string compact;
    compact.reserve(text.size());
    for (char c : text)
        if (c != ' ' && c != '\t' && c != '\n') compact.push_back(c);
    const auto prefix = readNumberPrefix(compact);
    return prefix ? prefix->value : 0.0;
}

}  // namespace trelvin
