#pragma once
// The four values the player panel shows for one player of the current world.
#include <QString>

#include "model/world_state.h"

namespace trelvin {

struct PlayerPanelTexts {
    QString moves;
    QString nectar;
    QString headquarters;
    QString territory;
};

// Texts for player `playerIndex` (1-based): moves and nectar with their hourly gains,
// headquarters field and territory; for a player out of the game only "Uz nehraje".
// An index outside the player table gives four empty texts.
PlayerPanelTexts PlayerPanelFor(const trelvin::WorldState& world, int playerIndex);

}  // namespace trelvin
