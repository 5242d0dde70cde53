#include "engine/event_executor.h"

#include <exception>
#include <new>

#include "engine/rules.h"
#include "model/action_keyword.h"

namespace trelvin {

namespace {

void applyRule(Action action, RuleContext& ctx) {
    switch (action) {
        case Action::CreateWorld: return ApplyCreateWorld(ctx);
        case Action::CreateHq: return ApplyCreateHq(ctx);
        case Action::Start: return ApplyStart(ctx);
        case Action::AddRounds: return ApplyAddRounds(ctx);
        case Action::EndHoldFire: return ApplyEndHoldFire(ctx);
        case Action::End: return ApplyEnd(ctx);
        case Action::Attack: return ApplyAttack(ctx);
        case Action::Move: return ApplyMove(ctx);
        case Action::Retreat: return ApplyRetreat(ctx);
        case Action::Buy: return ApplyBuy(ctx);
        case Action::ConvertGround: return ApplyConvertGround(ctx);
        case Action::Trade: return ApplyTrade(ctx);
        case Action::Other: return;  // a keyword without a rule changes nothing
    }
}

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
        applyRule(ActionOf(world.events[index].action), ctx);
    } catch (const EventStopped&) {
    } catch (const std::bad_alloc&) {
        reporter.report(std::string(kExecuteErrorPrefix) + "Nedostatek pameti");
    } catch (const std::exception& error) {
        reporter.report(std::string(kExecuteErrorPrefix) + error.what());
    }
}

}  // namespace trelvin
