#pragma once
// Small worlds and replay texts for the core tests: a map from a terrain string, players,
// events applied one by one, and loads from bytes.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>
#include <vector>

#include "engine/event_executor.h"
#include "model/field_addressing.h"
#include "model/replay_loader.h"
#include "support/replays.h"

namespace trelvin::testing {

inline constexpr const char* kLoadFailure = "Chyba pri nacitani replaye - ";

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

// A started player: 15 moves, 500 nectar, the headquarters as the only field.
inline Player& AddPlayer(WorldState& w, const std::string& name, const std::string& side,
                         const std::string& hq) {
    w.players.push_back(Player{name, side, hq, 15, 500, 12, 1, true});
    w.tiles[FieldIndex(w, hq)].owner = name;
    return w.players.back();
}

inline Tile& At(WorldState& w, const std::string& name) { return w.tiles[FieldIndex(w, name)]; }

// A field's terrain, owner, army type and count, compared at once but each by name.
using FieldState = std::tuple<std::string, std::string, std::string, int>;
inline FieldState StateOf(WorldState& w, const std::string& name) {
    const Tile& t = At(w, name);
    return {t.terrain, t.owner, t.armyType, t.armyCount};
}

inline ReplayEvent Event(const std::string& keyword, const std::string& place = "",
                         const std::string& target = "", std::int16_t amount = 0,
                         bool success = false, std::int16_t survivors = 0) {
    ReplayEvent event;
    event.setKeyword(keyword);
    event.place = place;
    event.target = target;
    event.amount = amount;
    event.success = success;
    event.survivors = survivors;
    return event;
}

// Appends the event and applies it; returns what it did.
inline EventOutcome ApplyEvent(WorldState& w, ReplayEvent e) {
    w.events.push_back(std::move(e));
    w.eventCount = static_cast<std::int16_t>(w.lastEventIndex());
    return ExecuteEvent(w, w.eventCount);
}

// The same; returns the message texts it showed.
inline std::vector<std::string> Apply(WorldState& w, ReplayEvent e) { return ApplyEvent(w, std::move(e)).messages; }

// The load's message, if it failed.
inline std::vector<std::string> Load(WorldState& w, const std::string& bytes) {
    const LoadOutcome outcome = LoadReplayFromBytes(w, bytes);
    if (outcome.succeeded()) return {};
    return {outcome.failure};
}

// The loaded keywords joined by blanks, to compare the whole event list at once.
inline std::string Actions(const WorldState& w) {
    std::string joined;
    for (int i = 1; i <= w.lastEventIndex(); ++i) joined += (i > 1 ? " " : "") + w.events[i].keyword;
    return joined;
}

// Exactly one message: the prefix and a description after it. A failure shows the texts.
inline ::testing::AssertionResult OneMessage(const std::vector<std::string>& texts, const char* prefix) {
    if (texts.size() == 1 && texts[0].starts_with(prefix) && texts[0].size() > std::strlen(prefix))
        return ::testing::AssertionSuccess();
    auto failure = ::testing::AssertionFailure() << texts.size() << " message(s), not one that starts with '"
                                                 << prefix << "' and goes on:";
    for (const std::string& text : texts) failure << " [" << text << "]";
    return failure;
}

}  // namespace trelvin::testing
