#pragma once
// What the program is and on what terms: its licence, the libraries it uses under theirs, and
// the files it reads and writes. Every program prints it for --version after its name and
// version, and the window's "O programu" shows the same lines.
#include <string>
#include <string_view>
#include <vector>

namespace trelvin {

// What the program does, in one line, as "O programu" opens.
inline constexpr const char* kProgramPurpose =
    "Prohlizec zaznamu her (replayu) hry Trelvin: otevre jeden zaznam a ukaze svet akci po akci.";

inline const std::vector<std::string>& LicenceLines() {
    static const std::vector<std::string> lines{
        "Copyright (C) 2026 vyvojari Trelvin Replay",
        "Licence GPL-3.0-or-later: GNU GPL verze 3 nebo (podle vaseho vyberu) kterakoli pozdejsi verze "
        "<https://www.gnu.org/licenses/gpl-3.0.html>.",
        "Je to svobodny software: smite jej menit a sirit dal. Neni na nej ZADNA ZARUKA v rozsahu, ktery "
        "pripousti zakon.",
        "Pouziva Qt (LGPL-3), Qt Charts (GPL-3), giflib (MIT) a libwebp (BSD).",
        "Cte replaye hry Trelvin (*.trp) v kodovani Windows-1250 nebo UTF-8. Zapisuje jen na vyzadani: obrazky "
        "PNG, animace GIF a WebP, hodnoty hracu jako CSV a webove stranky HTML s replayem. Zadna nastaveni "
        "neuklada.",
    };
    return lines;
}

inline std::string VersionText(std::string_view program, std::string_view version) {
    std::string text = std::string(program) + " " + std::string(version) + "\n";
    for (const std::string& line : LicenceLines()) text += line + "\n";
    return text;
}

}  // namespace trelvin
