#include "engine/event_executor.h"

#include <array>
#include <exception>
#include <new>

#include "engine/rules.h"
#include "model/action_table.h"

namespace trelvin {

namespace {

// The rule of each action of the action table, in its order.
struct RuleEntry {
    Action action;
    void (*apply)(RuleContext&);
};
constexpr std::array<RuleEntry, kActionCount> kRules{{
    {Action::CreateWorld, ApplyCreateWorld},
    {Action::CreateHq, ApplyCreateHq},
    {Action::Start, ApplyStart},
    {Action::AddRounds, ApplyAddRounds},
    {Action::EndHoldFire, ApplyEndHoldFire},
    {Action::End, ApplyEnd},
    {Action::Attack, ApplyAttack},
    {Action::Move, ApplyMove},
    {Action::Retreat, ApplyRetreat},
    {Action::Buy, ApplyBuy},
    {Action::ConvertGround, ApplyConvertGround},
    {Action::Trade, ApplyTrade},
    {Action::Other, [](RuleContext&) {}},  // a keyword without a rule changes nothing
}};

static_assert(InActionOrder(kRules));

}  // namespace

EventOutcome ExecuteEvent(WorldState& world, std::int16_t index) {
    EventOutcome outcome;
    if (index < 1 || index > world.lastEventIndex()) {
        outcome.messages.push_back(std::string(kExecuteErrorPrefix) + "Index mimo rozsah: udalost " +
                                   std::to_string(index) + " neexistuje");
        return outcome;
    }
    RuleContext ctx(world, index, outcome);
    try {
        world.currentTime = world.events[index].time;
        kRules[static_cast<std::size_t>(world.events[index].action)].apply(ctx);
    } catch (const EventStopped&) {
    } catch (const std::bad_alloc&) {
        outcome.messages.push_back(std::string(kExecuteErrorPrefix) + "Nedostatek pameti");
    } catch (const std::exception& error) {
        outcome.messages.push_back(std::string(kExecuteErrorPrefix) + error.what());
    }
    ctx.finish();
    return outcome;
}

}  // namespace trelvin
