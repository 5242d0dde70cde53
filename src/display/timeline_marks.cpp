#include "display/timeline_marks.h"

#include <algorithm>

namespace trelvin {

namespace {

bool sameDay(const DateTime& a, const DateTime& b) {
    return a.day() == b.day() && a.month() == b.month() && a.year() == b.year();
}

}  // namespace

TimelineMarks TimelineMarksOf(const ActionLog& log, int eventCount) {
    TimelineMarks marks;
    const auto add = [&marks](TimelineMark kind, int event) { marks[static_cast<std::size_t>(kind)].push_back(event); };
    const int logged = std::min(log.size(), std::max(eventCount, 0));
    for (int i = 1; i <= logged; ++i) {
        const LoggedEvent& e = log.event(i);
        if (e.startsAnHour && i > 1) add(TimelineMark::Hour, i);
        if (i > 1 && !sameDay(e.time, log.event(i - 1).time)) add(TimelineMark::Day, i);
        if (e.action == Action::Start) add(TimelineMark::Start, i);
        if (e.action == Action::EndHoldFire) add(TimelineMark::ProtectionEnd, i);
        if (e.headquartersTaken) add(TimelineMark::Capture, i);
        if (!e.messages.empty()) add(TimelineMark::Failure, i);
    }
    return marks;
}

}  // namespace trelvin
