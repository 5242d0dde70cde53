#include "view/field_pictures.h"

#include <algorithm>

#include "model/checked_math.h"
#include "model/field_addressing.h"
#include "model/game_words.h"

namespace trelvin {

namespace {

// First picture of a side's terrain row: 3 grass, 5 swamp, 7 rock; 0 for other letters.
int terrainPicture(const std::string& letter) {
    if (letter == terrain::kGrass) return 3;
    if (letter == terrain::kSwamp) return 5;
    if (letter == terrain::kRock) return 7;
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

bool ArmyHiddenFrom(ViewMode mode, std::string_view ownerSide) {
    return (mode == ViewMode::AsLes && ownerSide == side::kLouka) ||
           (mode == ViewMode::AsLouka && ownerSide == side::kLes);
}

void RevealForView(WorldState& world, ViewMode mode, int fieldCount) {
    UpdateVisibility(world, ViewSide(mode));
    for (int k = 1; k <= std::min(fieldCount, world.lastTileIndex()); ++k) {
        Tile& tile = world.tiles[k];
        if (tile.visible && !tile.owner.empty() && tile.terrain.empty()) tile.terrain = std::string(terrain::kGrass);
    }
}

int ChoosePicture(const WorldState& world, int k, ViewMode mode) {
    if (k < 1 || k > world.lastTileIndex()) return picture::kHidden;
    const Tile& tile = world.tiles[k];
    if (!tile.visible) return picture::kHidden;
    if (tile.terrain == terrain::kUnconquerable) return picture::kUnconquerable;
    if (tile.owner.empty()) return picture::kFreeLand;

    const Player& owner = world.players[PlayerIndex(world, tile.owner)];
    int result = terrainPicture(tile.terrain);
    if (result == 0) return picture::kFreeLand;
    if (owner.side == side::kLouka) result += 6;

    // Only the two sides' players get the army and headquarters pictures.
    const bool marksShown =
        (owner.side == side::kLes || owner.side == side::kLouka) && !ArmyHiddenFrom(mode, owner.side);
    if (marksShown) {
        if (tile.armyCount > 0) result += 1;
        if (isHeadquartersOf(world, owner, k)) result = picture::kHeadquarters;
    }
    return result;
}

std::vector<int> ChoosePictures(const WorldState& world, ViewMode mode, int fieldCount) {
    std::vector<int> pictures;
    pictures.reserve(static_cast<std::size_t>(std::max(fieldCount, 0)));
    for (int k = 1; k <= fieldCount; ++k) pictures.push_back(ChoosePicture(world, k, mode));
    return pictures;
}

}  // namespace trelvin
