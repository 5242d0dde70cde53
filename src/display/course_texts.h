#pragma once
// What the charts of the players' course say: the quantities' captions (the player panel's
// words), a player's entry in the legend and a player's value at an action.
#include <array>
#include <string>

#include "history/player_series.h"

namespace trelvin {

struct QuantityChoice {
    Quantity quantity;
    const char* caption;
};
// In the order of the charts' box.
inline constexpr std::array<QuantityChoice, 5> kQuantityChoices{{
    {Quantity::Territory, "Velikost uzemi"},
    {Quantity::Nectar, "Mnozstvi nektaru"},
    {Quantity::NectarPerHour, "Nektar za hodinu"},
    {Quantity::Moves, "Pocet tahu"},
    {Quantity::ArmyUnits, "Jednotky armady"},
}};

// Why a replay has no charts.
std::string ChartsMissingText();

// "name (side)", as the player list names the player.
std::string PlayerEntryText(const PlayerIdentity& who);

// The value a player had after an action, or "Uz nehraje" once out of the game.
std::string StandingText(const Standing& standing, Quantity quantity);

}  // namespace trelvin
