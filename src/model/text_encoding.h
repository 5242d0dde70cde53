#pragma once
// Text inside the core is kept as Windows-1250 bytes, where a character's code is its byte.
// These convert at the edges: UTF-8 out to the window and the dump, and UTF-8 files in.
#include <string>
#include <string_view>

namespace trelvin {

// Every byte maps to one character; the five bytes Windows-1250 leaves undefined map to the
// C1 control characters of the same code.
std::string cp1250ToUtf8(std::string_view cp1250);

// A character that Windows-1250 lacks becomes "?". Invalid UTF-8 sequences become "?" as well.
std::string utf8ToCp1250(std::string_view utf8);

// True when the bytes are valid UTF-8 and hold at least one non-ASCII character (a file that
// a modern editor saved), so they must be converted rather than taken as Windows-1250.
bool looksLikeUtf8Text(std::string_view bytes);

}  // namespace trelvin
