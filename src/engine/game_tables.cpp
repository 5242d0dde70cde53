#include "engine/game_tables.h"

#include <array>

#include "model/game_words.h"

namespace trelvin {

namespace {

struct TerrainEntry {
    std::string_view letter;
    std::int16_t yield;
    std::string_view name;
};

// Tested in this order; "X" has no name: the inspection reports it as unconquerable.
constexpr std::array<TerrainEntry, 3> kTerrains{{
    {terrain::kGrass, 12, "Normalni"},
    {terrain::kSwamp, 7, "Bazina"},
    {terrain::kRock, 5, "Skala"},
}};

struct ArmyEntry {
    std::string_view name;  // Windows-1250
    std::int16_t valueA;
    std::int16_t valueB;
};

constexpr std::array<ArmyEntry, 6> kArmies{{
    {"Beru\x9Aka", 3, 5},
    {"Chrob\xE1k", 6, 4},
    {"Vosi\xE8ka", 5, 7},
    {"Kom\xE1r", 1, 1},
    {"Hovado", 1, 9},
    {"\x8Av\xE1\x62", 15, 2},
}};

const ArmyEntry* findArmy(std::string_view armyType) {
    for (const ArmyEntry& entry : kArmies)
        if (entry.name == armyType) return &entry;
    return nullptr;
}

const TerrainEntry* findTerrain(std::string_view terrain) {
    for (const TerrainEntry& entry : kTerrains)
        if (entry.letter == terrain) return &entry;
    return nullptr;
}

}  // namespace

std::int16_t TerrainYield(std::string_view terrain) {
    const TerrainEntry* entry = findTerrain(terrain);
    return entry ? entry->yield : 0;
}

std::string_view TerrainName(std::string_view terrain) {
    const TerrainEntry* entry = findTerrain(terrain);
    return entry ? entry->name : std::string_view{};
}

std::optional<std::int16_t> ArmyValueA(std::string_view armyType) {
    const ArmyEntry* entry = findArmy(armyType);
    return entry ? std::optional(entry->valueA) : std::nullopt;
}

std::optional<std::int16_t> ArmyValueB(std::string_view armyType) {
    const ArmyEntry* entry = findArmy(armyType);
    return entry ? std::optional(entry->valueB) : std::nullopt;
}

std::int32_t UnitPrice(std::string_view armyType) {
    return ArmyValueA(armyType).value_or(0) + ArmyValueB(armyType).value_or(0);
}

}  // namespace trelvin
