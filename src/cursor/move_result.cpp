#include "cursor/move_result.h"

namespace trelvin {

std::vector<EventReport> NewsOfJump(const MoveResult& jump, int from, int reached) {
    // Staying where it was, a jump tells nothing new.
    const bool forward = reached >= from;
    std::vector<EventReport> news;
    for (const EventReport& report : jump.reports)
        if (forward ? report.event > from && report.event <= reached : report.event == reached) news.push_back(report);
    return news;
}

}  // namespace trelvin
