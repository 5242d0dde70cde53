#include "history/replay_history.h"

#include "engine/event_executor.h"

namespace trelvin {

ReplayHistory ReplayHistory::Build(const WorldState& world) {
    ReplayHistory history;
    WorldState scratch = world;
    history.keyframes = Keyframes(scratch);
    history.log.reserve(scratch.lastEventIndex());
    for (int index = 1; index <= scratch.lastEventIndex(); ++index) {
        history.players.record(scratch, index);
        const EventOutcome outcome = ExecuteEvent(scratch, static_cast<std::int16_t>(index));
        history.log.record(scratch, index, outcome);
        history.keyframes.record(scratch, index, history.log.event(index));
        history.series.record(scratch, index, outcome);
    }
    return history;
}

}  // namespace trelvin
