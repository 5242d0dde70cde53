#include "model/text_encoding.h"

#include <iconv.h>

#include <array>
#include <cstdint>
#include <unordered_map>

namespace trelvin {

namespace {

using CodeTable = std::array<char32_t, 256>;

// Decodes one byte with the system's converter; undefined bytes keep their own code.
char32_t decodeByte(iconv_t converter, unsigned char byte) {
    char in[1] = {static_cast<char>(byte)};
    unsigned char out[4] = {};
    char* inPtr = in;
    char* outPtr = reinterpret_cast<char*>(out);
    std::size_t inLeft = 1;
    std::size_t outLeft = sizeof out;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter, &inPtr, &inLeft, &outPtr, &outLeft) == static_cast<std::size_t>(-1) ||
        outLeft != 0)
        return byte;
    return static_cast<char32_t>(out[0]) << 24 | static_cast<char32_t>(out[1]) << 16 |
           static_cast<char32_t>(out[2]) << 8 | out[3];
}

const CodeTable& cp1250Table() {
    static const CodeTable table = [] {
        CodeTable codes{};
        for (int b = 0; b < 256; ++b) codes[b] = static_cast<char32_t>(b);
        iconv_t converter = iconv_open("UTF-32BE", "CP1250");
        if (converter != reinterpret_cast<iconv_t>(-1)) {
            for (int b = 0x80; b < 256; ++b)
                codes[b] = decodeByte(converter, static_cast<unsigned char>(b));
            iconv_close(converter);
        }
        return codes;
    }();
    return table;
}

const std::unordered_map<char32_t, char>& reverseTable() {
    static const std::unordered_map<char32_t, char> table = [] {
        std::unordered_map<char32_t, char> bytes;
        const CodeTable& codes = cp1250Table();
        for (int b = 0; b < 256; ++b) bytes.emplace(codes[b], static_cast<char>(b));
        return bytes;
    }();
    return table;
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

// Decodes the UTF-8 sequence at `pos`; returns its length, 0 when it is not valid UTF-8.
std::size_t decodeUtf8(std::string_view text, std::size_t pos, char32_t& code) {
    const auto lead = static_cast<unsigned char>(text[pos]);
    std::size_t length;
    char32_t minimum;
    if (lead < 0x80) {
        code = lead;
        return 1;
    } else if ((lead & 0xE0) == 0xC0) {
        length = 2, code = lead & 0x1F, minimum = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3, code = lead & 0x0F, minimum = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4, code = lead & 0x07, minimum = 0x10000;
    } else {
        return 0;
    }
    if (pos + length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[pos + i]);
        if ((next & 0xC0) != 0x80) return 0;
        code = code << 6 | (next & 0x3F);
    }
    if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return 0;
    return length;
}

}  // namespace

std::string cp1250ToUtf8(std::string_view cp1250) {
    const CodeTable& codes = cp1250Table();
    std::string out;
    out.reserve(cp1250.size());
    for (char c : cp1250) appendUtf8(out, codes[static_cast<unsigned char>(c)]);
    return out;
}

std::string utf8ToCp1250(std::string_view utf8) {
    const auto& bytes = reverseTable();
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
        const auto found = bytes.find(code);
        out.push_back(found != bytes.end() ? found->second : '?');
        pos += length;
    }
    return out;
}

bool looksLikeUtf8Text(std::string_view bytes) {
    bool nonAscii = false;
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        char32_t code = 0;
        const std::size_t length = decodeUtf8(bytes, pos, code);
        if (length == 0) return false;
        nonAscii = nonAscii || length > 1;
        pos += length;
    }
    return nonAscii;
}

}  // namespace trelvin
