#include "model/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

namespace trelvin {

namespace {

// Characters of the bytes 0x80 to 0xFF; the five bytes Windows-1250 leaves undefined keep
// their own code (the C1 controls).
constexpr std::array<char32_t, 128> kUpperHalf{
    0x20AC, 0x0081, 0x201A, 0x0083, 0x201E, 0x2026, 0x2020, 0x2021,  // 0x80
    0x0088, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179,  // 0x88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 0x90
    0x0098, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A,  // 0x98
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7,  // 0xA0
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,  // 0xA8
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7,  // 0xB0
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C,  // 0xB8
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,  // 0xC0
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,  // 0xC8
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7,  // 0xD0
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,  // 0xD8
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,  // 0xE0
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F,  // 0xE8
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,  // 0xF0
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,  // 0xF8
};

char32_t decodeByte(unsigned char byte) { return byte < 0x80 ? byte : kUpperHalf[byte - 0x80]; }

// The byte of a character, or nothing when Windows-1250 lacks it.
std::optional<char> encodeCharacter(char32_t code) {
    if (code < 0x80) return static_cast<char>(code);
    for (std::size_t i = 0; i < kUpperHalf.size(); ++i)
        if (kUpperHalf[i] == code) return static_cast<char>(0x80 + i);
    return std::nullopt;
}

void appendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (code >> 6)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else if (code < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (code >> 12)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (code >> 18)));
        out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
}

// Length of the UTF-8 sequence a lead byte starts; 0 for a byte no sequence starts with.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if ((lead & 0xE0) == 0xC0) return 2;
    if ((lead & 0xF0) == 0xE0) return 3;
    if ((lead & 0xF8) == 0xF0) return 4;
    return 0;
}

// Decodes the UTF-8 sequence at `pos`; returns its length, 0 when it is not valid UTF-8.
std::size_t decodeUtf8(std::string_view text, std::size_t pos, char32_t& code) {
    static constexpr unsigned char kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    static constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text[pos]);
    const std::size_t length = sequenceLength(lead);
    if (length == 0 || pos + length > text.size()) return 0;
    code = lead & kLeadBits[length];
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[pos + i]);
        if ((next & 0xC0) != 0x80) return 0;
        code = code << 6 | (next & 0x3F);
    }
    if (code < kSmallest[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return 0;
    return length;
}

}  // namespace

std::size_t asciiRunFrom(std::string_view text, std::size_t pos) {
    // Eight bytes at a time: most of a replay is ASCII.
    std::size_t end = pos;
    for (std::uint64_t word; end + 8 <= text.size(); end += 8) {
        std::memcpy(&word, text.data() + end, 8);
        if ((word & 0x8080808080808080u) != 0) break;
    }
    while (end < text.size() && static_cast<unsigned char>(text[end]) < 0x80) ++end;
    return end - pos;
}

std::string cp1250ToUtf8(std::string_view cp1250) {
    std::string out;
    out.reserve(cp1250.size());
    for (char c : cp1250) appendUtf8(out, decodeByte(static_cast<unsigned char>(c)));
    return out;
}

std::string utf8ToCp1250(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    std::size_t pos = 0;
    while (pos < utf8.size()) {
        char32_t code = 0;
        const std::size_t length = decodeUtf8(utf8, pos, code);
        if (length == 0) {
            out.push_back('?');
            ++pos;
            continue;
        }
        out.push_back(encodeCharacter(code).value_or('?'));
        pos += length;
    }
    return out;
}

bool Utf8Detector::completePending(std::string_view& piece) {
    const std::size_t length = sequenceLength(static_cast<unsigned char>(pending_.front()));
    const std::size_t taken = std::min(length - pending_.size(), piece.size());
    pending_.append(piece.substr(0, taken));
    piece.remove_prefix(taken);
    if (pending_.size() < length) return true;
    char32_t code = 0;
    valid_ = decodeUtf8(pending_, 0, code) == length;
    pending_.clear();
    return valid_;
}

bool Utf8Detector::feed(std::string_view piece) {
    if (!valid_) return false;
    if (!pending_.empty() && !completePending(piece)) return false;
    std::size_t pos = 0;
    while ((pos += asciiRunFrom(piece, pos)) < piece.size()) {
        const auto lead = static_cast<unsigned char>(piece[pos]);
        beyondAscii_ = true;
        const std::size_t length = sequenceLength(lead);
        if (length != 0 && pos + length > piece.size()) {
            pending_.assign(piece.substr(pos));
            return true;
        }
        char32_t code = 0;
        if (length == 0 || decodeUtf8(piece, pos, code) != length) {
            valid_ = false;
            return false;
        }
        pos += length;
    }
    return true;
}

}  // namespace trelvin
