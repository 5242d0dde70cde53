#include "history/action_players.h"

#include "model/checked_math.h"
#include "model/field_addressing.h"

namespace trelvin {

int ActionPlayers::idOf(const std::string& name) {
    if (name.empty()) return kNobody;
    const auto [found, added] = ids_.try_emplace(name, static_cast<int>(names_.size()));
    if (added) names_.push_back(name);
    return found->second;
}

int ActionPlayers::ownerOf(const WorldState& world, const std::string& field) {
    try {
        const int k = FieldIndex(world, field);
        return k >= 1 && k <= world.lastTileIndex() ? idOf(world.tiles[static_cast<std::size_t>(k)].owner) : kNobody;
    } catch (const RuleError&) {
        return kNobody;  // a malformed name reaches no field
    }
}

void ActionPlayers::record(const WorldState& world, int index) {
    Involved& involved = events_.emplace_back();
    if (index < 1 || index > world.lastEventIndex()) return;
    const ReplayEvent& event = world.events[static_cast<std::size_t>(index)];
    switch (event.action) {
        case Action::Attack:
        case Action::Move:
            involved = {ownerOf(world, event.place), ownerOf(world, event.target)};
            break;
        case Action::Buy:
        case Action::Retreat:
        case Action::ConvertGround: involved.actor = ownerOf(world, event.place); break;
        case Action::Trade: involved = {idOf(event.sender()), idOf(event.receiver())}; break;
        case Action::CreateHq: involved = {idOf(event.playerName), ownerOf(world, event.place)}; break;
        default: break;
    }
}

}  // namespace trelvin
