#include "view/field_details.h"

#include <cmath>

#include "engine/game_tables.h"
#include "model/checked_math.h"
#include "model/field_addressing.h"
#include "model/game_words.h"
#include "model/number_reading.h"

namespace trelvin {

namespace {

// Index the check reads for a name, or 0 when the name is no field of the grid.
int checkedFieldIndex(const WorldState& world, std::string_view name) {
    if (name.empty()) return 0;
    const int column = static_cast<unsigned char>(name.front()) - 'A';
    if (column < 0 || column > world.mapWidth - 1) return 0;
    const double row = roundHalfEven(readLooseNumber(name.substr(1)));
    if (!(row >= -32768.0 && row <= 32767.0)) return 0;
    if (row < 0 || row > world.mapHeight - 1) return 0;
    return static_cast<int>(row) * world.mapWidth + column + 1;
}

}  // namespace

bool IsValidFieldName(const WorldState& world, std::string_view name) {
    return checkedFieldIndex(world, name) != 0;
}

std::optional<FieldInspection> InspectField(const WorldState& world, std::string_view name,
                                            ViewMode mode) {
    const int checked = checkedFieldIndex(world, name);
    if (checked == 0) return std::nullopt;
    // The row reading of the lookup differs from the check's ("B" on its way to "B3", "B3.4"):
    // keep the panel as it is unless both agree on the field.
    int index;
    try {
        index = FieldIndex(world, name);
    } catch (const RuleError&) {
        return std::nullopt;
    }
    if (index != checked || index > world.lastTileIndex()) return std::nullopt;

    const Tile& tile = world.tiles[index];
    if (tile.terrain == terrain::kUnconquerable) return FieldInspection{"", "Nedobytne pole", "", ""};
    if (!tile.visible) return FieldInspection{"", "nezname uzemi", "", ""};
    if (tile.owner.empty()) return FieldInspection{"", "volne uzemi", "", ""};

    const std::string& side = world.players[PlayerIndex(world, tile.owner)].side;
    FieldInspection labels{std::string(TerrainName(tile.terrain)), tile.owner, "neznamy", "neznamo"};
    if (!ArmyHiddenFrom(mode, side)) {
        labels.armyType = tile.armyType;
        labels.armyCount = std::to_string(tile.armyCount);
    }
    return labels;
}

}  // namespace trelvin
