#include "engine/event_executor.h"

#include <array>
#include <exception>
#include <string_view>

#include "engine/rules.h"

namespace trelvin {

namespace {

struct RuleEntry {
    std::string_view action;
    void (*apply)(RuleContext&);
};

// Compared in this order; the first match wins.
constexpr std::array<RuleEntry, 12> kRules{{
    {"create_world", &ApplyCreateWorld},
    {"end_hld_fire", &ApplyEndHoldFire},
    {"add_rounds", &ApplyAddRounds},
    {"attack", &ApplyAttack},
    {"move", &ApplyMove},
    {"retreat", &ApplyRetreat},
    {"start", &ApplyStart},
    {"end", &ApplyEnd},
    {"create_hq", &ApplyCreateHq},
    {"convert_gnd", &ApplyConvertGround},
    {"buy", &ApplyBuy},
    {"trade", &ApplyTrade},
}};

}  // namespace

void ExecuteEvent(WorldState& world, std::int16_t index, Reporter& reporter) {
    if (index < 1 || index > world.lastEventIndex()) {
        reporter.report(std::string(kExecuteErrorPrefix) + "Index mimo rozsah: udalost " +
                        std::to_string(index) + " neexistuje");
        return;
    }
    RuleContext ctx(world, index, reporter);
    try {
        world.currentTime = world.events[index].time;
        const std::string& action = world.events[index].action;
        for (const RuleEntry& rule : kRules) {
            if (rule.action == action) {
                rule.apply(ctx);
                break;
            }
        }
    } catch (const EventStopped&) {
    } catch (const std::exception& error) {
        reporter.report(std::string(kExecuteErrorPrefix) + error.what());
    }
}

}  // namespace trelvin
