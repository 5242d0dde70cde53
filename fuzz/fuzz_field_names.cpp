// Field names against maps of every size: the lookups either answer or fail in the program's
// own way, never with undefined behaviour.
#include <cstddef>
#include <cstdint>
#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "model/checked_math.h"
#include "model/field_addressing.h"
#include "view/field_details.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace trelvin;
    if (size < 4) return 0;
    WorldState world;
    world.loaded = true;
    world.mapWidth = data[0];
    world.mapHeight = data[1];
    // A full table only for small maps keeps runs fast; on large ones the panel's lookups meet a
    // table shorter than the map, as after a failed load.
    world.tiles.resize(static_cast<std::size_t>(std::min(world.fieldCount(), 4096)) + 1);
    const auto scale = static_cast<std::int16_t>(data[2] | data[3] << 8);
    const std::string_view text(reinterpret_cast<const char*>(data) + 4, size - 4);
    const std::size_t cut = text.find('|');
    const std::string_view a = text.substr(0, cut);
    const std::string_view b = cut == std::string_view::npos ? std::string_view{} : text.substr(cut + 1);

    try {
        FieldIndex(world, a);
    } catch (const RuleError&) {
    }
    if (FieldDistance(a, b, scale) < 0) std::abort();
    InspectField(world, a, ViewMode::All);
    InspectField(world, b, ViewMode::AsLes);
    return 0;
}
