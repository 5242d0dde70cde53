#include "model/action_table.h"

namespace trelvin {

namespace {

using enum Operand;
using enum Reading;

constexpr ActionInfo Info(Action action, std::string_view keyword, ActionFamily family,
                          std::initializer_list<OperandField> operands = {}) {
    ActionInfo info{action, keyword, {}, operands.size(), family};
    std::size_t i = 0;
    for (const OperandField& field : operands) info.operands[i++] = field;
    return info;
}

// In the order of Action. "add_rounds" and "end_hld_fire" are inserted by the loader; a line of
// the file with either keyword carries no operands.
constexpr std::array<ActionInfo, kActionCount> kActions{{
    Info(Action::CreateWorld, "create_world", ActionFamily::Lifecycle, {{Place}}),
    Info(Action::CreateHq, "create_hq", ActionFamily::Lifecycle, {{PlayerName}, {Target}, {Place}}),
    Info(Action::Start, "start", ActionFamily::Lifecycle),
    Info(Action::AddRounds, "add_rounds", ActionFamily::Lifecycle),
    Info(Action::EndHoldFire, "end_hld_fire", ActionFamily::Lifecycle),
    Info(Action::End, "end", ActionFamily::Lifecycle, {{PlayerName}}),
    Info(Action::Attack, "attack", ActionFamily::Attack,
         {{Place}, {Target}, {Amount, LeadingNumber}, {Success, LeadingNumber}, {Survivors, LeadingNumber}}),
    Info(Action::Move, "move", ActionFamily::Move, {{Place}, {Target}, {Amount, StrictNumber}}),
    Info(Action::Retreat, "retreat", ActionFamily::Economy, {{Place}, {Amount, StrictNumber}}),
    Info(Action::Buy, "buy", ActionFamily::Economy, {{Place}, {ArmyType}, {Amount, LeadingNumber}}),
    Info(Action::ConvertGround, "convert_gnd", ActionFamily::Economy, {{Place}, {Target}}),
    Info(Action::Trade, "trade", ActionFamily::Economy, {{Place}, {Target}, {Amount, StrictNumber}}),
    Info(Action::Other, "", ActionFamily::None),
}};

static_assert(InActionOrder(kActions));

}  // namespace

Action ActionOf(std::string_view keyword) {
    for (const ActionInfo& info : kActions)
        if (info.action != Action::Other && info.keyword == keyword) return info.action;
    return Action::Other;
}

const ActionInfo& InfoOf(Action action) { return kActions[static_cast<std::size_t>(action)]; }

}  // namespace trelvin
