#pragma once
// Every player's standing after every event of a replay, recorded in the pass made at opening:
// moves, nectar, nectar per hour, territory, the units on the player's fields and whether the
// player is still in the game. A player is a place in the player table, so two players of one
// name stay apart. Only changes are kept: a place's values are stored again when one of them
// changed.
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "history/army_tally.h"
#include "model/world_state.h"

namespace trelvin {

// Why a replay has no series: beyond the limits below.
inline constexpr const char* kSeriesGivenUp = "replay ma prilis mnoho hracu nebo zmen";

enum class Quantity { Territory, Nectar, NectarPerHour, Moves, ArmyUnits };
inline constexpr std::array kQuantities{Quantity::Territory, Quantity::Nectar, Quantity::NectarPerHour,
                                        Quantity::Moves, Quantity::ArmyUnits};

// Who holds a place in the player table (Windows-1250, as in the file).
struct PlayerIdentity {
    std::string name;
    std::string side;
    std::string hqField;
};

// One player's values after an event.
struct Standing {
    std::int32_t nectar = 0;
    std::int32_t armyUnits = 0;
    std::int16_t moves = 0;
    std::int16_t nectarPerHour = 0;
    std::uint8_t territory = 0;
    bool playing = false;

    std::int32_t value(Quantity quantity) const;
    bool operator==(const Standing&) const = default;
};

Standing StandingOf(const Player& player, std::int32_t armyUnits);

class PlayerSeries {
public:
    // A place from `event` on: held by identity `who` with `standing`, or empty (`who` < 0).
    struct Change {
        std::int32_t event;
        std::int32_t who;
        Standing standing;
    };

    // What a place holds after one event.
    struct Entry {
        const PlayerIdentity* who;
        Standing standing;
    };

    // Beyond these the series are given up (`complete` turns false) and keep nothing: a replay
    // made to have thousands of players would take the memory and time of the whole viewer.
    static constexpr int kMaxPlaces = 1024;
    static constexpr std::size_t kMaxChanges = std::size_t{1} << 20;

    // Notes every player after event `index`, just applied to `world` after the events before
    // it with `outcome`.
    void record(const WorldState& world, int index, const EventOutcome& outcome);

    bool complete() const { return complete_; }
    int eventCount() const { return static_cast<int>(tableSizes_.size()); }
    // The places the player table reached: players 1 .. this.
    int placeCount() const { return static_cast<int>(places_.size()); }
    // Players in the table after `event` (from 1).
    int playersAfter(int event) const;

    // Player `place` after `event`; empty when the table had no such place then.
    std::optional<Entry> at(int event, int place) const;
    const std::vector<Change>& changesOf(int place) const { return places_.at(static_cast<std::size_t>(place - 1)); }
    const PlayerIdentity& identity(int who) const { return identities_.at(static_cast<std::size_t>(who)); }
    // The last player who held the place.
    const PlayerIdentity& lastHolder(int place) const;

    // The memory the series hold.
    std::size_t bytes() const;

private:
    int identityAt(const WorldState& world, int place, bool tableChanged);
    void giveUp();

    bool complete_ = true;
    ArmyTally tally_;
    int playersBefore_ = -1;
    std::vector<std::uint16_t> tableSizes_;  // per event, from event 1
    std::vector<std::vector<Change>> places_;
    std::vector<PlayerIdentity> identities_;
    std::size_t changeCount_ = 0;
};

}  // namespace trelvin
