#pragma once
// What the player panel shows: one list entry per player, and four values for the chosen one.
#include <QString>
#include <QStringList>

#include "model/world_state.h"

namespace trelvin {

// "name (side)" of players 1, 2, ...: entry k stands for player k + 1.
QStringList PlayerListEntries(const WorldState& world);

struct PlayerPanelTexts {
    QString moves;
    QString nectar;
    QString headquarters;
    QString territory;
};

// Texts for player `playerIndex` (1-based): moves and nectar with their hourly gains,
// headquarters field and territory; for a player out of the game only "Uz nehraje".
// An index outside the player table gives four empty texts.
PlayerPanelTexts PlayerPanelFor(const WorldState& world, int playerIndex);

}  // namespace trelvin
