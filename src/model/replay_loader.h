#pragma once
#include <string>
#include <string_view>

#include "model/replay_source.h"
#include "model/reporter.h"
#include "model/task_progress.h"
#include "model/world_state.h"

namespace trelvin {

// Reads a replay into `world`: header values, a fresh field table and the event list, with
// the events the file implies inserted. A failure (a cancelled load and a file past the limits
// of replay_limits.h among them) is reported as "Chyba pri nacitani replaye - " + its
// description; the load then stops where it was, keeps what it had filled, and leaves
// eventCount and loaded as they were. Nothing is thrown.
// `progress` hears of the bytes read after every piece and may cancel the load.
void LoadReplay(WorldState& world, ReplaySource& source, Reporter& reporter,
                TaskProgress* progress = nullptr);

// The same for the file at `path`.
void LoadReplay(WorldState& world, const std::string& path, Reporter& reporter,
                TaskProgress* progress = nullptr);

// The same for a file's contents already in memory.
void LoadReplayFromBytes(WorldState& world, std::string_view bytes, Reporter& reporter);

}  // namespace trelvin
