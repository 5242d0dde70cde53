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

#include "cursor/replay_cursor.h"
#include "history/army_tally.h"
#include "history/player_csv.h"
#include "model/replay_source.h"
#include "model/text_encoding.h"
#include "display/licence_text.h"

namespace {

using json = nlohmann::ordered_json;
using namespace trelvin;

struct Options {
    bool csv = false;
    bool tiles = false;
    std::optional<ViewMode> view;
    std::string path;
};

std::optional<Options> parseArguments(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--csv") {
            options.csv = true;
        } else if (argument == "--tiles") {
            options.tiles = true;
        } else if (argument == "--view" && i + 1 < argc) {
            options.view = ViewModeNamed(argv[++i]);
            if (!options.view) return std::nullopt;
        } else if (argument.starts_with("--view=")) {
            options.view = ViewModeNamed(argument.substr(7));
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

json messagesOf(const std::vector<EventReport>& reports) {
    json messages = json::array();
    for (const EventReport& report : reports) messages.push_back(utf8(report.text));
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

// Every player's standing after every event, from the pass made at opening: the very rows the
// window saves. A failed load leaves no event to write: the header alone.
int dumpCsv(const ReplayCursor& cursor, const LoadOutcome& load) {
    if (!load.succeeded()) std::cerr << "trelvin-dump: " << utf8(load.failure) << '\n';
    if (!cursor.history().series.complete()) {
        std::cout << kPlayerCsvHeader;
        std::cerr << "trelvin-dump: " << kSeriesGivenUp << '\n';
        return 1;
    }
    WritePlayerCsv(cursor.history(), cursor.eventCount(), [](std::string_view rows) { std::cout << rows; });
    return 0;
}

// The load, then each event as soon as it is applied, with the map's redraw after every step
// when a way of viewing is asked for.
int dump(const Options& options) {
    ReplayCursor cursor;
    ReplayFile file(options.path);
    const OpenResult opened = cursor.open(file);
    if (options.csv) return dumpCsv(cursor, opened.load);
    const WorldState& world = cursor.world();
    json loadMessages = json::array();
    if (!opened.load.succeeded()) loadMessages.push_back(utf8(opened.load.failure));
    std::cout << json{{"load",
                       {{"worldName", utf8(world.worldName)},
                        {"playerLimit", world.playerLimit},
                        {"mapWidth", world.mapWidth},
                        {"mapHeight", world.mapHeight},
                        {"speed", world.speed},
                        {"eventCount", world.eventCount},
                        {"eventsRead", world.lastEventIndex()},
                        {"loaded", world.loaded},
                        {"messages", loadMessages}}}}
                     .dump()
              << '\n';
    if (options.view) cursor.setMap(*options.view, {world.fieldCount(), world.fieldCount()});
    ArmyTally tally;
    MoveResult step = opened.first;
    for (int i = 1; i <= world.eventCount; ++i) {
        if (i > 1) step = cursor.forward();
        tally.update(world, cursor.lastOutcome());
        json line{{"index", i}};
        line["time"] = world.events[i].time.iso();
        line["action"] = utf8(world.events[i].keyword);
        line["actionText"] = utf8(world.actionText);
        line["messages"] = messagesOf(step.reports);
        line["players"] = playersOf(world, tally);
        if (options.tiles) line["tiles"] = tilesOf(world);
        if (options.view && i > 1) line["pictures"] = cursor.frame().pictures;
        std::cout << line.dump() << '\n';
    }
    return 0;
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
        return dump(*options);
    } catch (const std::exception& error) {
        std::cerr << "trelvin-dump: " << error.what() << '\n';
        return 1;
    }
}
