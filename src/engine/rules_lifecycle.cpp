// Rules that set up, advance and end a world.
#include "engine/game_tables.h"
#include "engine/rules.h"
#include "model/field_addressing.h"

namespace trelvin {

void ApplyCreateWorld(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const ReplayEvent& e = ctx.event();
    ctx.step([&] { w.actionText = "Svet " + w.worldName + " vytvoren"; });
    ctx.step([&] {
        w.actionText += std::string(kLineBreak) + "Rozmery: " + num(w.mapWidth) + "x" +
                        num(w.mapHeight) + std::string(kLineBreak);
    });
    ctx.step([&] { w.actionText += "Rychlost: " + num(w.speed) + std::string(kLineBreak); });
    ctx.step([&] { w.actionText += "Pocet hracu (limit): " + num(w.playerLimit); });
    const std::string terrains = e.terrains();
    for (std::size_t i = 1; i <= terrains.size(); ++i) {
        const int k = static_cast<int>(i);
        ctx.step([&] { ctx.changeFieldAt(k).terrain = std::string(1, terrains[i - 1]); });
        ctx.step([&] { ctx.changeFieldAt(k).armyCount = 0; });
        ctx.step([&] { ctx.changeFieldAt(k).owner.clear(); });
        ctx.step([&] { ctx.changeFieldAt(k).armyType.clear(); });
    }
    ctx.step([&] { w.players.assign(1, Player{}); });
}

void ApplyCreateHq(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const ReplayEvent& e = ctx.event();
    ctx.step([&] { w.players.emplace_back(); });
    Player& p = w.players.back();
    ctx.step([&] { p.name = e.playerName; });
    ctx.step([&] { p.side = e.joiningSide(); });
    ctx.step([&] { p.hqField = e.place; });
    ctx.step([&] { p.playing = true; });
    ctx.step([&] { w.actionText = "vytvoreni veleni hrace " + e.playerName + "(" + p.side + ")"; });
    ctx.step([&] { ctx.changeField(p.hqField).owner = e.playerName; });
}

void ApplyStart(RuleContext& ctx) {
    WorldState& w = ctx.world;
    ctx.step([&] { w.actionText = "Zacatek sveta"; });
    for (int i = 1; i <= w.lastPlayerIndex(); ++i) {
        Player& p = w.players[i];
        ctx.step([&] { p.nectar = kStartingNectar; });
        ctx.step([&] { p.moves = kStartingMoves; });
        ctx.step([&] { p.territory = kStartingTerritory; });
        ctx.step([&] { p.nectarPerHour = TerrainYield(ctx.field(p.hqField).terrain); });
    }
}

void ApplyAddRounds(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const std::int16_t hours = ctx.event().hours();
    ctx.step([&] {
        const std::int16_t gained = checked16(std::int64_t{w.speed} * hours);
        w.actionText = "Pridani " + num(gained) + " (za " + num(hours) + " hodin) tahu.";
    });
    for (int i = 1; i <= w.lastPlayerIndex(); ++i) {
        Player& p = w.players[i];
        ctx.step([&] {
            p.moves = checked16(p.moves + std::int64_t{checked16(std::int64_t{w.speed} * hours)});
        });
        ctx.step([&] {
            const std::int16_t income = checked16(std::int64_t{p.nectarPerHour} * hours);
            p.nectar = checked32(std::int64_t{p.nectar} + income);
        });
    }
}

void ApplyEndHoldFire(RuleContext& ctx) {
    ctx.step([&] { ctx.world.actionText = "Zruseni ochranne lhuty neutoceni"; });
}

void ApplyEnd(RuleContext& ctx) {
    WorldState& w = ctx.world;
    ctx.step([&] {
        const int last = w.lastEventIndex();
        if (last < 1) throw RuleError(RuleError::Kind::OutOfRange, "Index mimo rozsah");
        const std::string& side = ctx.player(ctx.field(w.events[last - 1].place).owner).side;
        w.storedWinner = side;
        ctx.outcome().winner = side;
    });
    ctx.step([&] {
        w.actionText = "konec sveta - vitezem se stal typ " + WinningSideOf(w, ctx.eventIndex());
    });
}

}  // namespace trelvin
