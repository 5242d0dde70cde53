#include "display/world_texts.h"

#include "display/shown_text.h"
#include "model/field_addressing.h"
#include "model/text_encoding.h"
#include "view/field_details.h"

namespace trelvin {

namespace {

std::string utf8(const std::string& cp1250) { return cp1250ToUtf8(cp1250); }

std::string withHourly(std::int64_t amount, int perHour) {
    return std::to_string(amount) + " (+ " + std::to_string(perHour) + "/hod)";
}

}  // namespace

std::string FailedLoadText(int actionsRead) {
    if (actionsRead < 1) return "Replay se nepodarilo nacist: neni v nem zadna akce";
    return "Replay se nepodarilo nacist: ukazuji " + std::to_string(actionsRead) + " akci nactenych pred chybou";
}

std::string DescriptionText(const WorldState& world) { return ShownText(world.actionText); }

std::string PositionText(int position, int eventCount) {
    return std::to_string(position) + " (" + std::to_string(eventCount) + ")";
}

std::optional<DateTime> ClockTimeAt(const WorldState& world, int position) {
    if (position < 1 || position > world.lastEventIndex()) return std::nullopt;
    return world.events[static_cast<std::size_t>(position)].time;
}

std::vector<std::string> PlayerEntries(const WorldState& world) {
    std::vector<std::string> entries;
    for (int i = 1; i <= world.lastPlayerIndex(); ++i) {
        const Player& player = world.players[static_cast<std::size_t>(i)];
        entries.push_back(utf8(player.name + " (" + player.side + ")"));
    }
    return entries;
}

PlayerStanding PlayerStandingOf(const WorldState& world, int playerIndex) {
    if (playerIndex < 1 || playerIndex > world.lastPlayerIndex()) return {};
    const Player& player = world.players[static_cast<std::size_t>(playerIndex)];
    if (!player.playing) return {"", "", "Uz nehraje", ""};
    return {withHourly(player.moves, world.speed), withHourly(player.nectar, player.nectarPerHour), utf8(player.hqField),
            std::to_string(player.territory)};
}

std::string FieldNameText(const WorldState& world, int k) { return utf8(FieldName(world, k)); }

std::optional<FieldTexts> FieldDetails(const WorldState& world, std::string_view name, ViewMode mode) {
    const std::optional<FieldInspection> labels = InspectField(world, utf8ToCp1250(name), mode);
    if (!labels) return std::nullopt;
    return FieldTexts{utf8(labels->terrain), utf8(labels->owner), utf8(labels->armyType), utf8(labels->armyCount)};
}

}  // namespace trelvin
