#include "cursor/bare_fields.h"

#include <algorithm>

namespace trelvin {

void BareFields::findAll(const WorldState& world, int fieldCount) {
    last_ = std::min(fieldCount, world.lastTileIndex());
    fields_.clear();
    listed_.assign(world.tiles.size(), 0);
    for (int k = 1; k <= last_; ++k) add(world, k);
}

void BareFields::note(const WorldState& world, const EventOutcome& outcome) {
    for (const int k : outcome.changedFields) add(world, k);
}

void BareFields::add(const WorldState& world, int field) {
    if (field < 1 || field > last_ || listed_[std::size_t(field)] || !world.tiles[std::size_t(field)].terrain.empty())
        return;
    listed_[std::size_t(field)] = 1;
    fields_.push_back(field);
}

bool BareFields::anyOwned(const WorldState& world) {
    std::erase_if(fields_, [&](int k) {
        const bool lettered = !world.tiles[std::size_t(k)].terrain.empty();
        if (lettered) listed_[std::size_t(k)] = 0;
        return lettered;
    });
    return std::any_of(fields_.begin(), fields_.end(),
                       [&](int k) { return !world.tiles[std::size_t(k)].owner.empty(); });
}

}  // namespace trelvin
