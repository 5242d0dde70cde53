// Moving units between fields, and selling them back.
#include "engine/game_tables.h"
#include "engine/rules.h"
#include "model/field_addressing.h"

namespace trelvin {

void ApplyMove(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const ReplayEvent& e = ctx.event();
    ctx.step([&] {
        w.actionText = "Pohyb " + num(e.amount) + " jednotek z " + e.place + " na " + e.target;
    });
    ctx.step([&] {
        Tile& from = ctx.tile(e.place);
        from.armyCount = checked16(from.armyCount - std::int64_t{e.amount});
    });
    ctx.step([&] {
        Tile& to = ctx.tile(e.target);
        to.armyCount = checked16(to.armyCount + std::int64_t{e.amount});
    });
    ctx.step([&] { ctx.tile(e.target).armyType = ctx.tile(e.place).armyType; });
    ctx.step([&] {
        Tile& from = ctx.tile(e.place);
        if (from.armyCount == 0) from.armyType.clear();
    });
    const std::int16_t cost = FieldDistance(e.place, e.target, kMoveCostFactor);
    ctx.step([&] {
        Player& owner = ctx.ownerOf(e.place);
        owner.moves = checked16(owner.moves - std::int64_t{cost});
    });
    ctx.step([&] { w.actionText += std::string(kLineBreak) + "Akce stala " + num(cost) + " tah(u)."; });
}

void ApplyRetreat(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const ReplayEvent& e = ctx.event();
    // Half the price, rounded toward zero.
    const auto refund = [&] {
        return std::int64_t{e.amount} * UnitPrice(ctx.tile(e.place).armyType) / 2;
    };
    ctx.step([&] {
        w.actionText = "Prodej " + num(e.amount) + " jednotek z " + e.place + ". Ziskals za ne " +
                       num(refund()) + "ml nektaru.";
    });
    ctx.setMode(ErrorMode::Quiet);
    ctx.step([&] {
        Player& owner = ctx.ownerOf(e.place);
        owner.nectar = checked32(owner.nectar + refund());
    });
    ctx.step([&] {
        Tile& from = ctx.tile(e.place);
        from.armyCount = checked16(from.armyCount - std::int64_t{e.amount});
    });
}

}  // namespace trelvin
