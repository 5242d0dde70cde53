#include "history/course_lines.h"

#include <algorithm>

namespace trelvin {

std::vector<CourseLine> CourseLinesOf(const PlayerSeries& series, int place, Quantity quantity, int lastEvent) {
    std::vector<CourseLine> lines;
    CourseLine* open = nullptr;
    std::int32_t value = 0;
    for (const PlayerSeries::Change& change : series.changesOf(place)) {
        if (change.event > lastEvent) break;
        const bool charted = change.who >= 0 && change.standing.playing;
        if (open && !charted) {
            // Up to the event that ended it, at the value it had.
            open->points.push_back({change.event, value});
            open->endsOut = change.who >= 0;
            open = nullptr;
        } else if (open && change.standing.value(quantity) != value) {
            value = change.standing.value(quantity);
            open->points.push_back({change.event, open->points.back().value});
            open->points.push_back({change.event, value});
        } else if (!open && charted) {
            value = change.standing.value(quantity);
            open = &lines.emplace_back();
            open->points.push_back({change.event, value});
        }
    }
    if (open) open->points.push_back({lastEvent, value});
    return lines;
}

std::vector<CoursePoint> FitToColumns(const std::vector<CoursePoint>& points, int lastEvent, int columns) {
    const std::int64_t span = std::max(lastEvent - 1, 1);
    const auto columnOf = [&](int event) {
        return std::clamp<std::int64_t>(std::int64_t{event - 1} * columns / span, 0, columns - 1);
    };
    std::vector<CoursePoint> fitted;
    for (auto from = points.begin(); from != points.end();) {
        const std::int64_t column = columnOf(from->event);
        const auto to = std::find_if(from, points.end(), [&](const CoursePoint& p) { return columnOf(p.event) != column; });
        if (to - from <= 4) {
            fitted.insert(fitted.end(), from, to);
        } else {
            const auto [lowest, highest] = std::minmax_element(
                from, to, [](const CoursePoint& a, const CoursePoint& b) { return a.value < b.value; });
            fitted.push_back(*from);
            fitted.push_back(*std::min(lowest, highest));
            fitted.push_back(*std::max(lowest, highest));
            fitted.push_back(*(to - 1));
        }
        from = to;
    }
    return fitted;
}

}  // namespace trelvin
