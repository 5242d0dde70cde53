#include "display/timeline_marks.h"

#include <algorithm>
#include <cmath>

#include "display/round_step.h"

namespace trelvin {

TimelineMarks TimelineMarksOf(const ActionLog& log, int eventCount) {
    TimelineMarks marks;
    const auto add = [&marks](TimelineMark kind, int event) { marks[static_cast<std::size_t>(kind)].push_back(event); };
    const int logged = std::min(log.size(), std::max(eventCount, 0));
    for (int i = 1; i <= logged; ++i) {
        const LoggedEvent& e = log.event(i);
        if (e.startsAnHour && i > 1) add(TimelineMark::Hour, i);
        if (i > 1 && e.time.midnight() != log.event(i - 1).time.midnight()) add(TimelineMark::Day, i);
        if (e.action == Action::Start) add(TimelineMark::Start, i);
        if (e.action == Action::EndHoldFire) add(TimelineMark::ProtectionEnd, i);
        if (e.headquartersTaken) add(TimelineMark::Capture, i);
        if (!e.messages.empty()) add(TimelineMark::Failure, i);
    }
    return marks;
}

int TimelineScale::columnOf(int event) const {
    if (last <= first) return left;
    return left + int(std::lround(double(event - first) / (last - first) * (width - 1)));
}

int TimelineScale::eventAt(int x) const {
    if (last <= first) return first;
    const double share = std::clamp(double(x - left) / std::max(width - 1, 1), 0.0, 1.0);
    return first + static_cast<int>(share * (last - first) + 0.5);
}

namespace {

// Where a label starts: clear of its group's last mark.
constexpr int kLabelGap = 3;

std::string shortCount(int count) { return std::to_string(count / 1000) + "k"; }

}  // namespace

std::vector<MarkGroup> GroupMarks(const TimelineMarks& marks, const std::vector<TimelineMark>& kinds,
                                  const TimelineScale& scale, const std::function<int(const std::string&)>& widthOf) {
    std::vector<MarkGroup> groups;
    for (const TimelineMark kind : kinds) {
        const std::vector<int>& events = MarksOf(marks, kind);
        const auto from = std::lower_bound(events.begin(), events.end(), scale.first);
        const auto to = std::upper_bound(events.begin(), events.end(), scale.last);
        for (auto it = from; it != to; ++it) {
            const int x = scale.columnOf(*it);
            if (!groups.empty() && groups.back().kind == kind && x - groups.back().right <= kMarkGroupGap) {
                groups.back().right = x;
                ++groups.back().count;
            } else {
                groups.push_back({kind, x, x, 1, 0, 0, {}});
            }
        }
    }
    std::stable_sort(groups.begin(), groups.end(), [](const MarkGroup& a, const MarkGroup& b) { return a.left < b.left; });
    // Each count right of its group, clear of every group's marks and of the count before it.
    int taken = scale.left - 1;  // where the last label placed ends
    for (std::size_t i = 0; i < groups.size(); ++i) {
        MarkGroup& group = groups[i];
        if (group.count < 2) continue;
        const int start = std::max(group.right + kLabelGap, taken + kLabelGap);
        int end = scale.left + scale.width;  // the first column the label may not reach
        for (std::size_t j = 0; j < groups.size(); ++j)
            if (j != i && groups[j].right >= start - 1) end = std::min(end, groups[j].left - 1);
        if (end <= start) continue;
        for (const std::string& text : {std::to_string(group.count), shortCount(group.count)}) {
            if (text == "0k") break;
            const int width = widthOf(text);
            if (start + width > end) continue;
            group.labelLeft = start;
            group.labelWidth = width;
            group.label = text;
            taken = start + width;
            break;
        }
    }
    return groups;
}

const MarkGroup* GroupAt(const std::vector<MarkGroup>& groups, TimelineMark kind, int x) {
    for (const MarkGroup& group : groups) {
        const int right = group.labelWidth > 0 ? group.labelLeft + group.labelWidth : group.right;
        if (group.kind == kind && x >= group.left && x <= right) return &group;
    }
    return nullptr;
}

std::vector<int> ScaleTicks(const TimelineScale& scale, int spacing) {
    std::vector<int> ticks;
    if (scale.last <= scale.first || scale.width < 2) return ticks;
    const double pixelsPerEvent = double(scale.width - 1) / (scale.last - scale.first);
    const long long step = RoundStepAtLeast(spacing / pixelsPerEvent);
    for (long long event = (scale.first + step - 1) / step * step; event <= scale.last; event += step)
        ticks.push_back(int(event));
    return ticks;
}

}  // namespace trelvin
