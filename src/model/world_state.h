#pragma once
// Everything known about the replayed world. Texts are Windows-1250 bytes.
// Every table is used from index 1; entry 0 always exists, is never shown, and absorbs
// updates made through a lookup that found nothing.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/action_table.h"
#include "model/date_time.h"

namespace trelvin {

// One action of the event list. `place` is usually the field where the action happens and
// `target` a second field; where an action gives them another meaning, the accessors below
// name it.
struct ReplayEvent {
    DateTime time;
    std::string keyword;  // as the file wrote it
    Action action = Action::Other;  // what the keyword names, read once with it
    std::string place;
    std::string target;
    std::int16_t amount = 0;
    bool success = false;
    std::int16_t survivors = 0;
    std::string playerName;
    std::string armyType;

    // create_world: one terrain letter per field, field 1 first.
    const std::string& terrains() const { return place; }
    // create_hq: the new player's side.
    const std::string& joiningSide() const { return target; }
    // convert_gnd: the field's new terrain letter.
    const std::string& newTerrain() const { return target; }
    // trade: the players who send and who receive the nectar.
    const std::string& sender() const { return place; }
    const std::string& receiver() const { return target; }
    // end: the winning side the file names.
    const std::string& winningSide() const { return playerName; }

    // The keyword of a line, and the action it names.
    void setKeyword(std::string_view text) {
        keyword.assign(text);
        action = ActionOf(text);
    }
    // The keyword of an action the file implies.
    void setAction(Action implied) {
        action = implied;
        keyword.assign(KeywordOf(implied));
    }
    // add_rounds: the hours whose gains it adds.
    std::int16_t hours() const { return amount; }
};

struct Tile {
    std::string terrain;
    std::string owner;
    std::string armyType;
    std::int16_t armyCount = 0;
    bool visible = false;
};

struct Player {
    std::string name;
    std::string side;
    std::string hqField;
    std::int16_t moves = 0;
    std::int32_t nectar = 0;
    std::int16_t nectarPerHour = 0;
    std::uint8_t territory = 0;
    bool playing = false;
};

struct WorldState {
    std::vector<ReplayEvent> events = std::vector<ReplayEvent>(1);
    std::int16_t eventCount = 0;
    std::vector<Tile> tiles = std::vector<Tile>(1);
    std::vector<Player> players = std::vector<Player>(1);

    std::string worldName;
    std::uint8_t playerLimit = 0;
    std::uint8_t mapWidth = 0;
    std::uint8_t mapHeight = 0;
    std::uint8_t speed = 0;

    bool loaded = false;
    DateTime currentTime;
    std::string actionText;
    // The winning side an end rule stored for the last event of the list, which stands in for
    // that event's own; empty until one is stored. Part of the world, not of the file: the list
    // stays as the file gave it.
    std::optional<std::string> storedWinner;

    // Number of fields the map has: mapWidth x mapHeight.
    int fieldCount() const { return int{mapWidth} * int{mapHeight}; }
    // Index of the last entry of each table (entry 0 not counted as content).
    int lastEventIndex() const { return static_cast<int>(events.size()) - 1; }
    int lastTileIndex() const { return static_cast<int>(tiles.size()) - 1; }
    int lastPlayerIndex() const { return static_cast<int>(players.size()) - 1; }
};

// The winning side of event `index`, an end: the one stored for the last event when it is
// that one, the file's otherwise.
inline const std::string& WinningSideOf(const WorldState& world, int index) {
    if (index == world.lastEventIndex() && world.storedWinner) return *world.storedWinner;
    return world.events[static_cast<std::size_t>(index)].winningSide();
}

}  // namespace trelvin
