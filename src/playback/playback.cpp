#include "playback/playback.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <QTimer>

#include "engine/event_executor.h"

namespace trelvin {

Playback::Playback(WorldState& world, Reporter& reporter, ApplyEvent apply, QObject* parent)
    : QObject(parent), world_(world), reporter_(reporter), apply_(std::move(apply)),
      timer_(new QTimer(this)) {
    if (!apply_) apply_ = &ExecuteEvent;
    connect(timer_, &QTimer::timeout, this, &Playback::onTimeout);
}

bool Playback::isPlaying() const { return timer_->isActive(); }

void Playback::apply(std::int16_t index, Reporter& reporter) { apply_(world_, index, reporter); }

void Playback::openAtFirstEvent() {
    StepGuard guard(*this);
    position_ = 1;
    apply(position_, reporter_);
}

void Playback::first() {
    StepGuard guard(*this);
    position_ = 1;
    updateButtons();
    apply(position_, reporter_);
    emit moved();
}

bool Playback::rebuild(std::int16_t last, bool trackPosition, Reporter& reporter) {
    const std::unique_ptr<TaskProgress> progress = makeProgress_ ? makeProgress_() : nullptr;
    for (int index = 1; index <= last; ++index) {
        if (trackPosition) position_ = static_cast<std::int16_t>(index);
        apply(static_cast<std::int16_t>(index), reporter);
        if (progress && !progress->keepGoing(index, last)) {
            position_ = static_cast<std::int16_t>(index);
            return false;
        }
    }
    return true;
}

void Playback::back() {
    StepGuard guard(*this);
    if (position_ > 0) --position_;
    rebuild(position_, false, reporter_);
    updateButtons();
    emit moved();
}

void Playback::forward() {
    StepGuard guard(*this);
    if (position_ < world_.eventCount) ++position_;
    updateButtons();
    apply(position_, reporter_);
    emit moved();
}

void Playback::last() {
    StepGuard guard(*this);
    // The bound is read once: the count stays what it was when the rebuild began.
    const std::int16_t count = world_.eventCount;
    if (rebuild(count, true, reporter_)) position_ = count;
    updateButtons();
    emit moved();
}

void Playback::jumpTo(int target, Reporter& quiet) {
    StepGuard guard(*this);
    position_ = static_cast<std::int16_t>(std::clamp<int>(target, 1, std::max<int>(world_.eventCount, 1)));
    rebuild(position_, false, quiet);
    updateButtons();
    emit moved();
}

void Playback::setEnabled(bool& state, bool enabled) {
    if (state == enabled) return;
    state = enabled;
    emit buttonsChanged();
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

void Playback::play(bool forward, std::int16_t interval) {
    slideForward_ = forward;
    setEnabled(stopEnabled_, true);
    // Setting the interval restarts the countdown.
    timer_->setInterval(interval);
    timer_->start();
    tick();
}

void Playback::tick() {
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
    timer_->stop();
    setEnabled(stopEnabled_, false);
    updateButtons();
}

void Playback::halt() { timer_->stop(); }

void Playback::disableStop() { setEnabled(stopEnabled_, false); }

void Playback::onTimeout() {
    if (stepDepth_ > 0) {
        tickPending_ = true;
        return;
    }
    tick();
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
