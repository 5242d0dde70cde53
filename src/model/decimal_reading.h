#pragma once
// The two ways the digits of a number (the grammar of number_reading.h without its sign) become
// the nearest double: std::from_chars, and strtod in the "C" locale where a standard library
// has no from_chars for double (emscripten's libc++). Both give the same bits for every text;
// only number_reading.cpp and its test call them.
#include <string_view>
#include <version>

// The feature macro stands for both directions: a library that defines it reads doubles too.
#if defined(__cpp_lib_to_chars)
#define TRELVIN_HAS_DOUBLE_FROM_CHARS 1
#endif

namespace trelvin {

#ifdef TRELVIN_HAS_DOUBLE_FROM_CHARS
double decimalByFromChars(std::string_view digits);
#endif

// The user's locale, whatever setlocale made it, never changes the decimal point here.
double decimalInCLocale(std::string_view digits);

}  // namespace trelvin
