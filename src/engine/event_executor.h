#pragma once
#include <cstdint>

#include "engine/execution_messages.h"
#include "model/reporter.h"
#include "model/world_state.h"

namespace trelvin {

// Applies event `index` (from 1) to the world and describes it in actionText. Never throws:
// failures are reported through `reporter` in the error mode in force, and the call returns.
void ExecuteEvent(WorldState& world, std::int16_t index, Reporter& reporter);

}  // namespace trelvin
