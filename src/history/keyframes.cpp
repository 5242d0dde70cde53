#include "history/keyframes.h"

#include <algorithm>

namespace trelvin {

// Why a keyframe can stand for a rebuild from the first event. Applying events 1 .. n to a
// world depends on the world it starts from only through what event 1 leaves alone. When event
// 1 creates the world from a terrain string exactly as long as the field table and reports
// nothing, it resets every field from 1 up, empties the players, and sets the time and the text;
// what is left is:
// - entry 0 of the fields, which rules reach through a blank field name. `nearest` compares the
//   world's entry 0 with the one the pass began with: while they are equal, every event on the
//   way finds what it found in the pass and does and reports the same.
// - the fields' `visible` flags, which no rule reads or writes: a restore keeps them.
// - the winner the end rule stores for the last event of the list, which only applying that
//   last event reads. Whether the rule can store it depends on the list and the map's size
//   alone, so either every end event stores it or none does: after an end event the rebuild
//   leaves there what the pass did, and before any it leaves what the world holds.
Keyframes::Keyframes(const WorldState& world)
    : placeholderField_(world.tiles.front()), tileCount_(world.lastTileIndex()) {}

namespace {

bool sameEventFields(const Tile& a, const Tile& b) {
    return a.terrain == b.terrain && a.owner == b.owner && a.armyType == b.armyType && a.armyCount == b.armyCount;
}

}  // namespace

void Keyframes::record(const WorldState& world, int index, const LoggedEvent& entry) {
    if (index == 1) {
        const ReplayEvent& creation = world.events[1];
        rebuildsFromNothing_ = entry.action == Action::CreateWorld && entry.messages.empty() &&
                               creation.terrains().size() == static_cast<std::size_t>(tileCount_);
    }
    if (!entry.messages.empty()) reporting_.push_back(index);
    if (!rebuildsFromNothing_) return;
    if (entry.action == Action::End) endApplied_ = true;
    if (index % kSpacing != 0) return;
    Keyframe& frame = frames_.emplace_back();
    frame.event = index;
    frame.tiles.reserve(world.tiles.size());
    std::uint32_t terrain = 0, owner = 0, armyType = 0;  // each column's text found last
    for (const Tile& tile : world.tiles)
        frame.tiles.push_back({textIndex(tile.terrain, terrain), textIndex(tile.owner, owner),
                               textIndex(tile.armyType, armyType), tile.armyCount});
    frame.players = world.players;
    frame.currentTime = world.currentTime;
    frame.actionText = world.actionText;
    if (endApplied_) frame.winner = world.storedWinner;
}

const Keyframe* Keyframes::nearest(const WorldState& world, int target) const {
    if (frames_.empty() || world.lastTileIndex() != tileCount_ ||
        !sameEventFields(world.tiles.front(), placeholderField_))
        return nullptr;
    const auto after = std::upper_bound(frames_.begin(), frames_.end(), target,
                                        [](int event, const Keyframe& frame) { return event < frame.event; });
    return after == frames_.begin() ? nullptr : &*(after - 1);
}

// Neighbouring fields mostly share their texts: the one found last in the column is tried first.
std::uint32_t Keyframes::textIndex(const std::string& text, std::uint32_t& last) {
    if (last < texts_.size() && texts_[last] == text) return last;
    const auto [found, added] = textIndexes_.try_emplace(text, static_cast<std::uint32_t>(texts_.size()));
    if (added) texts_.push_back(text);
    last = found->second;
    return last;
}

void Keyframes::restore(const Keyframe& frame, WorldState& world) const {
    for (std::size_t k = 0; k < frame.tiles.size(); ++k) {
        Tile& tile = world.tiles[k];
        const Keyframe::Field& kept = frame.tiles[k];
        tile.terrain = texts_[kept.terrain];
        tile.owner = texts_[kept.owner];
        tile.armyType = texts_[kept.armyType];
        tile.armyCount = kept.armyCount;
    }
    world.players = frame.players;
    world.currentTime = frame.currentTime;
    world.actionText = frame.actionText;
    if (frame.winner) world.storedWinner = frame.winner;
}

}  // namespace trelvin
