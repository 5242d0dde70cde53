#include "model/action_keyword.h"

#include <array>
#include <utility>

namespace trelvin {

namespace {

constexpr std::array<std::pair<Action, std::string_view>, 12> kKeywords{{
    {Action::CreateWorld, "create_world"},
    {Action::CreateHq, "create_hq"},
    {Action::Start, "start"},
    {Action::AddRounds, "add_rounds"},
    {Action::EndHoldFire, "end_hld_fire"},
    {Action::End, "end"},
    {Action::Attack, "attack"},
    {Action::Move, "move"},
    {Action::Retreat, "retreat"},
    {Action::Buy, "buy"},
    {Action::ConvertGround, "convert_gnd"},
    {Action::Trade, "trade"},
}};

}  // namespace

Action ActionOf(std::string_view keyword) {
    for (const auto& [action, name] : kKeywords)
        if (name == keyword) return action;
    return Action::Other;
}

std::string_view KeywordOf(Action action) {
    for (const auto& [known, name] : kKeywords)
        if (known == action) return name;
    return {};
}

}  // namespace trelvin
