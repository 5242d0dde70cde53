#pragma once
// The window's playback: the step buttons' moves through the replay cursor, the enabled state of
// the button groups, and the slide show that steps by itself on its own timer. The cursor does
// the moves; the playback shows what they report in message boxes as they go, lets a long
// rebuild show its progress, and tells the views once a move is over: `positionChanged` comes
// once per move, after all of its events.
#include <cstdint>
#include <functional>
#include <memory>

#include <QObject>

#include "cursor/replay_cursor.h"
#include "cursor/step_buttons.h"
#include "model/reporter.h"
#include "model/task_progress.h"

class QTimer;

namespace trelvin {

// Makes the progress of one move; empty for none.
using RebuildProgress = std::function<std::unique_ptr<TaskProgress>()>;

class Playback : public QObject {
    Q_OBJECT

public:
    // The slide show's two speeds, in milliseconds between steps.
    static constexpr std::int16_t kSlowInterval = 5000;
    static constexpr std::int16_t kFastInterval = 1000;

    // Moves `cursor`; every message box of a step goes to `reporter`.
    Playback(ReplayCursor& cursor, Reporter& reporter, QObject* parent = nullptr);

    // Index of the event applied last; 0 before the first replay is opened.
    int position() const { return cursor_.position(); }
    // The end flags, as the last `updateButtons` left them.
    bool atBegin() const { return buttons_.atBegin; }
    bool atEnd() const { return buttons_.atEnd; }
    // Direction of the slide show.
    bool slideForward() const { return slideForward_; }

    // What the buttons may do: the forward group (one forward, to the end, play forwards),
    // the backward group, and stopping the show.
    bool forwardEnabled() const { return buttons_.forwardEnabled; }
    bool backwardEnabled() const { return buttons_.backwardEnabled; }
    bool stopEnabled() const { return stopEnabled_; }

    bool isPlaying() const;
    // Milliseconds between the steps of the show as last started.
    int interval() const;

    // A rebuild that the progress stops ends at the event applied last: the position stays
    // there, and the views follow as after any move.
    void setRebuildProgress(RebuildProgress makeProgress) { makeProgress_ = std::move(makeProgress); }

    // The four steps, a message box for each report on the way.
    void first();
    void back();
    void forward();
    void last();
    // Straight to `target` as a step back gets there; what the events report is returned, never
    // shown in boxes.
    MoveResult jumpTo(int target);
    // What the move made last did; opening a replay counts as a move to its first event.
    const MoveResult& lastMove() const { return lastMove_; }
    void noteOpening(MoveResult first) { lastMove_ = std::move(first); }

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
    class Watcher;

    // Runs one move of the cursor, its reports shown in boxes unless `quiet`, then tells the views.
    template <typename Move>
    void move(Move&& cursorMove, bool quiet = false);
    void setEnabled(bool& state, bool enabled);
    void setTimerRunning(bool running);
    void onTimeout();

    ReplayCursor& cursor_;
    Reporter& reporter_;
    RebuildProgress makeProgress_;
    QTimer* tSlide;
    MoveResult lastMove_;

    StepButtons buttons_;
    bool slideForward_ = false;
    bool stopEnabled_ = false;

    int stepDepth_ = 0;
    bool tickPending_ = false;
};

}  // namespace trelvin
