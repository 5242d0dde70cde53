#include "session/keyframe_shortcut.h"

namespace trelvin {

int KeyframeShortcut::shortcutTo(int target) const {
    const Keyframe* frame = history_.keyframes.nearest(world_, target);
    return frame ? frame->event : 0;
}

bool KeyframeShortcut::reportAgain(int index, Reporter& reporter) const {
    const std::vector<std::string>& messages = history_.log.event(index).messages;
    for (const std::string& text : messages) reporter.report(text);
    return !messages.empty();
}

void KeyframeShortcut::restore(int event) {
    if (const Keyframe* frame = history_.keyframes.nearest(world_, event)) Keyframes::Restore(*frame, world_);
}

}  // namespace trelvin
