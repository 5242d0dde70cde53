#pragma once
// One replay as the viewer moves through it: the world, the history of the pass made when it
// was opened, the position, and the frame of the map there. Every front end moves with it. A
// move applies its actions, then what a redraw of the map writes into the world in the way of
// viewing (the visible flags, and grass in the empty terrain of an owned field that is seen),
// then draws the map's frame; the front end shows the frame and the texts of the world.
//
// The world can only be built forwards: a move backwards or to the end reaches the state that
// applying the actions from the first again gives, starting at the nearest keyframe of the
// pass. What the actions a keyframe passes over reported is told again from the pass, so every
// move tells exactly what the rebuild from the first action tells.
#include <optional>

#include "cursor/bare_fields.h"
#include "cursor/move_result.h"
#include "engine/event_outcome.h"
#include "history/replay_history.h"
#include "model/replay_source.h"
#include "model/task_progress.h"
#include "model/world_state.h"
#include "view/map_frame.h"

namespace trelvin {

class ReplayCursor {
public:
    ReplayCursor() = default;
    // A replay loaded elsewhere, before its first action. It has no history: a move backwards
    // rebuilds from the first action.
    explicit ReplayCursor(WorldState loaded) : world_(std::move(loaded)) {}

    // Loads a replay (a failed load keeps what it read, and the count the world had), applies
    // its first action at position 1 and makes the pass over all of its actions. The map is not
    // redrawn: it shows free land until the first move.
    OpenResult open(ReplaySource& source, TaskProgress* progress = nullptr);

    const WorldState& world() const { return world_; }
    const ReplayHistory& history() const { return history_; }
    // The action applied last; 0 before the first replay is opened.
    int position() const { return position_; }
    int eventCount() const { return world_.eventCount; }
    // The actions the last open read, which the list, the timeline and the jumps offer: all of a
    // replay that loaded, those before the failure of one that did not (whose count stays the
    // count of the replay before).
    int actionsRead() const { return world_.lastEventIndex(); }

    // The moves of the step buttons: |<--, <----, ---->, -->|.
    MoveResult first(MoveWatcher* watcher = nullptr);
    MoveResult back(MoveWatcher* watcher = nullptr);
    MoveResult forward(MoveWatcher* watcher = nullptr);
    MoveResult last(MoveWatcher* watcher = nullptr);
    // Straight to `target` (kept within the actions read) as a step back gets there.
    MoveResult jumpTo(int target, MoveWatcher* watcher = nullptr);
    // Reaches `target` as the step buttons do from the first action, one step at a time with
    // the map's redraw after each; what the actions report is passed over. False when
    // `progress`, asked before every step with the action reached of the whole (`progressTotal`,
    // or the walk when that is smaller), stopped it.
    bool walkTo(int target, TaskProgress* progress = nullptr, int progressTotal = 0);

    // What the map shows from the next redraw on: the way of viewing and the fields. A cursor
    // without a map redraws nothing.
    void setMap(ViewMode mode, MapFields fields);
    // The way of viewing chosen: the map is redrawn in it at once.
    void setViewMode(ViewMode mode);
    std::optional<ViewMode> viewMode() const { return viewMode_; }
    // The map after the last redraw; empty before it.
    const MapFrame& frame() const { return frame_; }
    // What the action applied last did.
    const EventOutcome& lastOutcome() const { return lastOutcome_; }

private:
    // A step that sets the position, then applies its action: |<-- and ---->.
    MoveResult applyAt(int position, MoveWatcher* watcher);
    // Leaves the world as applying actions 1 .. `last` does, the position following the
    // actions when `track`; false when the watcher stopped it, at the action reached.
    bool rebuild(int last, bool track, MoveWatcher* watcher, MoveResult& result);
    // Reaches the state after `event` without a report: those were told already.
    void reachQuietly(int event, MoveResult& result);
    void restore(const Keyframe& keyframe);
    void apply(int event, MoveWatcher* watcher, MoveResult& result, bool tell = true);
    void report(const EventReport& report, MoveWatcher* watcher, MoveResult& result);
    // The end of a move that sets the position once its actions are applied: the watcher hears
    // it, then the map is redrawn.
    void settle(MoveWatcher* watcher);
    void redraw();
    bool tookHeadquartersAt(int event) const;

    WorldState world_;
    ReplayHistory history_;
    int position_ = 0;
    int lastApplied_ = 0;
    EventOutcome lastOutcome_;  // of the action applied last
    std::optional<ViewMode> viewMode_;
    MapFields fields_;
    MapFrame frame_;
    BareFields bare_;
};

}  // namespace trelvin
