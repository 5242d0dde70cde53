// Arbitrary bytes loaded as a replay, then every event applied and the map redrawn, as
// stepping to the end in the viewer does.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "engine/event_executor.h"
#include "model/replay_loader.h"
#include "view/field_pictures.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace trelvin;
    WorldState world;
    RecordingReporter reporter;
    LoadReplayFromBytes(world, {reinterpret_cast<const char*>(data), size}, reporter);
    for (int i = 1; i <= world.eventCount; ++i) {
        ExecuteEvent(world, static_cast<std::int16_t>(i), reporter);
        reporter.texts.clear();
    }
    for (ViewMode mode : {ViewMode::All, ViewMode::AsLes, ViewMode::AsLouka})
        for (int p : RedrawPictures(world, mode, world.fieldCount()))
            if (p < 1 || p > picture::kCount) std::abort();
    return 0;
}
