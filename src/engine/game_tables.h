#pragma once
// The terrains with their nectar yield, and the army types with their two price values.
// Keys are compared exactly; army names are Windows-1250 ("Beru\x9Aka").
#include <cstdint>
#include <optional>
#include <string_view>

namespace trelvin {

// What every player gets when the game starts.
inline constexpr std::int32_t kStartingNectar = 500;
inline constexpr std::int16_t kStartingMoves = 15;
inline constexpr std::uint8_t kStartingTerritory = 1;

// The cost of a move or an attack in moves is the distance between the fields times a factor.
inline constexpr std::int16_t kMoveCostFactor = 2;
inline constexpr std::int16_t kAttackCostFactor = 5;
inline constexpr std::int16_t kRockAttackCostFactor = 4;

// A conversion costs the new terrain's yield of this many hours.
inline constexpr std::int16_t kConversionCostHours = 3;

// Nectar per hour of one field: 12 for "N", 7 for "B", 5 for "S", 0 for anything else.
std::int16_t TerrainYield(std::string_view terrain);

// Name the field inspection shows for a terrain letter; empty for letters without one.
std::string_view TerrainName(std::string_view terrain);

std::optional<std::int16_t> ArmyValueA(std::string_view armyType);
std::optional<std::int16_t> ArmyValueB(std::string_view armyType);

// ArmyValueA + ArmyValueB, where a missing value counts as 0.
std::int32_t UnitPrice(std::string_view armyType);

}  // namespace trelvin
