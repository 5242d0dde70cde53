#pragma once
// What the window's panels tell of the world at the position, as UTF-8 texts: the action's
// description and position, the players' list and standing, a field's details. Every front end
// shows these words; a front end only places them.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/date_time.h"
#include "model/world_state.h"
#include "view/view_mode.h"

namespace trelvin {

// The line the action list, the timeline and the charts show after a load that failed, with the
// count of the actions it read before.
std::string FailedLoadText(int actionsRead);

// The description of the action applied last, its lines ending in "\n".
std::string DescriptionText(const WorldState& world);

// "5 (120)": the position, then the event count in brackets.
std::string PositionText(int position, int eventCount);

// The time the clock shows at the position: that event's; none when the list lacks it (after a
// failed load).
std::optional<DateTime> ClockTimeAt(const WorldState& world, int position);

// "name (side)" of players 1, 2, ...: entry k stands for player k + 1.
std::vector<std::string> PlayerEntries(const WorldState& world);

// The chosen player's moves and nectar with their hourly gains, headquarters and territory; for
// a player out of the game only "Uz nehraje"; four empty texts for no player.
struct PlayerStanding {
    std::string moves;
    std::string nectar;
    std::string headquarters;
    std::string territory;
    bool operator==(const PlayerStanding&) const = default;
};
PlayerStanding PlayerStandingOf(const WorldState& world, int playerIndex);

// The name of field k ("C4").
std::string FieldNameText(const WorldState& world, int k);

// What "Info o policku" shows of a typed or clicked name: terrain, owner, army type and count as
// far as the way of viewing allows; none when the name is no field of the grid, and the panel
// stays as it is.
struct FieldTexts {
    std::string terrain;
    std::string owner;
    std::string armyType;
    std::string armyCount;
    bool operator==(const FieldTexts&) const = default;
};
std::optional<FieldTexts> FieldDetails(const WorldState& world, std::string_view name, ViewMode mode);

}  // namespace trelvin
