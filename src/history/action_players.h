#pragma once
// The players each event concerns, as the world stood just before it: the player who acted (the
// owner of the field an attack, a move, a purchase, a sale or a change of terrain starts on; the
// sender of a trade; the player a headquarters founds), and the player it reached (the owner of
// the field attacked or entered, the receiver of a trade). The action list shows one player's
// events with them.
#include <string>
#include <unordered_map>
#include <vector>

#include "model/world_state.h"

namespace trelvin {

class ActionPlayers {
public:
    static constexpr int kNobody = -1;

    // Notes event `index` of `world`'s list, about to be applied to it.
    void record(const WorldState& world, int index);

    // The events recorded.
    int size() const { return static_cast<int>(events_.size()); }
    // Every player named by the events, in the order they were first named.
    const std::vector<std::string>& names() const { return names_; }
    // The player (an index into names()) who acted in event `index` (from 1), and the one it
    // reached; kNobody for none.
    int actor(int index) const { return at(index).actor; }
    int reached(int index) const { return at(index).reached; }
    // Whether event `index` was by player `player` or reached one of that player's fields.
    bool concerns(int index, int player) const {
        return player != kNobody && (actor(index) == player || reached(index) == player);
    }

private:
    struct Involved {
        int actor = kNobody;
        int reached = kNobody;
    };
    const Involved& at(int index) const { return events_.at(static_cast<std::size_t>(index - 1)); }
    int idOf(const std::string& name);
    int ownerOf(const WorldState& world, const std::string& field);

    std::vector<std::string> names_;
    std::unordered_map<std::string, int> ids_;
    std::vector<Involved> events_;
};

}  // namespace trelvin
