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
        const std::int16_t left = checked16(ctx.field(e.place).armyCount - std::int64_t{e.amount});
        ctx.changeField(e.place).armyCount = left;
    });
    ctx.step([&] {
        const std::int16_t arrived = checked16(ctx.field(e.target).armyCount + std::int64_t{e.amount});
        ctx.changeField(e.target).armyCount = arrived;
    });
    ctx.step([&] { ctx.changeField(e.target).armyType = ctx.field(e.place).armyType; });
    ctx.step([&] {
        if (ctx.field(e.place).armyCount == 0) ctx.changeField(e.place).armyType.clear();
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
        return std::int64_t{e.amount} * UnitPrice(ctx.field(e.place).armyType) / 2;
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
        const std::int16_t left = checked16(ctx.field(e.place).armyCount - std::int64_t{e.amount});
        ctx.changeField(e.place).armyCount = left;
    });
}

}  // namespace trelvin
