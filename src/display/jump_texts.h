#pragma once
// What finding an action says: a jump to the next or previous action of a kind that finds none,
// and the answer to an action's number as the user typed it.
#include <string>
#include <string_view>

#include "history/action_log.h"

namespace trelvin {

// "Dale uz zadny utok neni", "Drive zadna akce s chybou nebyla": what was looked for, and which way.
std::string NoSuchActionText(EventKind kind, bool forward);

// What the user typed for an action of 1 .. `eventCount`: the action, or why it names none.
struct JumpEntry {
    int event = 0;        // 0 when it names none
    std::string problem;  // empty when it names one
};
JumpEntry ReadJumpEntry(std::string_view typed, int eventCount);

}  // namespace trelvin
