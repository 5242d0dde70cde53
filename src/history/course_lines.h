#pragma once
// The line of one player in a chart over the whole replay: a step at each event where the value
// changed, broken where the place was empty, and ended where the player left the game. While
// out of the game a player has no values to chart, as the player panel shows none.
#include <cstdint>
#include <vector>

#include "history/player_series.h"

namespace trelvin {

struct CoursePoint {
    int event;
    std::int32_t value;
    bool operator==(const CoursePoint&) const = default;
};

struct CourseLine {
    std::vector<CoursePoint> points;
    bool endsOut = false;  // the player left the game at the last point
};

// The lines of player `place` over events 1 .. `lastEvent`.
std::vector<CourseLine> CourseLinesOf(const PlayerSeries& series, int place, Quantity quantity, int lastEvent);

}  // namespace trelvin
