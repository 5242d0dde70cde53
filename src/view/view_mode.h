#pragma once
// The three ways of viewing the map: as the side "louka" sees it, as "les" sees it, or all.
#include <optional>
#include <string_view>

namespace trelvin {

// In the order of the option buttons.
enum class ViewMode { AsLouka = 0, AsLes = 1, All = 2 };

// Side whose sight a way of viewing shows: "louka", "les", or "" for everything.
std::string_view ViewSide(ViewMode mode);

// The way of viewing a name asks for: "all", "les" or "louka", as the tools' --view and a
// link take it; empty for any other name.
std::optional<ViewMode> ViewModeNamed(std::string_view name);

}  // namespace trelvin
