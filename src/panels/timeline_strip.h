#pragma once
// The strip under the window's controls: the timeline over the whole replay, and beside it the
// position with the event count and the date and time of the current action. A click or a
// drag on the timeline jumps there.
#include <QWidget>

class QLabel;

namespace trelvin {

class ReplaySession;
class Timeline;

class TimelineStrip : public QWidget {
    Q_OBJECT

public:
    TimelineStrip(ReplaySession& session, QWidget* parent);

    Timeline* timeline;
    QLabel* lblPosition;
    QLabel* lblTime;

private:
    void followPosition();
    // A drag asks for many events a frame: the latest of them is gone to, once per turn of
    // the event loop.
    void requestJump(int event);

    ReplaySession& session_;
    int pendingJump_ = 0;
};

}  // namespace trelvin
