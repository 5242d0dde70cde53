#pragma once
// What the timeline marks over a replay: the full hours (and the days, which stand in for them
// where hours would merge), the start, the end of the protection day, the headquarters taken and
// the actions that reported a failure. Each kind's actions in order.
#include <array>
#include <functional>
#include <string>
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

// The bar's pixel columns over the actions shown: `first` at column `left`, `last` at the
// column `width` - 1 further.
struct TimelineScale {
    int first = 0;
    int last = 0;
    int left = 0;
    int width = 1;

    int columnOf(int event) const;
    // The action at column x, clamped to the stretch.
    int eventAt(int x) const;
};

// Marks of one kind that lie so close that they read as one mark: at most this many columns apart.
inline constexpr int kMarkGroupGap = 2;

// What one mark on the bar stands for: the marks of a kind from column `left` to `right`, how
// many, and where its count is written (`labelWidth` 0: nowhere, for want of room or of a count).
struct MarkGroup {
    TimelineMark kind;
    int left;
    int right;
    int count;
    int labelLeft = 0;
    int labelWidth = 0;
    std::string label;
};

// The groups of `kinds`' marks within the stretch, left to right, each labelled with its count
// when it stands for several: right of it, where the label fits before the next group and after
// the label before it; thousands are shortened ("12k") where the whole count does not fit, and
// a label that still does not fit is left out. `widthOf` measures a label in pixels.
std::vector<MarkGroup> GroupMarks(const TimelineMarks& marks, const std::vector<TimelineMark>& kinds,
                                  const TimelineScale& scale, const std::function<int(const std::string&)>& widthOf);

// The group of `kind` that column x falls within, its label included; none when x lies on none.
const MarkGroup* GroupAt(const std::vector<MarkGroup>& groups, TimelineMark kind, int x);

// The actions a scale over the stretch names: round numbers (1, 2 or 5 times a power of ten
// apart), at least `spacing` pixels apart.
std::vector<int> ScaleTicks(const TimelineScale& scale, int spacing);

}  // namespace trelvin
