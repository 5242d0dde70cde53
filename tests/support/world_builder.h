#pragma once
// Small worlds for rule tests: a map from a terrain string, players and owned fields.
#include <string>

#include "engine/event_executor.h"
#include "model/field_addressing.h"
#include "model/replay_loader.h"

namespace trelvin::testing {

inline WorldState MakeWorld(int width, int height, const std::string& terrain) {
    WorldState w;
    w.loaded = true;
    w.mapWidth = static_cast<std::uint8_t>(width);
    w.mapHeight = static_cast<std::uint8_t>(height);
    w.speed = 3;
    w.tiles.assign(static_cast<std::size_t>(width * height) + 1, Tile{});
    for (std::size_t i = 0; i < terrain.size() && i + 1 < w.tiles.size(); ++i)
        w.tiles[i + 1].terrain = std::string(1, terrain[i]);
    return w;
}

inline Player& AddPlayer(WorldState& w, const std::string& name, const std::string& side,
                         const std::string& hq) {
    Player p;
    p.name = name;
    p.side = side;
    p.hqField = hq;
    p.playing = true;
    p.moves = 15;
    p.nectar = 500;
    p.territory = 1;
    p.nectarPerHour = 12;
    w.players.push_back(p);
    w.tiles[FieldIndex(w, hq)].owner = name;
    return w.players.back();
}

inline Tile& At(WorldState& w, const std::string& name) { return w.tiles[FieldIndex(w, name)]; }

// Appends the event and applies it; returns the message texts it showed.
inline std::vector<std::string> Apply(WorldState& w, ReplayEvent e) {
    w.events.push_back(std::move(e));
    w.eventCount = static_cast<std::int16_t>(w.lastEventIndex());
    RecordingReporter reporter;
    ExecuteEvent(w, w.eventCount, reporter);
    return reporter.texts;
}

inline ReplayEvent Event(const std::string& action, const std::string& place = "",
                         const std::string& target = "", std::int16_t amount = 0) {
    ReplayEvent e;
    e.action = action;
    e.place = place;
    e.target = target;
    e.amount = amount;
    return e;
}

inline std::vector<std::string> Load(WorldState& w, const std::string& bytes) {
    RecordingReporter reporter;
    LoadReplayFromBytes(w, bytes, reporter);
    return reporter.texts;
}

}  // namespace trelvin::testing
