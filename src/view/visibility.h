#pragma once
#include <string_view>

#include "model/world_state.h"

namespace trelvin {

// Sets every field's `visible` flag: all fields for the side "", otherwise each field of the
// side and the up to eight fields touching it. Does nothing before a replay was ever loaded.
void UpdateVisibility(WorldState& world, std::string_view viewSide);

}  // namespace trelvin
