#include "history/replay_history.h"

#include "engine/event_executor.h"

namespace trelvin {

ReplayHistory ReplayHistory::Build(const WorldState& world) {
    ReplayHistory history;
    WorldState scratch = world;
    history.keyframes = Keyframes(scratch);
    for (int index = 1; index <= scratch.lastEventIndex(); ++index) {
        history.players.record(scratch, index);
        RecordingReporter reporter;
        ExecuteEvent(scratch, static_cast<std::int16_t>(index), reporter);
        history.log.record(scratch, index, std::move(reporter.texts));
        history.keyframes.record(scratch, index, history.log.event(index));
        history.series.record(scratch, index);
    }
    return history;
}

}  // namespace trelvin
