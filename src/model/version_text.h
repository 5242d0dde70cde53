#pragma once
// What every program prints for --version: its name and version, then the licence in short.
#include <string>
#include <string_view>

namespace trelvin {

inline std::string VersionText(std::string_view program, std::string_view version) {
    return std::string(program) + " " + std::string(version) +
           "\n"
           "Copyright (C) 2026 Trelvin Replay developers\n"
           "License GPLv3+: GNU GPL version 3 or later <https://www.gnu.org/licenses/gpl-3.0.html>.\n"
           "This is free software: you are free to change and redistribute it.\n"
           "There is NO WARRANTY, to the extent permitted by law.\n";
}

}  // namespace trelvin
