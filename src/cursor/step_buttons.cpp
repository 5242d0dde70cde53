#include "cursor/step_buttons.h"

namespace trelvin {

void StepButtons::follow(int position, int eventCount) {
    if (position == eventCount) {
        forwardEnabled = false;
        atEnd = true;
    }
    if (position > 1) {
        backwardEnabled = true;
        atBegin = false;
    }
    if (position < eventCount) {
        forwardEnabled = true;
        atEnd = false;
    }
    if (position < 2) {
        backwardEnabled = false;
        atBegin = true;
    }
}

}  // namespace trelvin
