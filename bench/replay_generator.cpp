#include "replay_generator.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "model/date_time.h"
#include "model/field_addressing.h"

namespace trelvin {

namespace {

constexpr std::array<const char*, 6> kArmyTypes{"Beru\x9Aka", "Chrob\xE1k", "Vosi\xE8ka",
                                                "Kom\xE1r",   "Hovado",    "\x8Av\xE1\x62"};
constexpr std::array<int, 6> kUnitPrices{8, 10, 12, 2, 10, 17};
constexpr int kSecondsBetweenLines = 97;

struct SimPlayer {
    std::string name;
    std::string side;
    int hq = 0;  // field index from 1
    bool playing = true;
    long nectar = 500;
    int territory = 1;
    std::vector<int> fields;
};

struct SimField {
    char terrain = 'N';
    int owner = -1;  // player index, -1 for free land
    int army = 0;
    int armyType = 0;
};

class Generator {
public:
    explicit Generator(const GeneratorOptions& options)
        : options_(options), random_(options.seed), fields_(options.columns * options.rows + 1) {
        world_.mapWidth = static_cast<std::uint8_t>(options.columns);
        world_.mapHeight = static_cast<std::uint8_t>(options.rows);
    }

    std::string run() {
        out_ = "0;Velka bitva;" + std::to_string(options_.players) + ";" +
               std::to_string(options_.columns) + ";" + std::to_string(options_.rows) + ";20\r\n";
        placeHeadquarters();
        createWorld();
        createHeadquarters();
        // Room for end_hld_fire, the closing buy and attack, an hour's add_rounds and the end.
        const int budget = options_.events - 4;
        const int capturesAt[] = {budget / 2, budget * 3 / 4};
        int captures = 0;
        int turn = 0;
        while (eventCount_ < budget) {
            if (captures < 2 && eventCount_ >= capturesAt[captures]) {
                capture(captures * 2 + 2, captures * 2 + 3);
                ++captures;
                continue;
            }
            const int p = turn % static_cast<int>(players_.size());
            ++turn;
            if (players_[p].playing) act(p, turn);
        }
        capture(0, 1);
        return out_;
    }

private:
    std::string name(int k) const { return FieldName(world_, k); }

    void line(const std::string& text) {
        // An hour boundary passed since the last event brings one inserted event.
        const long previous = seconds_;
        seconds_ += kSecondsBetweenLines;
        if (started_ && seconds_ / 3600 != previous / 3600) ++eventCount_;
        const DateTime time = start_.plusSeconds(seconds_);
        char stamp[32];
        std::snprintf(stamp, sizeof stamp, "%04d-%02d-%02d-%02d-%02d-%02d", time.year(), time.day(),
                      time.month(), time.hour(), time.minute(), time.second());
        out_ += std::string(stamp) + ";" + text + "\r\n";
        ++eventCount_;
    }

    void createWorld() {
        for (int k = 1; k < static_cast<int>(fields_.size()); ++k) {
            const int roll = static_cast<int>(random_() % 100);
            fields_[k].terrain = roll < 60 ? 'N' : roll < 80 ? 'B' : roll < 95 ? 'S' : 'X';
        }
        for (const SimPlayer& p : players_) fields_[p.hq].terrain = 'N';
        std::string terrain;
        for (int k = 1; k < static_cast<int>(fields_.size()); ++k) terrain += fields_[k].terrain;
        line("create_world;" + terrain);
    }

    // Spread over the map in rows of four, sides alternating; headquarters stand on grass.
    void placeHeadquarters() {
        const int count = options_.players;
        for (int i = 0; i < count; ++i) {
            SimPlayer p;
            p.name = "Hrac" + std::to_string(i + 1);
            p.side = i % 2 == 0 ? "les" : "louka";
            const int row = (i / 4 * 2 + 1) * options_.rows / ((count + 3) / 4 * 2 + 1);
            const int column = (i % 4 * 2 + 1) * options_.columns / 9;
            p.hq = row * options_.columns + column + 1;
            p.fields.push_back(p.hq);
            players_.push_back(p);
        }
    }

    void createHeadquarters() {
        for (int i = 0; i < static_cast<int>(players_.size()); ++i) {
            const SimPlayer& p = players_[i];
            fields_[p.hq].owner = i;
            line("create_hq;" + p.name + ";" + p.side + ";" + name(p.hq));
        }
        started_ = true;
        ++eventCount_;  // the inserted start
    }

    std::vector<int> neighbours(int k) const {
        std::vector<int> result;
        const int row = (k - 1) / options_.columns;
        const int column = (k - 1) % options_.columns;
        for (int dr = -1; dr <= 1; ++dr)
            for (int dc = -1; dc <= 1; ++dc) {
                const int r = row + dr, c = column + dc;
                if ((dr || dc) && r >= 0 && r < options_.rows && c >= 0 && c < options_.columns)
                    result.push_back(r * options_.columns + c + 1);
            }
        return result;
    }

    int pick(const std::vector<int>& from) { return from[random_() % from.size()]; }

    void act(int p, int turn) {
        SimPlayer& player = players_[p];
        const int field = pick(player.fields);
        SimField& here = fields_[field];
        switch (turn / static_cast<int>(players_.size()) % 7) {
            case 0:
            case 1:
                if (here.army < 400 && player.nectar > 400) return buy(p, field);
                break;
            case 2:
            case 3:
                if (here.army >= 2 && player.territory < 240) return attack(p, field);
                break;
            case 4:
                if (here.army >= 2) return move(p, field);
                break;
            case 5:
                if (here.army >= 3) return retreat(p, field);
                break;
            default:
                if (turn % 2 == 0) return convert(p, field);
                return trade(p);
        }
        buy(p, field);
    }

    void buy(int p, int field) {
        SimField& here = fields_[field];
        const int type = static_cast<int>(random_() % kArmyTypes.size());
        const int amount = 5 + static_cast<int>(random_() % 10);
        here.army += amount;
        here.armyType = type;
        players_[p].nectar -= static_cast<long>(amount) * kUnitPrices[type];
        line("buy;" + name(field) + ";" + kArmyTypes[type] + ";" + std::to_string(amount));
    }

    void attack(int p, int from) {
        std::vector<int> targets;
        for (int k : neighbours(from))
            if (fields_[k].terrain != 'X' && fields_[k].owner != p && fields_[k].owner < 0)
                targets.push_back(k);
        if (targets.empty()) return move(p, from);
        const int target = pick(targets);
        SimField& here = fields_[from];
        SimField& there = fields_[target];
        const int amount = here.army / 2;
        const bool success = random_() % 5 != 0;
        const int survivors = success ? std::max(1, amount - 1) : 0;
        line("attack;" + name(from) + ";" + name(target) + ";" + std::to_string(amount) + ";" +
             (success ? "1" : "0") + ";" + std::to_string(survivors));
        here.army -= amount;
        if (success) {
            there.owner = p;
            there.army = survivors;
            there.armyType = here.armyType;
            players_[p].fields.push_back(target);
            ++players_[p].territory;
        } else {
            there.army = survivors;
        }
    }

    void move(int p, int from) {
        const std::vector<int>& own = players_[p].fields;
        const int to = pick(own);
        if (to == from || fields_[from].army < 2) return buy(p, from);
        const int amount = fields_[from].army / 2;
        fields_[from].army -= amount;
        fields_[to].army += amount;
        fields_[to].armyType = fields_[from].armyType;
        line("move;" + name(from) + ";" + name(to) + ";" + std::to_string(amount));
    }

    void retreat(int p, int field) {
        const int amount = 1 + static_cast<int>(random_() % 2);
        fields_[field].army -= amount;
        players_[p].nectar += amount * kUnitPrices[fields_[field].armyType] / 2;
        line("retreat;" + name(field) + ";" + std::to_string(amount));
    }

    void convert(int p, int field) {
        const char letter = fields_[field].terrain == 'N' ? 'B' : 'N';
        fields_[field].terrain = letter;
        players_[p].nectar -= letter == 'N' ? 36 : 21;
        line("convert_gnd;" + name(field) + ";" + std::string(1, letter));
    }

    void trade(int p) {
        const int to = (p + 2) % static_cast<int>(players_.size());
        if (to == p || !players_[to].playing) return buy(p, players_[p].hq);
        players_[p].nectar -= 10;
        players_[to].nectar += 10;
        line("trade;" + players_[p].name + ";" + players_[to].name + ";10");
    }

    // One player takes another's headquarters from its own; the fallen player's land is freed.
    // The last line is such an attack, so the loader appends the final "end".
    void capture(int attacker, int fallen) {
        const int count = static_cast<int>(players_.size());
        attacker %= count;
        fallen %= count;
        if (attacker == fallen || !players_[attacker].playing || !players_[fallen].playing) return;
        const int from = players_[attacker].hq;
        const int target = players_[fallen].hq;
        line("buy;" + name(from) + ";" + kArmyTypes[0] + ";20");
        line("attack;" + name(from) + ";" + name(target) + ";" + std::to_string(fields_[from].army + 20) +
             ";1;15");
        fields_[from].army = 0;
        for (int k : players_[fallen].fields)
            if (fields_[k].owner == fallen) fields_[k] = SimField{fields_[k].terrain, -1, 0, 0};
        fields_[target] = SimField{fields_[target].terrain, attacker, 15, 0};
        players_[fallen].playing = false;
        players_[attacker].fields.push_back(target);
        ++players_[attacker].territory;
    }

    GeneratorOptions options_;
    std::mt19937 random_;
    WorldState world_;
    std::vector<SimField> fields_;
    std::vector<SimPlayer> players_;
    std::string out_;
    DateTime start_ = *DateTime::fromParts(2004, 6, 19, 8, 0, 0);
    long seconds_ = 0;
    bool started_ = false;
    int eventCount_ = 0;
};

}  // namespace

std::string GenerateReplay(const GeneratorOptions& options) { return Generator(options).run(); }

}  // namespace trelvin
