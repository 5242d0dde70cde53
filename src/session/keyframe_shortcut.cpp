#include "session/keyframe_shortcut.h"

namespace trelvin {

int KeyframeShortcut::shortcutTo(int target) const {
    const Keyframe* frame = history_.keyframes.nearest(world_, target);
    return frame ? frame->event : 0;
}

void KeyframeShortcut::reportAgain(int index, Reporter& reporter) const {
    for (const std::string& text : history_.log.event(index).messages) reporter.report(text);
}

void KeyframeShortcut::restore(int event) {
    if (const Keyframe* frame = history_.keyframes.nearest(world_, event)) Keyframes::Restore(*frame, world_);
}

}  // namespace trelvin
