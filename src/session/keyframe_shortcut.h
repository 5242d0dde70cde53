#pragma once
// The keyframes of the pass made at opening as the playback's shortcut: a rebuild restores the
// nearest one and reports again, from the action log, what the events it passes over reported.
#include "history/replay_history.h"
#include "model/world_state.h"
#include "playback/playback.h"

namespace trelvin {

class KeyframeShortcut : public RebuildShortcut {
public:
    KeyframeShortcut(WorldState& world, const ReplayHistory& history) : world_(world), history_(history) {}

    int shortcutTo(int target) const override;
    const std::vector<int>& reportingEvents() const override { return history_.keyframes.reportingEvents(); }
    void reportAgain(int index, Reporter& reporter) const override;
    void restore(int event) override;

private:
    WorldState& world_;
    const ReplayHistory& history_;
};

}  // namespace trelvin
