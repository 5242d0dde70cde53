#pragma once
// What a move through a replay did and told, and what a front end hears while it is under way.
#include <string>
#include <vector>

#include "model/replay_loader.h"

namespace trelvin {

// One message box: the action that reported it, and its text (Windows-1250).
struct EventReport {
    int event = 0;
    std::string text;
    bool operator==(const EventReport&) const = default;
};

struct MoveResult {
    // The keyframe the move started from (its action); 0 for none.
    int keyframe = 0;
    // The actions applied, in order.
    std::vector<int> applied;
    // What the actions on the way reported, in order; those a keyframe passed over report again
    // what they reported when the replay was opened.
    std::vector<EventReport> reports;
    // The progress stopped the move at the action it had reached.
    bool stopped = false;
};

// What a jump from `from` that reached `reached` tells: the reports of the actions the user had
// not passed yet, those after `from` up to `reached` going forward, the target's own going back;
// nothing when it stays.
std::vector<EventReport> NewsOfJump(const MoveResult& jump, int from, int reached);

// What opening a replay came to: the load, and applying its first action.
struct OpenResult {
    LoadOutcome load;
    MoveResult first;
};

class MoveWatcher {
public:
    virtual ~MoveWatcher() = default;
    // The position is set: before its actions for a step forwards or to the first action, once
    // they are applied for the others. The step buttons follow it then.
    virtual void positionSet(int) {}
    // An action on the way reported a message; the window shows its box now.
    virtual void reported(const EventReport&) {}
    // How far a rebuild has come, in actions of `total`; false stops it at the action reached.
    virtual bool keepGoing(int, int) { return true; }
};

}  // namespace trelvin
