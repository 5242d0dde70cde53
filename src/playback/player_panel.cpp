#include "playback/player_panel.h"

#include "shell/core_text.h"

namespace trelvin {

PlayerPanelTexts PlayerPanelFor(const trelvin::WorldState& world, int playerIndex) {
    if (playerIndex < 1 || playerIndex > world.lastPlayerIndex()) return {};
    const Player& player = world.players[static_cast<std::size_t>(playerIndex)];
    if (!player.playing) return {QString(), QString(), QStringLiteral("Uz nehraje"), QString()};

    const auto hourly = [](auto amount, int perHour) {
        return QString::number(amount) + QStringLiteral(" (+ ") + QString::number(perHour) +
               QStringLiteral("/hod)");
    };
    return {hourly(player.moves, world.speed), hourly(player.nectar, player.nectarPerHour),
            FromCore(player.hqField),
            QString::number(player.territory)};
}

}  // namespace trelvin
