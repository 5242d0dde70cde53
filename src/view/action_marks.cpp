#include "view/action_marks.h"

#include <algorithm>

#include "model/action_table.h"
#include "model/checked_math.h"
#include "model/field_addressing.h"

namespace trelvin {

namespace {

// The field a name gives when it lies on the map; 0 for a blank, malformed or outside name.
int fieldNamed(const WorldState& world, const std::string& name, int fieldCount) {
    if (name.empty()) return 0;
    try {
        const int k = FieldIndex(world, name);
        return k >= 1 && k <= std::min(fieldCount, world.lastTileIndex()) ? k : 0;
    } catch (const RuleError&) {
        return 0;
    }
}

bool isVisible(const WorldState& world, int k) { return k != 0 && world.tiles[std::size_t(k)].visible; }

// Whether the pictures show the armies and headquarters of field k's owner in this way of viewing.
bool ownersArmiesShown(const WorldState& world, int k, ViewMode mode) {
    const Player& owner = world.players[std::size_t(PlayerIndex(world, world.tiles[std::size_t(k)].owner))];
    return !ArmyHiddenFrom(mode, owner.side);
}

}  // namespace

ActionMarks MarkAction(const WorldState& world, int position, bool tookHeadquarters, ViewMode mode, int fieldCount) {
    if (position < 1 || position > world.lastEventIndex()) return {};
    const ReplayEvent& event = world.events[std::size_t(position)];
    const Action action = event.action;
    const int place = fieldNamed(world, event.place, fieldCount);
    // The target is a field for these three; for the others it is a side or a terrain letter.
    const bool targetIsField = action == Action::Attack || action == Action::Move;
    const int target = targetIsField ? fieldNamed(world, event.target, fieldCount) : 0;
    switch (action) {
        case Action::Move:
        case Action::Buy:
        case Action::Retreat:
        case Action::CreateHq:
            // They change only armies or found a headquarters: marked where those are shown.
            if (place == 0 || !ownersArmiesShown(world, place, mode)) return {};
            break;
        case Action::Attack:
        case Action::ConvertGround:
            // Their outcome is the owner or the terrain a field shows: marked wherever it is seen.
            break;
        default: return {};
    }
    ActionMarks marks;
    for (const int k : {place, target})
        if (isVisible(world, k) && std::find(marks.outlined.begin(), marks.outlined.end(), k) == marks.outlined.end())
            marks.outlined.push_back(k);
    if (targetIsField && place != target && isVisible(world, place) && isVisible(world, target)) {
        marks.arrowFrom = place;
        marks.arrowTo = target;
    }
    // The headquarters an attack takes stands on the field it attacks.
    if (action == Action::Attack && isVisible(world, target) && tookHeadquarters) marks.capturedHeadquarters = target;
    return marks;
}

}  // namespace trelvin
