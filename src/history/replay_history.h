#pragma once
// What the viewer learns of a replay by applying all of its events once, in order, to a copy of
// the world when the replay is opened: the action log, who each event concerns, the keyframes
// and every player's series, all in this one pass.
#include "history/action_log.h"
#include "history/action_players.h"
#include "history/keyframes.h"
#include "history/player_series.h"
#include "model/world_state.h"

namespace trelvin {

struct ReplayHistory {
    ActionLog log;
    ActionPlayers players;
    Keyframes keyframes;
    PlayerSeries series;  // every player's standing after every event

    // Applies the loaded events 1 .. the last in the list to a copy of `world`.
    static ReplayHistory Build(const WorldState& world);
};

}  // namespace trelvin
