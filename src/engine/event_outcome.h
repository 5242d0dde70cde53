#pragma once
// What applying one event did, as the rule itself knows it: what it reported, the fields it
// wrote, the headquarters it took and the winner an end named. Whoever follows the events (the
// action log, the marks on the map, the army tally, the redraw) reads it here instead of
// deciding again.
#include <optional>
#include <string>
#include <vector>

namespace trelvin {

// A headquarters an attack took: the player (from 1) whose it was, and that player's name.
struct CapturedHeadquarters {
    int player = 0;
    std::string name;  // Windows-1250
    bool operator==(const CapturedHeadquarters&) const = default;
};

struct EventOutcome {
    // The texts of its message boxes, in order (Windows-1250).
    std::vector<std::string> messages;
    // The fields a step wrote, entry 0 included, ascending and each once.
    std::vector<int> changedFields;
    std::vector<CapturedHeadquarters> captures;
    // The side an end named the winner, once it could tell one.
    std::optional<std::string> winner;

    bool tookHeadquarters() const { return !captures.empty(); }
};

}  // namespace trelvin
