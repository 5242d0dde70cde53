#pragma once
// The current position in the event list and the ways of moving it: one event forwards or
// backwards, to either end, and the slide show that steps by itself on its own timer. The world
// can only be built forwards, so every move backwards or to the end reaches the state that
// applying the events from the first again gives, starting at the nearest state kept on the
// way when there is one. Its signals carry the values views need: `positionChanged` comes once
// per move, after all of its events.
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include <QObject>

#include "model/reporter.h"
#include "model/task_progress.h"
#include "model/world_state.h"

class QTimer;

namespace trelvin {

// Applies event `index` (from 1) of the list to the world, reporting to `reporter`.
using ApplyByIndex = std::function<void(std::int16_t index, Reporter& reporter)>;

// Makes the progress of one rebuild from the first event; empty for none.
using RebuildProgress = std::function<std::unique_ptr<TaskProgress>()>;

// States of the world that a rebuild from the first event passes through, kept so that a
// rebuild can start at one of them instead.
class RebuildShortcut {
public:
    virtual ~RebuildShortcut() = default;
    // The latest event at or before `target` whose state can be put into the world as it is
    // now; 0 when the rebuild must apply the events from the first.
    virtual int shortcutTo(int target) const = 0;
    // The events that reported anything on the way, in order.
    virtual const std::vector<int>& reportingEvents() const = 0;
    // Reports again what event `index`, one of those, reported when it was applied.
    virtual void reportAgain(int index, Reporter& reporter) const = 0;
    // Puts the state after event `event`, one that `shortcutTo` gave, into the world.
    virtual void restore(int event) = 0;
};

class Playback : public QObject {
    Q_OBJECT

public:
    // The slide show's two speeds, in milliseconds between steps.
    static constexpr std::int16_t kSlowInterval = 5000;
    static constexpr std::int16_t kFastInterval = 1000;

    // `world` is read for its event count; `apply` changes it.
    Playback(const WorldState& world, Reporter& reporter, ApplyByIndex apply, QObject* parent = nullptr);

    // Index of the event applied last; 0 before the first replay is opened.
    std::int16_t position() const { return position_; }
    // The end flags, as the last `updateButtons` left them.
    bool atBegin() const { return atBegin_; }
    bool atEnd() const { return atEnd_; }
    // Direction of the slide show.
    bool slideForward() const { return slideForward_; }

    // What the buttons may do: the forward group (one forward, to the end, play forwards),
    // the backward group, and stopping the show.
    bool forwardEnabled() const { return forwardEnabled_; }
    bool backwardEnabled() const { return backwardEnabled_; }
    bool stopEnabled() const { return stopEnabled_; }

    bool isPlaying() const;
    // Milliseconds between the steps of the show as last started.
    int interval() const;

    // A rebuild that the progress stops ends at the event applied last: the position stays
    // there, and the views follow as after any move.
    void setRebuildProgress(RebuildProgress makeProgress) { makeProgress_ = std::move(makeProgress); }
    // Rebuilds start from the shortcut's states where it has one; null: always from the first.
    void setRebuildShortcut(RebuildShortcut* shortcut) { shortcut_ = shortcut; }

    // A newly opened replay: position 1 with event 1 applied. The opener refreshes the views
    // and the buttons itself, in its own order, so this announces nothing.
    void openAtFirstEvent();

    // The four steps.
    void first();
    void back();
    void forward();
    void last();

    // Moves straight to event `target` (clamped to 1 .. the count) as a rebuild from the first
    // event, as a step back does; the reports go to `quiet` instead of the message boxes of the
    // steps. Leaves exactly the state the steps would reach.
    void jumpTo(int target, Reporter& quiet);

    // Enables the button groups for the position and records whether it is at either end.
    void updateButtons();

    // Starts or redirects the show: one step at once, then one per `interval` milliseconds.
    void useTimer(bool forward, std::int16_t interval);
    // One tick of the show: a step towards the end it heads for, or the stop once it is there.
    void tSlide_Timer();
    // Stops the show and disables stopping.
    void stop();
    // Stops the timer alone, as a change of the control mode does.
    void halt();
    // Disables stopping, as opening a replay does.
    void disableStop();

signals:
    // The position moved and its events are applied: views follow the world now.
    void positionChanged(int position, int eventCount);
    // The enabled state of a button group changed; all three are given.
    void stepsEnabledChanged(bool backward, bool forward, bool stop);
    void playingChanged(bool playing);

private:
    // Marks a step that applies events or shows message boxes; a tick that falls due meanwhile
    // waits until the outermost one ends, and runs at most once.
    class StepGuard {
    public:
        explicit StepGuard(Playback& playback);
        ~StepGuard();
        StepGuard(const StepGuard&) = delete;
        StepGuard& operator=(const StepGuard&) = delete;

    private:
        Playback& playback_;
    };

    // Leaves the world as applying events 1 .. `last` in order would, with their reports, the
    // position following when `trackPosition`; false when the progress stopped it early, the
    // position then at the event reached last. Events a shortcut passes over report again.
    bool rebuild(std::int16_t last, bool trackPosition, Reporter& reporter);
    // Reaches the state after `event` without a report: those of its events were given already.
    void reachQuietly(int event);
    void setEnabled(bool& state, bool enabled);
    void setTimerRunning(bool running);
    void moved();
    void onTimeout();

    const WorldState& world_;
    Reporter& reporter_;
    ApplyByIndex apply_;
    RebuildProgress makeProgress_;
    RebuildShortcut* shortcut_ = nullptr;
    QTimer* tSlide;

    std::int16_t position_ = 0;
    bool atBegin_ = false;
    bool atEnd_ = false;
    bool slideForward_ = false;
    bool forwardEnabled_ = false;
    bool backwardEnabled_ = false;
    bool stopEnabled_ = false;

    int stepDepth_ = 0;
    bool tickPending_ = false;
};

}  // namespace trelvin
