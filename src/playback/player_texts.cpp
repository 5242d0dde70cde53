#include "playback/player_texts.h"

#include "bridge/core_text.h"

namespace trelvin {

QStringList PlayerListEntries(const WorldState& world) {
    QStringList entries;
    for (int i = 1; i <= world.lastPlayerIndex(); ++i) {
        const Player& player = world.players[static_cast<std::size_t>(i)];
        entries.append(FromCore(player.name + " (" + player.side + ")"));
    }
    return entries;
}

PlayerPanelTexts PlayerPanelFor(const WorldState& world, int playerIndex) {
    if (playerIndex < 1 || playerIndex > world.lastPlayerIndex()) return {};
    const Player& player = world.players[static_cast<std::size_t>(playerIndex)];
    if (!player.playing) return {QString(), QString(), QStringLiteral("Uz nehraje"), QString()};

    const auto hourly = [](auto amount, int perHour) {
        return QString::number(amount) + QStringLiteral(" (+ ") + QString::number(perHour) +
               QStringLiteral("/hod)");
    };
    return {hourly(player.moves, world.speed), hourly(player.nectar, player.nectarPerHour),
            FromCore(player.hqField), QString::number(player.territory)};
}

}  // namespace trelvin
