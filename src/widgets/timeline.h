#pragma once
// The timeline: a bar over the event list with the current position on it, and marks for the
// full hours (the days, where hours would merge), the start, the end of the protection day, the
// captured headquarters and the events that reported a failure; marks of one kind that fall on
// one pixel are drawn once, with their count. It shows the whole replay or a stretch of it:
// Ctrl+wheel zooms around the pointer; the scroll bar under it, the wheel or a drag with the
// middle button pan. A click or a drag asks for the event under the mouse; resting the pointer
// tells that event's number, date and time, kind and description.
#include <array>
#include <utility>
#include <vector>

#include <QWidget>

#include "display/timeline_marks.h"
#include "history/action_log.h"

class QScrollBar;

namespace trelvin {

class Timeline : public QWidget {
    Q_OBJECT

public:
    explicit Timeline(QWidget* parent = nullptr);

    // The events 1 .. `eventCount` with the marks the log gives, all of them in view; no replay
    // when 0. The log must outlive the timeline or the next call.
    void showReplay(const ActionLog& log, int eventCount);
    // The position is kept in view: a stretch that it leaves follows it.
    void setPosition(int position);
    int position() const { return position_; }

    // The events at the bar's two ends.
    std::pair<int, int> visibleRange() const { return {first_, last_}; }
    // Shows the events from `first` to `last`, kept within the replay and at least a few wide.
    void setVisibleRange(int first, int last);
    // Zooms in (steps > 0) or out around x, keeping the event under x in place.
    void zoomAt(int x, int steps);

    // The event at x (in this widget), and back; both clamped to the bar.
    int eventAt(int x) const;
    int xOf(int event) const;
    // What resting the pointer at x tells; empty without a replay.
    QString hoverText(int x) const;
    // Whether the hour ticks have thinned out to days.
    bool showsDays() const;

    QScrollBar* scrollBar() const { return scroll_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // The user pressed or dragged to this event; asked for once per change.
    void positionRequested(int event);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:

    QRect bar() const;
    void request(int x);
    // The events of a kind within the range shown.
    std::pair<std::vector<int>::const_iterator, std::vector<int>::const_iterator> shown(TimelineMark kind) const;
    void paintMarks(QPainter& painter, TimelineMark kind, int top, int bottom);
    void followRange();

    const ActionLog* log_ = nullptr;
    TimelineMarks marks_;
    int eventCount_ = 0;
    int position_ = 0;
    int requested_ = 0;
    int first_ = 0;
    int last_ = 0;
    int wheelTurned_ = 0;  // Ctrl+wheel turned since the last zoom step, in eighths of a degree
    int panFromX_ = -1;    // where a pan with the middle button started, and the first event then
    int panFromEvent_ = 0;
    QScrollBar* scroll_;
};

}  // namespace trelvin
