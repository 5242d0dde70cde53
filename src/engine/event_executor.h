#pragma once
#include <cstdint>

#include "model/reporter.h"
#include "model/world_state.h"

namespace trelvin {

// Message-box texts of the executor.
inline constexpr const char* kExecuteErrorPrefix = "Chyba pri provadeni tahu - ";
inline constexpr const char* kForgeryMessage =
    "Chyba - zaznam je padelek - hrac nema dostatecny pocet tahu na provedeni tahu";

// Applies event `index` (from 1) to the world and describes it in actionText. Never throws:
// failures are reported through `reporter` in the error mode in force, and the call returns.
void ExecuteEvent(WorldState& world, std::int16_t index, Reporter& reporter);

}  // namespace trelvin
