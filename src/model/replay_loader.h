#pragma once
#include <string>
#include <string_view>

#include "model/reporter.h"
#include "model/world_state.h"

namespace trelvin {

// Reads the replay at `path` into `world`: header values, a fresh field table and the event
// list, with the events the file implies inserted. A failure is reported as
// "Chyba pri nacitani replaye - " + its description; the load then stops where it was, keeps
// what it had filled, and leaves eventCount and loaded as they were.
void LoadReplay(WorldState& world, const std::string& path, Reporter& reporter);

// The same for a file's contents already in memory.
void LoadReplayFromBytes(WorldState& world, std::string_view bytes, Reporter& reporter);

}  // namespace trelvin
