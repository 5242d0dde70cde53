#pragma once
#include <cstdint>

#include "engine/event_outcome.h"
#include "engine/execution_messages.h"
#include "model/world_state.h"

namespace trelvin {

// Applies event `index` (from 1) to the world and describes it in actionText. Never throws:
// a failure is handled in the error mode in force, its message box text goes into the outcome,
// and the call returns.
EventOutcome ExecuteEvent(WorldState& world, std::int16_t index);

}  // namespace trelvin
