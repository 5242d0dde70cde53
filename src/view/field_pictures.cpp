#include "view/field_pictures.h"

#include <algorithm>

#include "model/checked_math.h"
#include "model/field_addressing.h"

namespace trelvin {

namespace {

// First picture of a side's terrain row: 3 grass, 5 swamp, 7 rock; 0 for other letters.
int terrainPicture(const std::string& terrain) {
    if (terrain == "N") return 3;
    if (terrain == "B") return 5;
    if (terrain == "S") return 7;
    return 0;
}

bool isHeadquartersOf(const WorldState& world, const Player& player, int k) {
    try {
        return FieldIndex(world, player.hqField) == k;
    } catch (const RuleError&) {
        return false;  // a malformed headquarters name marks no field
    }
}

}  // namespace

std::string_view ViewSide(ViewMode mode) {
    switch (mode) {
        case ViewMode::AsLouka: return "louka";
        case ViewMode::AsLes: return "les";
        case ViewMode::All: return "";
    }
    return "";
}

bool ArmyHiddenFrom(ViewMode mode, std::string_view ownerSide) {
    return (mode == ViewMode::AsLes && ownerSide == "louka") ||
           (mode == ViewMode::AsLouka && ownerSide == "les");
}

int ChoosePicture(WorldState& world, int k, ViewMode mode) {
    if (k < 1 || k > world.lastTileIndex()) return picture::kHidden;
    Tile& tile = world.tiles[k];
    if (!tile.visible) return picture::kHidden;
    if (tile.terrain == "X") return picture::kUnconquerable;
    if (tile.owner.empty()) return picture::kFreeLand;

    const Player& owner = world.players[PlayerIndex(world, tile.owner)];
    if (tile.terrain.empty()) tile.terrain.assign(1, 'N');
    int result = terrainPicture(tile.terrain);
    if (result == 0) return picture::kFreeLand;
    if (owner.side == "louka") result += 6;

    // Only the two sides' players get the army and headquarters pictures.
    const bool marksShown =
        (owner.side == "les" || owner.side == "louka") && !ArmyHiddenFrom(mode, owner.side);
    if (marksShown) {
        if (tile.armyCount > 0) result += 1;
        if (isHeadquartersOf(world, owner, k)) result = picture::kHeadquarters;
    }
    return result;
}

std::vector<int> RedrawPictures(WorldState& world, ViewMode mode, int fieldCount) {
    UpdateVisibility(world, ViewSide(mode));
    std::vector<int> pictures;
    pictures.reserve(static_cast<std::size_t>(std::max(fieldCount, 0)));
    for (int k = 1; k <= fieldCount; ++k) pictures.push_back(ChoosePicture(world, k, mode));
    return pictures;
}

}  // namespace trelvin
