#pragma once
// Text inside the core is kept as Windows-1250 bytes, where a character's code is its byte.
// These convert at the edges: UTF-8 out to the window and the dump, and UTF-8 files in.
#include <cstddef>
#include <string>
#include <string_view>

namespace trelvin {

// Every byte maps to one character; the five bytes Windows-1250 leaves undefined map to the
// C1 control characters of the same code.
std::string cp1250ToUtf8(std::string_view cp1250);

// A character that Windows-1250 lacks becomes "?". Invalid UTF-8 sequences become "?" as well.
std::string utf8ToCp1250(std::string_view utf8);

// How many bytes from `pos` on are ASCII.
std::size_t asciiRunFrom(std::string_view text, std::size_t pos = 0);

// Tells whether a text given in pieces is UTF-8: all of its bytes valid UTF-8 and at least one
// character beyond ASCII (what a modern editor saves). Windows-1250 text is often valid UTF-8
// for a few bytes by accident, so only the whole text decides. A character may straddle two
// pieces.
class Utf8Detector {
public:
    // False once the bytes so far cannot be UTF-8: the rest need not be given.
    bool feed(std::string_view piece);
    // After the last piece: whether every byte given was UTF-8, with a character beyond ASCII.
    bool isUtf8Text() const { return valid_ && pending_.empty() && beyondAscii_; }

private:
    bool completePending(std::string_view& piece);

    std::string pending_;  // the start of a character that the next piece completes
    bool valid_ = true;
    bool beyondAscii_ = false;
};

}  // namespace trelvin
