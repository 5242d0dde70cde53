#include "view/visibility.h"

#include <algorithm>

#include "model/field_addressing.h"

namespace trelvin {

void UpdateVisibility(WorldState& world, std::string_view viewSide) {
    if (!world.loaded) return;
    const int last = world.lastTileIndex();
    for (int k = 1; k <= last; ++k) world.tiles[k].visible = viewSide.empty();
    // A table left by an earlier replay after a failed load may not match the map's size.
    if (viewSide.empty() || world.mapWidth == 0) return;

    const int width = world.mapWidth;
    const int height = world.mapHeight;
    for (int k = 1; k <= last; ++k) {
        const Player& owner = world.players[PlayerIndex(world, world.tiles[k].owner)];
        if (owner.side != viewSide) continue;
        const int row = (k - 1) / width;
        const int column = k - 1 - row * width;
        for (int c = std::max(0, column - 1); c <= std::min(width - 1, column + 1); ++c) {
            for (int r = std::max(0, row - 1); r <= std::min(height - 1, row + 1); ++r) {
                const int neighbour = r * width + c + 1;
                if (neighbour <= last) world.tiles[neighbour].visible = true;
            }
        }
    }
}

}  // namespace trelvin
