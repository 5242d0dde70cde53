#pragma once
// The ways a replay's text is read as a number. All follow one grammar: an optional sign,
// digits with an optional "." and fraction, or "." and digits, then an optional exponent.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace trelvin {

// Length and value of the longest number at the very start of `text` (no blanks skipped);
// empty when the text does not start with one. The value may be infinite.
struct NumberPrefix {
    std::size_t length;
    double value;
};
std::optional<NumberPrefix> readNumberPrefix(std::string_view text);

// The whole text (blanks around it allowed) as a number, or empty.
std::optional<double> readStrictDouble(std::string_view text);

// Header values: a whole field that is a number, rounded half to even, 0 to 255.
// Throws a type mismatch or an overflow.
std::uint8_t readWholeByte(std::string_view text);

// Counts: a whole field that is a number, rounded half to even, signed 16-bit.
std::int16_t readStrictNumber(std::string_view text);

// The longest number at the start of the field, 0 when there is none; rounded, signed 16-bit.
std::int16_t readLeadingNumber(std::string_view text);

// A number as a free-form text box reads it: blanks, tabs and line feeds anywhere are ignored,
// reading stops at the first character that cannot continue the number, nothing read is 0.
double readLooseNumber(std::string_view text);

}  // namespace trelvin
