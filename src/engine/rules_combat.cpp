// The attack: carries the outcome recorded in the file into the world and charges its cost.
#include "engine/game_tables.h"
#include "engine/rules.h"
#include "model/field_addressing.h"
#include "model/game_words.h"

namespace trelvin {

namespace {

// Frees every field of player `fallenIndex`, whose headquarters has fallen.
void captureHeadquarters(RuleContext& ctx, int fallenIndex) {
    WorldState& w = ctx.world;
    Player& fallen = w.players[fallenIndex];
    ctx.outcome().captures.push_back({fallenIndex, fallen.name});
    ctx.step([&] { w.actionText += std::string(kLineBreak) + "Dobyto veleni hrace " + fallen.name; });
    ctx.step([&] { fallen.playing = false; });
    for (int j = 1; j <= w.lastTileIndex(); ++j) {
        if (w.tiles[j].owner != fallen.name) continue;
        ctx.step([&] { ctx.changeFieldAt(j).owner.clear(); });
        ctx.step([&] { ctx.changeFieldAt(j).armyCount = 0; });
    }
}

void applyFailedAttack(RuleContext& ctx) {
    const ReplayEvent& e = ctx.event();
    ctx.step([&] {
        const std::int16_t left = checked16(ctx.field(e.place).armyCount - std::int64_t{e.amount});
        ctx.changeField(e.place).armyCount = left;
    });
    ctx.step([&] { ctx.changeField(e.target).armyCount = e.survivors; });
    ctx.step([&] {
        if (ctx.field(e.target).armyCount == 0) ctx.changeField(e.target).armyType.clear();
    });
}

void applySuccessfulAttack(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const ReplayEvent& e = ctx.event();
    ctx.step([&] {
        Player& attacker = ctx.ownerOf(e.place);
        attacker.territory = checkedU8(attacker.territory + 1);
    });
    ctx.step([&] {
        Player& attacker = ctx.ownerOf(e.place);
        attacker.nectarPerHour = checked16(attacker.nectarPerHour +
                                           std::int64_t{TerrainYield(ctx.field(e.target).terrain)});
    });
    ctx.step([&] {
        const Tile& to = ctx.field(e.target);
        if (to.owner.empty()) return;
        Player& defender = ctx.player(to.owner);
        const std::uint8_t territory = checkedU8(defender.territory - 1);
        const std::int16_t income =
            checked16(defender.nectarPerHour - std::int64_t{TerrainYield(to.terrain)});
        defender.territory = territory;
        defender.nectarPerHour = income;
    });
    ctx.step([&] { ctx.changeField(e.target).owner = ctx.field(e.place).owner; });
    ctx.step([&] { ctx.changeField(e.target).armyType = ctx.field(e.place).armyType; });
    ctx.step([&] { ctx.changeField(e.target).armyCount = e.survivors; });
    ctx.step([&] {
        const std::int16_t left = checked16(ctx.field(e.place).armyCount - std::int64_t{e.amount});
        ctx.changeField(e.place).armyCount = left;
    });
    ctx.step([&] {
        if (ctx.field(e.place).armyCount == 0) ctx.changeField(e.place).armyType.clear();
    });
    for (int i = 1; i <= w.lastPlayerIndex(); ++i)
        if (w.players[i].hqField == e.target) captureHeadquarters(ctx, i);
}

}  // namespace

void ApplyAttack(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const ReplayEvent& e = ctx.event();
    ctx.step([&] {
        w.actionText = "Utok z " + e.place + " (" + ctx.field(e.place).owner + ") na " + e.target;
    });
    ctx.step([&] {
        const std::string& owner = ctx.field(e.target).owner;
        w.actionText += owner.empty() ? std::string(" (volne uzemi)") : " (" + owner + ")";
    });
    ctx.step([&] { w.actionText += " s " + num(e.amount) + " jednotkami." + std::string(kLineBreak); });
    ctx.step([&] { w.actionText += "Utok se "; });
    ctx.step([&] { w.actionText += e.success ? "zdaril" : "nezdaril"; });
    ctx.step([&] { w.actionText += " prezilo " + num(e.survivors) + " jednotek"; });
    if (e.success)
        applySuccessfulAttack(ctx);
    else
        applyFailedAttack(ctx);

    // Rock is cheaper to attack; an attack elsewhere that the attacker cannot afford is a
    // forged record, reported but carried on.
    const bool onRock = ctx.field(e.target).terrain == terrain::kRock;
    const std::int16_t factor = onRock ? kRockAttackCostFactor : kAttackCostFactor;
    if (!onRock) ctx.setMode(ErrorMode::Forgery);
    const std::int16_t cost = FieldDistance(e.place, e.target, factor);
    ctx.step([&] {
        Player& attacker = ctx.ownerOf(e.place);
        attacker.moves = checked16(attacker.moves - std::int64_t{cost});
    });
    ctx.step([&] { w.actionText += std::string(kLineBreak) + "Akce stala " + num(cost) + " tah(u)."; });
}

}  // namespace trelvin
