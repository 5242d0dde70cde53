#pragma once
#include <string_view>

namespace trelvin {

// The text without the blanks (code 32) around it; no other character counts as one.
constexpr std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

}  // namespace trelvin
