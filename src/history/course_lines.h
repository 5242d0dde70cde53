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

// What a chart `columns` pixel columns wide over events 1 .. `lastEvent` needs of a line's points:
// in each column, the first and the last point and the lowest and the highest, in their order, so
// that no peak is lost; a column of four points or fewer keeps them all.
std::vector<CoursePoint> FitToColumns(const std::vector<CoursePoint>& points, int lastEvent, int columns);

}  // namespace trelvin
