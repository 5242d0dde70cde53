#pragma once
// The units standing on each player's fields, kept up to date event by event. A field counts for
// the first player of its owner's name, as every lookup by name finds that one; free land counts
// for nobody, even for a player whose name is empty.
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/event_outcome.h"
#include "model/world_state.h"

namespace trelvin {

class ArmyTally {
public:
    // Brings the tally to `world`, in which an event has just been applied after the events
    // before it, with `outcome`. The first call counts every field.
    void update(const WorldState& world, const EventOutcome& outcome);

    // The units on the fields of player `playerIndex` (from 1) in the world given last.
    std::int32_t unitsOf(int playerIndex) const;

    // The memory the tally holds, roughly.
    std::size_t bytes() const;

private:
    struct Counted {
        std::string owner;
        std::int16_t units = 0;
    };

    void countAll(const WorldState& world);
    void recount(const WorldState& world, int field);
    void indexNewPlayers(const WorldState& world);
    void add(const std::string& owner, std::int64_t units);

    bool counted_ = false;
    std::vector<Counted> fields_;  // as counted, from field 1; entry 0 unused
    std::unordered_map<std::string, std::int64_t> unitsByOwner_;
    std::unordered_map<std::string, int> firstPlayerNamed_;
    std::vector<std::int32_t> unitsByPlayer_;  // from index 1; entry 0 unused
};

}  // namespace trelvin
