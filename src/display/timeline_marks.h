#pragma once
// What the timeline marks over a replay: the full hours (and the days, which stand in for them
// where hours would merge), the start, the end of the protection day, the headquarters taken and
// the actions that reported a failure. Each kind's actions in order.
#include <array>
#include <vector>

#include "history/action_log.h"

namespace trelvin {

enum class TimelineMark { Hour, Day, Start, ProtectionEnd, Capture, Failure };
inline constexpr std::size_t kTimelineMarkKinds = 6;

using TimelineMarks = std::array<std::vector<int>, kTimelineMarkKinds>;

// The marks of actions 1 .. `eventCount` of the log.
TimelineMarks TimelineMarksOf(const ActionLog& log, int eventCount);

inline const std::vector<int>& MarksOf(const TimelineMarks& marks, TimelineMark kind) {
    return marks[static_cast<std::size_t>(kind)];
}

}  // namespace trelvin
