#pragma once
// Which step buttons may be pressed and whether the position stands at either end, as four
// separate tests of the position against the event count leave them. A position past the count
// (after a failed load) leaves the forward group as it was.
namespace trelvin {

struct StepButtons {
    bool forwardEnabled = false;   // one forward, to the end, play forwards
    bool backwardEnabled = false;  // one back, to the first, play backwards
    bool atBegin = false;
    bool atEnd = false;

    void follow(int position, int eventCount);
    bool operator==(const StepButtons&) const = default;
};

}  // namespace trelvin
