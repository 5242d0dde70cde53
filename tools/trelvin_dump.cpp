// trelvin-dump: loads a replay with the viewer's loader, applies every event as stepping
// forward in the viewer does, and prints JSON Lines (UTF-8) for scripts and tests, or with
// --csv every player's standing after every event.
#include <algorithm>
#include <cstring>
#include <exception>
#include <iostream>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "engine/event_executor.h"
#include "history/army_tally.h"
#include "history/player_csv.h"
#include "model/game_words.h"
#include "model/replay_loader.h"
#include "model/text_encoding.h"
#include "model/version_text.h"
#include "view/field_pictures.h"

namespace {

using json = nlohmann::ordered_json;
using namespace trelvin;

struct Options {
    bool csv = false;
    bool tiles = false;
    std::optional<ViewMode> view;
    std::string path;
};

std::optional<ViewMode> parseView(const std::string& name) {
    if (name == "all") return ViewMode::All;
    if (name == side::kLes) return ViewMode::AsLes;
    if (name == side::kLouka) return ViewMode::AsLouka;
    return std::nullopt;
}

std::optional<Options> parseArguments(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--csv") {
            options.csv = true;
        } else if (argument == "--tiles") {
            options.tiles = true;
        } else if (argument == "--view" && i + 1 < argc) {
            options.view = parseView(argv[++i]);
            if (!options.view) return std::nullopt;
        } else if (argument.starts_with("--view=")) {
            options.view = parseView(argument.substr(7));
            if (!options.view) return std::nullopt;
        } else if (argument.starts_with("-") || !options.path.empty()) {
            return std::nullopt;
        } else {
            options.path = argument;
        }
    }
    // The CSV's values are those of the plain JSON lines: no redraw writes into the world.
    if (options.path.empty() || (options.csv && (options.tiles || options.view))) return std::nullopt;
    return options;
}

std::string utf8(const std::string& cp1250) { return cp1250ToUtf8(cp1250); }

json messagesOf(const RecordingReporter& reporter) {
    json messages = json::array();
    for (const std::string& text : reporter.texts) messages.push_back(utf8(text));
    return messages;
}

json playersOf(const WorldState& world, const ArmyTally& tally) {
    json players = json::array();
    for (int i = 1; i <= world.lastPlayerIndex(); ++i) {
        const Player& p = world.players[i];
        players.push_back({{"name", utf8(p.name)},
                           {"side", utf8(p.side)},
                           {"hqField", utf8(p.hqField)},
                           {"moves", p.moves},
                           {"nectar", p.nectar},
                           {"nectarPerHour", p.nectarPerHour},
                           {"territory", p.territory},
                           {"armyUnits", tally.unitsOf(i)},
                           {"playing", p.playing}});
    }
    return players;
}

// One row per player after event `index`, with the values of that event's JSON line.
std::string csvRowsOf(const WorldState& world, int index, const ArmyTally& tally) {
    std::string rows;
    for (int i = 1; i <= world.lastPlayerIndex(); ++i) {
        const Player& player = world.players[i];
        AppendPlayerCsvRow(rows, index, world.events[index].time, {player.name, player.side, player.hqField},
                           StandingOf(player, tally.unitsOf(i)));
    }
    return rows;
}

json tilesOf(const WorldState& world) {
    json tiles = json::array();
    const int count = std::min(world.fieldCount(), world.lastTileIndex());
    for (int k = 1; k <= count; ++k) {
        const Tile& t = world.tiles[k];
        tiles.push_back({{"terrain", utf8(t.terrain)},
                         {"owner", utf8(t.owner)},
                         {"armyType", utf8(t.armyType)},
                         {"armyCount", t.armyCount}});
    }
    return tiles;
}

// The load, then each event as soon as it is applied. As CSV the load tells only through standard
// error, and a failed load leaves no event to apply: the header alone.
void dump(const Options& options) {
    WorldState world;
    RecordingReporter loadReporter;
    LoadReplay(world, options.path, loadReporter);
    if (options.csv) {
        for (const std::string& text : loadReporter.texts) std::cerr << "trelvin-dump: " << utf8(text) << '\n';
        std::cout << kPlayerCsvHeader;
    } else {
        std::cout << json{{"load",
                           {{"worldName", utf8(world.worldName)},
                            {"playerLimit", world.playerLimit},
                            {"mapWidth", world.mapWidth},
                            {"mapHeight", world.mapHeight},
                            {"speed", world.speed},
                            {"eventCount", world.eventCount},
                            {"eventsRead", world.lastEventIndex()},
                            {"loaded", world.loaded},
                            {"messages", messagesOf(loadReporter)}}}}
                         .dump()
                  << '\n';
    }

    ArmyTally tally;
    for (int i = 1; i <= world.eventCount; ++i) {
        RecordingReporter reporter;
        ExecuteEvent(world, static_cast<std::int16_t>(i), reporter);
        tally.update(world, i);
        if (options.csv) {
            // Only applied events have rows: an index beyond the list has no time.
            if (i <= world.lastEventIndex()) std::cout << csvRowsOf(world, i, tally);
            continue;
        }
        json line{{"index", i}};
        if (i <= world.lastEventIndex()) {
            line["time"] = world.events[i].time.iso();
            line["action"] = utf8(world.events[i].action);
        }
        line["actionText"] = utf8(world.actionText);
        line["messages"] = messagesOf(reporter);
        line["players"] = playersOf(world, tally);
        std::optional<std::vector<int>> pictures;
        if (options.view && i > 1) pictures = RedrawPictures(world, *options.view, world.fieldCount());
        if (options.tiles) line["tiles"] = tilesOf(world);
        if (pictures) line["pictures"] = *pictures;
        std::cout << line.dump() << '\n';
    }
}

constexpr const char* kUsage = "usage: trelvin-dump [--tiles] [--view all|les|louka] FILE\n"
                               "       trelvin-dump --csv FILE\n";

constexpr const char* kHelp =
    "Loads a Trelvin replay with the viewer's own code, applies every event in turn and prints\n"
    "JSON Lines: first the load, then one line per event.\n\n"
    "  --tiles              add every field's terrain, owner, army type and count\n"
    "  --view all|les|louka add the picture of every field in that way of viewing\n"
    "  --csv                print CSV instead: a header row, then one row per event and player\n"
    "                       (index,time,player,side,moves,nectar,nectarPerHour,territory,\n"
    "                       armyUnits,hqField,playing)\n"
    "  -h, --help           print this help\n"
    "  -v, --version        print the version\n";

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "-h" || argument == "--help") {
            std::cout << kUsage << '\n' << kHelp;
            return 0;
        }
        if (argument == "-v" || argument == "--version") {
            std::cout << VersionText("trelvin-dump", TRELVIN_VERSION);
            return 0;
        }
    }
    const auto options = parseArguments(argc, argv);
    if (!options) {
        std::cerr << kUsage;
        return 2;
    }
    // The loader and the executor report their own failures; anything else still ends with
    // a message rather than an abort.
    try {
        dump(*options);
    } catch (const std::exception& error) {
        std::cerr << "trelvin-dump: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
