#include "playback/playback.h"

#include <algorithm>
#include <utility>

#include <QTimer>

namespace trelvin {

Playback::Playback(const WorldState& world, Reporter& reporter, ApplyByIndex apply, QObject* parent)
    : QObject(parent), world_(world), reporter_(reporter), apply_(std::move(apply)), tSlide(new QTimer(this)) {
    connect(tSlide, &QTimer::timeout, this, &Playback::onTimeout);
}

bool Playback::isPlaying() const { return tSlide->isActive(); }

int Playback::interval() const { return tSlide->interval(); }

void Playback::moved() { emit positionChanged(position_, world_.eventCount); }

void Playback::openAtFirstEvent() {
    StepGuard guard(*this);
    position_ = 1;
    apply_(position_, reporter_);
}

void Playback::first() {
    StepGuard guard(*this);
    position_ = 1;
    updateButtons();
    apply_(position_, reporter_);
    moved();
}

bool Playback::rebuild(std::int16_t last, bool trackPosition, Reporter& reporter) {
    const std::unique_ptr<TaskProgress> progress = makeProgress_ ? makeProgress_() : nullptr;
    const int shortcut = shortcut_ ? shortcut_->shortcutTo(last) : 0;
    if (shortcut > 0) {
        // The events passed over take no time but their message boxes.
        for (const int index : shortcut_->reportingEvents()) {
            if (index > shortcut) break;
            if (trackPosition) position_ = static_cast<std::int16_t>(index);
            shortcut_->reportAgain(index, reporter);
            if (progress && !progress->keepGoing(index, last)) {
                position_ = static_cast<std::int16_t>(index);
                reachQuietly(index);
                return false;
            }
        }
        shortcut_->restore(shortcut);
    }
    for (int index = shortcut + 1; index <= last; ++index) {
        if (trackPosition) position_ = static_cast<std::int16_t>(index);
        apply_(static_cast<std::int16_t>(index), reporter);
        if (progress && !progress->keepGoing(index, last)) {
            position_ = static_cast<std::int16_t>(index);
            return false;
        }
    }
    return true;
}

void Playback::reachQuietly(int event) {
    RecordingReporter given;
    const int shortcut = shortcut_->shortcutTo(event);
    if (shortcut > 0) shortcut_->restore(shortcut);
    for (int index = shortcut + 1; index <= event; ++index) apply_(static_cast<std::int16_t>(index), given);
}

void Playback::back() {
    StepGuard guard(*this);
    if (position_ > 0) --position_;
    rebuild(position_, false, reporter_);
    updateButtons();
    moved();
}

void Playback::forward() {
    StepGuard guard(*this);
    if (position_ < world_.eventCount) ++position_;
    updateButtons();
    apply_(position_, reporter_);
    moved();
}

void Playback::last() {
    StepGuard guard(*this);
    // The bound is read once: the count stays what it was when the rebuild began.
    const std::int16_t count = world_.eventCount;
    if (rebuild(count, true, reporter_)) position_ = count;
    updateButtons();
    moved();
}

void Playback::jumpTo(int target, Reporter& quiet) {
    StepGuard guard(*this);
    position_ = static_cast<std::int16_t>(std::clamp<int>(target, 1, std::max<int>(world_.eventCount, 1)));
    rebuild(position_, false, quiet);
    updateButtons();
    moved();
}

void Playback::setEnabled(bool& state, bool enabled) {
    if (state == enabled) return;
    state = enabled;
    emit stepsEnabledChanged(backwardEnabled_, forwardEnabled_, stopEnabled_);
}

// Four separate tests: a position past the count (after a failed load) leaves the forward
// group as it was.
void Playback::updateButtons() {
    if (position_ == world_.eventCount) {
        setEnabled(forwardEnabled_, false);
        atEnd_ = true;
    }
    if (position_ > 1) {
        setEnabled(backwardEnabled_, true);
        atBegin_ = false;
    }
    if (position_ < world_.eventCount) {
        setEnabled(forwardEnabled_, true);
        atEnd_ = false;
    }
    if (position_ < 2) {
        setEnabled(backwardEnabled_, false);
        atBegin_ = true;
    }
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
        if (atEnd_)
            stop();
        else
            forward();
    } else {
        if (atBegin_)
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
