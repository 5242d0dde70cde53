// Arbitrary bytes as a replay file.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "model/replay_loader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    trelvin::WorldState world;
    trelvin::LoadReplayFromBytes(world, {reinterpret_cast<const char*>(data), size});
    return 0;
}
