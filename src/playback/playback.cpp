#include "playback/playback.h"

#include <utility>

#include <QTimer>

namespace trelvin {

// What a move tells on its way: the buttons follow the position when it is set, each report is a
// message box at once, and a long rebuild shows its progress.
class Playback::Watcher : public MoveWatcher {
public:
    Watcher(Playback& playback, bool quiet)
        : playback_(playback), quiet_(quiet), progress_(playback.makeProgress_ ? playback.makeProgress_() : nullptr) {}
    void positionSet(int) override { playback_.updateButtons(); }
    void reported(const EventReport& report) override {
        if (!quiet_) playback_.reporter_.report(report.text);
    }
    bool keepGoing(int done, int total) override {
        return !progress_ || progress_->keepGoing(std::uint64_t(done), std::uint64_t(total));
    }

private:
    Playback& playback_;
    bool quiet_;
    std::unique_ptr<TaskProgress> progress_;
};

Playback::Playback(ReplayCursor& cursor, Reporter& reporter, QObject* parent)
    : QObject(parent), cursor_(cursor), reporter_(reporter), tSlide(new QTimer(this)) {
    connect(tSlide, &QTimer::timeout, this, &Playback::onTimeout);
}

bool Playback::isPlaying() const { return tSlide->isActive(); }

int Playback::interval() const { return tSlide->interval(); }

template <typename Move>
void Playback::move(Move&& cursorMove, bool quiet) {
    StepGuard guard(*this);
    Watcher watcher(*this, quiet);
    lastMove_ = cursorMove(&watcher);
    emit positionChanged(cursor_.position(), cursor_.eventCount());
}

void Playback::first() {
    move([this](MoveWatcher* w) { return cursor_.first(w); });
}

void Playback::back() {
    move([this](MoveWatcher* w) { return cursor_.back(w); });
}

void Playback::forward() {
    move([this](MoveWatcher* w) { return cursor_.forward(w); });
}

void Playback::last() {
    move([this](MoveWatcher* w) { return cursor_.last(w); });
}

MoveResult Playback::jumpTo(int target) {
    move([this, target](MoveWatcher* w) { return cursor_.jumpTo(target, w); }, true);
    return lastMove_;
}

void Playback::setEnabled(bool& state, bool enabled) {
    if (state == enabled) return;
    state = enabled;
    emit stepsEnabledChanged(buttons_.backwardEnabled, buttons_.forwardEnabled, stopEnabled_);
}

void Playback::updateButtons() {
    StepButtons now = buttons_;
    now.follow(cursor_.position(), cursor_.eventCount());
    const bool changed = now.forwardEnabled != buttons_.forwardEnabled || now.backwardEnabled != buttons_.backwardEnabled;
    buttons_ = now;
    if (changed) emit stepsEnabledChanged(buttons_.backwardEnabled, buttons_.forwardEnabled, stopEnabled_);
}

void Playback::setTimerRunning(bool running) {
    const bool was = tSlide->isActive();
    if (running)
        tSlide->start();
    else
        tSlide->stop();
    if (running != was) emit playingChanged(running);
}

void Playback::useTimer(bool forward, std::int16_t interval) {
    slideForward_ = forward;
    setEnabled(stopEnabled_, true);
    // Setting the interval restarts the countdown.
    tSlide->setInterval(interval);
    setTimerRunning(true);
    tSlide_Timer();
}

void Playback::tSlide_Timer() {
    StepGuard guard(*this);
    updateButtons();
    if (slideForward_) {
        if (buttons_.atEnd)
            stop();
        else
            forward();
    } else {
        if (buttons_.atBegin)
            stop();
        else
            back();
    }
}

void Playback::stop() {
    setTimerRunning(false);
    setEnabled(stopEnabled_, false);
    updateButtons();
}

void Playback::halt() { setTimerRunning(false); }

void Playback::disableStop() { setEnabled(stopEnabled_, false); }

void Playback::onTimeout() {
    if (stepDepth_ > 0) {
        tickPending_ = true;
        return;
    }
    tSlide_Timer();
}

Playback::StepGuard::StepGuard(Playback& playback) : playback_(playback) { ++playback_.stepDepth_; }

Playback::StepGuard::~StepGuard() {
    if (--playback_.stepDepth_ > 0 || !playback_.tickPending_) return;
    playback_.tickPending_ = false;
    // The tick that fell due runs once the step has returned, if the show still runs then.
    QTimer::singleShot(0, &playback_, [&playback = playback_] {
        if (playback.isPlaying()) playback.onTimeout();
    });
}

}  // namespace trelvin
