#include "history/player_series.h"

#include <algorithm>


namespace trelvin {

std::int32_t Standing::value(Quantity quantity) const {
    switch (quantity) {
        case Quantity::Territory: return territory;
        case Quantity::Nectar: return nectar;
        case Quantity::NectarPerHour: return nectarPerHour;
        case Quantity::Moves: return moves;
        case Quantity::ArmyUnits: return armyUnits;
    }
    return 0;
}

Standing StandingOf(const Player& player, std::int32_t armyUnits) {
    return {player.nectar, armyUnits, player.moves, player.nectarPerHour, player.territory, player.playing};
}

void PlayerSeries::record(const WorldState& world, int index, const EventOutcome& outcome) {
    if (!complete_) return;
    tally_.update(world, outcome);
    const int players = world.lastPlayerIndex();
    if (players > kMaxPlaces) return giveUp();
    const Action action = index >= 1 && index <= world.lastEventIndex()
                              ? world.events[static_cast<std::size_t>(index)].action
                              : Action::Other;
    // Only the world's creation and a new headquarters write who a player is.
    const bool tableChanged = players != playersBefore_ || action == Action::CreateWorld || action == Action::CreateHq;
    playersBefore_ = players;
    tableSizes_.push_back(static_cast<std::uint16_t>(players));
    if (placeCount() < players) places_.resize(static_cast<std::size_t>(players));
    for (int place = 1; place <= placeCount(); ++place) {
        Change next{index, -1, {}};
        if (place <= players) {
            next.who = identityAt(world, place, tableChanged);
            next.standing = StandingOf(world.players[static_cast<std::size_t>(place)], tally_.unitsOf(place));
        }
        std::vector<Change>& changes = places_[static_cast<std::size_t>(place - 1)];
        if (!changes.empty() && changes.back().who == next.who && changes.back().standing == next.standing) continue;
        changes.push_back(next);
        if (++changeCount_ > kMaxChanges) return giveUp();
    }
}

int PlayerSeries::identityAt(const WorldState& world, int place, bool tableChanged) {
    const std::vector<Change>& changes = places_[static_cast<std::size_t>(place - 1)];
    const int held = changes.empty() ? -1 : changes.back().who;
    if (held >= 0 && !tableChanged) return held;
    const Player& player = world.players[static_cast<std::size_t>(place)];
    if (held >= 0) {
        const PlayerIdentity& before = identities_[static_cast<std::size_t>(held)];
        if (before.name == player.name && before.side == player.side && before.hqField == player.hqField) return held;
    }
    identities_.push_back({player.name, player.side, player.hqField});
    return static_cast<int>(identities_.size()) - 1;
}

void PlayerSeries::giveUp() {
    complete_ = false;
    tally_ = {};
    tableSizes_ = {};
    places_ = {};
    identities_ = {};
    changeCount_ = 0;
}

int PlayerSeries::playersAfter(int event) const {
    if (event < 1 || event > eventCount()) return 0;
    return tableSizes_[static_cast<std::size_t>(event - 1)];
}

std::optional<PlayerSeries::Entry> PlayerSeries::at(int event, int place) const {
    if (place < 1 || place > playersAfter(event)) return std::nullopt;
    const std::vector<Change>& changes = changesOf(place);
    const auto after = std::upper_bound(changes.begin(), changes.end(), event,
                                        [](int e, const Change& change) { return e < change.event; });
    if (after == changes.begin() || std::prev(after)->who < 0) return std::nullopt;
    const Change& held = *std::prev(after);
    return Entry{&identity(held.who), held.standing};
}

const PlayerIdentity& PlayerSeries::lastHolder(int place) const {
    const std::vector<Change>& changes = changesOf(place);
    const auto held = std::find_if(changes.rbegin(), changes.rend(), [](const Change& c) { return c.who >= 0; });
    return identity(held->who);
}

std::size_t PlayerSeries::bytes() const {
    std::size_t total = sizeof(*this) + tally_.bytes() + tableSizes_.capacity() * sizeof(std::uint16_t) +
                        places_.capacity() * sizeof(std::vector<Change>) + identities_.capacity() * sizeof(PlayerIdentity);
    for (const std::vector<Change>& changes : places_) total += changes.capacity() * sizeof(Change);
    return total;
}

}  // namespace trelvin
