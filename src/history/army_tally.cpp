#include "history/army_tally.h"

#include <algorithm>

#include "model/checked_math.h"

namespace trelvin {

namespace {

int countedFields(const WorldState& world) { return std::max(0, std::min(world.fieldCount(), world.lastTileIndex())); }

}  // namespace

void ArmyTally::update(const WorldState& world, const EventOutcome& outcome) {
    // A table that shrank can only have been emptied, by the world's creation.
    const bool shrank = world.lastPlayerIndex() + 1 < static_cast<int>(unitsByPlayer_.size());
    if (!counted_ || shrank) {
        countAll(world);
        return;
    }
    indexNewPlayers(world);
    for (const int field : outcome.changedFields) recount(world, field);
}

std::int32_t ArmyTally::unitsOf(int playerIndex) const {
    if (playerIndex < 1 || playerIndex >= static_cast<int>(unitsByPlayer_.size())) return 0;
    return unitsByPlayer_[static_cast<std::size_t>(playerIndex)];
}

std::size_t ArmyTally::bytes() const {
    std::size_t total = fields_.capacity() * sizeof(Counted) + unitsByPlayer_.capacity() * sizeof(std::int32_t);
    // A node of a hash map holds its name and value and a link; the buckets are pointers.
    total += (unitsByOwner_.size() + firstPlayerNamed_.size()) * (sizeof(std::string) + 2 * sizeof(void*) + 8) +
             (unitsByOwner_.bucket_count() + firstPlayerNamed_.bucket_count()) * sizeof(void*);
    return total;
}

void ArmyTally::countAll(const WorldState& world) {
    counted_ = true;
    fields_.assign(static_cast<std::size_t>(countedFields(world)) + 1, Counted{});
    unitsByOwner_.clear();
    firstPlayerNamed_.clear();
    unitsByPlayer_.assign(1, 0);
    indexNewPlayers(world);
    for (int k = 1; k < static_cast<int>(fields_.size()); ++k) recount(world, k);
}

void ArmyTally::recount(const WorldState& world, int field) {
    if (field < 1 || field >= static_cast<int>(fields_.size())) return;
    const Tile& tile = world.tiles[static_cast<std::size_t>(field)];
    Counted& counted = fields_[static_cast<std::size_t>(field)];
    if (tile.owner == counted.owner && tile.armyCount == counted.units) return;
    add(counted.owner, -std::int64_t{counted.units});
    counted = {tile.owner, tile.armyCount};
    add(counted.owner, counted.units);
}

// Only a new headquarters adds players, at the end of the table, and none is ever renamed.
void ArmyTally::indexNewPlayers(const WorldState& world) {
    for (int i = static_cast<int>(unitsByPlayer_.size()); i <= world.lastPlayerIndex(); ++i) {
        const std::string& name = world.players[static_cast<std::size_t>(i)].name;
        const bool first = firstPlayerNamed_.emplace(name, i).second;
        const auto owned = unitsByOwner_.find(name);
        unitsByPlayer_.push_back(first && owned != unitsByOwner_.end() ? checked32(owned->second) : 0);
    }
}

void ArmyTally::add(const std::string& owner, std::int64_t units) {
    if (owner.empty() || units == 0) return;
    // At most 65,025 fields of 32,767 units each: a player's sum stays within 32 bits.
    const std::int64_t total = unitsByOwner_[owner] += units;
    const auto player = firstPlayerNamed_.find(owner);
    if (player != firstPlayerNamed_.end()) unitsByPlayer_[static_cast<std::size_t>(player->second)] = checked32(total);
}

}  // namespace trelvin
