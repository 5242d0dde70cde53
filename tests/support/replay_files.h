#pragma once
// Replay files for tests: the text (Windows-1250 bytes) written to a temporary file and loaded
// through the same path the window uses.
#include <string>
#include <vector>

#include "model/world_state.h"

namespace trelvin::testing {

// Writes `bytes` to a fresh file in the temporary directory and returns its path.
// The files are removed when the test program ends.
std::string WriteReplayFile(const std::string& bytes);

// Loads `bytes` from such a file into `world`; returns the message texts the loader showed.
std::vector<std::string> LoadReplayText(WorldState& world, const std::string& bytes);

}  // namespace trelvin::testing
