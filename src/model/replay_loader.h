#pragma once
#include <string>
#include <string_view>

#include "model/replay_source.h"
#include "model/task_progress.h"
#include "model/world_state.h"

namespace trelvin {

// What a load came to: nothing, or the whole text of its failure and the line it stopped at.
struct LoadOutcome {
    std::string failure;  // "Chyba pri nacitani replaye - " and what went wrong (Windows-1250)
    int line = 0;         // the line the failure names; 0 for none
    bool succeeded() const { return failure.empty(); }
};

// Reads a replay into `world`: header values, a fresh field table and the event list, with
// the events the file implies inserted. A failure (a cancelled load and a file past the limits
// of replay_limits.h among them) stops the load where it was: it keeps what it had filled, and
// leaves eventCount and loaded as they were. Nothing is thrown.
// `progress` hears of the bytes read after every piece and may cancel the load.
LoadOutcome LoadReplay(WorldState& world, ReplaySource& source, TaskProgress* progress = nullptr);

// The same for the file at `path`.
LoadOutcome LoadReplay(WorldState& world, const std::string& path, TaskProgress* progress = nullptr);

// The same for a file's contents already in memory.
LoadOutcome LoadReplayFromBytes(WorldState& world, std::string_view bytes);

}  // namespace trelvin
