#pragma once
// Checked value widths of the game: counts are signed 16-bit, nectar signed 32-bit,
// header values and territory unsigned 8-bit. A result outside its width is a failure,
// never a wrap-around; numbers from text and floats round half to even.
#include <cstdint>

#include "model/rule_error.h"

namespace trelvin {

[[noreturn]] void throwOverflow();

// Computations are done in int64 and then narrowed through these, so no C++ overflow occurs.
std::int16_t checked16(std::int64_t value);
std::int32_t checked32(std::int64_t value);
std::uint8_t checkedU8(std::int64_t value);

// Round to the nearest whole number, ties to the even one. Non-finite values pass through.
double roundHalfEven(double value);

// Round half to even, then narrow; infinities and NaN are overflows.
std::int16_t roundTo16(double value);

}  // namespace trelvin
