#include "cursor/replay_cursor.h"

#include <algorithm>
#include <exception>

#include "engine/event_executor.h"
#include "model/replay_loader.h"
#include "view/field_pictures.h"

namespace trelvin {

OpenResult ReplayCursor::open(ReplaySource& source, TaskProgress* progress) {
    history_ = {};  // the keyframes of the replay being replaced must not stand for the new one
    frame_ = {};    // free land until the first move
    OpenResult result;
    result.load = LoadReplay(world_, source, progress);
    position_ = 1;
    apply(1, nullptr, result.first);
    try {
        history_ = ReplayHistory::Build(world_);
    } catch (const std::exception&) {
        history_ = {};  // no room for the history: moves rebuild from the first action
    }
    return result;
}

MoveResult ReplayCursor::first(MoveWatcher* watcher) { return applyAt(1, watcher); }

MoveResult ReplayCursor::back(MoveWatcher* watcher) {
    MoveResult result;
    if (position_ > 0) --position_;
    rebuild(position_, false, watcher, result);
    settle(watcher);
    return result;
}

MoveResult ReplayCursor::forward(MoveWatcher* watcher) {
    return applyAt(position_ < world_.eventCount ? position_ + 1 : position_, watcher);
}

MoveResult ReplayCursor::applyAt(int position, MoveWatcher* watcher) {
    MoveResult result;
    position_ = position;
    if (watcher) watcher->positionSet(position_);
    apply(position_, watcher, result);
    redraw();
    return result;
}

MoveResult ReplayCursor::last(MoveWatcher* watcher) {
    MoveResult result;
    // The bound is read once: the count stays what it was when the rebuild began.
    const int count = world_.eventCount;
    if (rebuild(count, true, watcher, result)) position_ = count;
    settle(watcher);
    return result;
}

MoveResult ReplayCursor::jumpTo(int target, MoveWatcher* watcher) {
    MoveResult result;
    position_ = std::clamp(target, 1, std::max(actionsRead(), 1));
    rebuild(position_, false, watcher, result);
    settle(watcher);
    return result;
}

bool ReplayCursor::walkTo(int target, TaskProgress* progress, int progressTotal) {
    bare_.findAll(world_, fields_.redrawn);
    MoveResult passedOver;
    position_ = 1;
    while (true) {
        apply(position_, nullptr, passedOver, false);
        bare_.note(world_, lastOutcome_);
        // The redraw after each step writes what lasts: grass where an owned field can get it.
        if (viewMode_ && bare_.anyOwned(world_)) RevealForView(world_, *viewMode_, fields_.redrawn);
        if (position_ >= target) break;
        if (progress && !progress->keepGoing(std::uint64_t(position_), std::uint64_t(std::max(progressTotal, target))))
            return false;
        ++position_;
    }
    redraw();
    return true;
}

void ReplayCursor::setMap(ViewMode mode, MapFields fields) {
    viewMode_ = mode;
    fields_ = fields;
}

void ReplayCursor::setViewMode(ViewMode mode) {
    viewMode_ = mode;
    redraw();
}

bool ReplayCursor::rebuild(int last, bool track, MoveWatcher* watcher, MoveResult& result) {
    const Keyframe* keyframe = history_.keyframes.nearest(world_, last);
    const int shortcut = keyframe ? keyframe->event : 0;
    const auto stopHere = [&](int index) { return watcher && !watcher->keepGoing(index, last); };
    if (keyframe) {
        // The actions passed over take no time but their message boxes.
        for (const int index : history_.keyframes.reportingEvents()) {
            if (index > shortcut) break;
            if (track) position_ = index;
            for (const std::string& text : history_.log.event(index).messages) report({index, text}, watcher, result);
            if (stopHere(index)) {
                position_ = index;
                reachQuietly(index, result);
                result.stopped = true;
                return false;
            }
        }
        restore(*keyframe);
        result.keyframe = shortcut;
    }
    for (int index = shortcut + 1; index <= last; ++index) {
        if (track) position_ = index;
        apply(index, watcher, result);
        if (stopHere(index)) {
            position_ = index;
            result.stopped = true;
            return false;
        }
    }
    return true;
}

void ReplayCursor::reachQuietly(int event, MoveResult& result) {
    const Keyframe* keyframe = history_.keyframes.nearest(world_, event);
    const int shortcut = keyframe ? keyframe->event : 0;
    if (keyframe) restore(*keyframe);
    for (int index = shortcut + 1; index <= event; ++index) apply(index, nullptr, result, false);
}

void ReplayCursor::restore(const Keyframe& keyframe) {
    history_.keyframes.restore(keyframe, world_);
    lastApplied_ = 0;  // the keyframe's own action was applied in the pass alone
}

void ReplayCursor::apply(int event, MoveWatcher* watcher, MoveResult& result, bool tell) {
    lastOutcome_ = ExecuteEvent(world_, static_cast<std::int16_t>(event));
    lastApplied_ = event;
    result.applied.push_back(event);
    if (tell)
        for (const std::string& text : lastOutcome_.messages) report({event, text}, watcher, result);
}

void ReplayCursor::report(const EventReport& told, MoveWatcher* watcher, MoveResult& result) {
    result.reports.push_back(told);
    if (watcher) watcher->reported(told);
}

void ReplayCursor::settle(MoveWatcher* watcher) {
    if (watcher) watcher->positionSet(position_);
    redraw();
}

void ReplayCursor::redraw() {
    if (!viewMode_) return;
    RevealForView(world_, *viewMode_, fields_.redrawn);
    frame_ = ChooseFrame(world_, *viewMode_, fields_, position_, tookHeadquartersAt(position_));
}

bool ReplayCursor::tookHeadquartersAt(int event) const {
    if (event == lastApplied_) return lastOutcome_.tookHeadquarters();
    return event >= 1 && event <= history_.log.size() && history_.log.event(event).headquartersTaken;
}

}  // namespace trelvin
