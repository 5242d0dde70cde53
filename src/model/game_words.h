#pragma once
// The words of the game that files, rules and views share: the two sides and the terrain
// letters. Compared exactly, as every key of a replay is.
#include <string_view>

namespace trelvin {

namespace side {
inline constexpr std::string_view kLes = "les";
inline constexpr std::string_view kLouka = "louka";
}  // namespace side

namespace terrain {
inline constexpr std::string_view kGrass = "N";
inline constexpr std::string_view kSwamp = "B";
inline constexpr std::string_view kRock = "S";
inline constexpr std::string_view kUnconquerable = "X";
}  // namespace terrain

}  // namespace trelvin
