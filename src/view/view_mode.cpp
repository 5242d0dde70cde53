#include "view/view_mode.h"

#include "model/game_words.h"

namespace trelvin {

std::string_view ViewSide(ViewMode mode) {
    switch (mode) {
        case ViewMode::AsLouka: return side::kLouka;
        case ViewMode::AsLes: return side::kLes;
        case ViewMode::All: return "";
    }
    return "";
}

std::optional<ViewMode> ViewModeNamed(std::string_view name) {
    if (name == "all") return ViewMode::All;
    if (name == side::kLes) return ViewMode::AsLes;
    if (name == side::kLouka) return ViewMode::AsLouka;
    return std::nullopt;
}

}  // namespace trelvin
