// Spending and passing on nectar: buying units, reshaping terrain, sending nectar.
#include "engine/game_tables.h"
#include "engine/rules.h"
#include "model/field_addressing.h"

namespace trelvin {

void ApplyBuy(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const ReplayEvent& e = ctx.event();
    const std::int64_t price = std::int64_t{e.amount} * UnitPrice(e.armyType);
    ctx.step([&] {
        Player& owner = ctx.ownerOf(e.place);
        owner.nectar = checked32(owner.nectar - price);
    });
    ctx.step([&] {
        w.actionText = "Nakup " + num(e.amount) + " jednotek typu " + e.armyType + " na " + e.place +
                       ". Cena " + num(price) + "ml nektaru.";
    });
    ctx.step([&] {
        const std::int16_t units = checked16(ctx.field(e.place).armyCount + std::int64_t{e.amount});
        ctx.changeField(e.place).armyCount = units;
    });
    ctx.step([&] { ctx.changeField(e.place).armyType = e.armyType; });
    ctx.step([&] {
        Player& owner = ctx.ownerOf(e.place);
        owner.moves = checked16(owner.moves - std::int64_t{1});
    });
    ctx.step([&] { w.actionText += std::string(kLineBreak) + "Akce stala 1 tah."; });
}

void ApplyConvertGround(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const ReplayEvent& e = ctx.event();
    const std::int16_t newYield = TerrainYield(e.newTerrain());
    ctx.step([&] { w.actionText = "Pretvoreni zeme na " + e.place + " na " + e.newTerrain(); });
    const Tile* field = nullptr;
    Player* owner = nullptr;
    ctx.step([&] {
        field = &ctx.field(e.place);
        owner = &ctx.player(field->owner);
    });
    ctx.step([&] {
        owner->nectarPerHour =
            checked16(owner->nectarPerHour - std::int64_t{TerrainYield(field->terrain)});
    });
    ctx.step([&] { owner->nectarPerHour = checked16(owner->nectarPerHour + std::int64_t{newYield}); });
    ctx.step([&] { owner->moves = checked16(owner->moves - std::int64_t{1}); });
    ctx.step([&] {
        owner->nectar = checked32(owner->nectar - std::int64_t{checked16(newYield * kConversionCostHours)});
    });
    ctx.step([&] { ctx.changeField(e.place).terrain = e.newTerrain(); });
    ctx.step([&] {
        w.actionText += std::string(kLineBreak) + "Akce stala 1 tah a " +
                        num(checked16(newYield * kConversionCostHours)) + "ml nektaru.";
    });
}

void ApplyTrade(RuleContext& ctx) {
    WorldState& w = ctx.world;
    const ReplayEvent& e = ctx.event();
    ctx.step([&] { w.actionText = "Poslani surovin:" + e.sender() + " -> " + e.receiver(); });
    ctx.step([&] {
        Player& sender = ctx.player(e.sender());
        sender.nectar = checked32(sender.nectar - std::int64_t{e.amount});
    });
    ctx.step([&] {
        Player& receiver = ctx.player(e.receiver());
        receiver.nectar = checked32(receiver.nectar + std::int64_t{e.amount});
    });
}

}  // namespace trelvin
