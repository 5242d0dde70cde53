#include "history/course_lines.h"

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

}  // namespace trelvin
