#pragma once
// The timeline: a bar over the whole event list with the current position on it, and marks
// for the full hours, the start, the end of the protection day, the captured headquarters and
// the events that reported a failure. A click or a drag asks for the event under the mouse.
#include <vector>

#include <QWidget>

#include "history/action_log.h"

namespace trelvin {

class Timeline : public QWidget {
    Q_OBJECT

public:
    explicit Timeline(QWidget* parent = nullptr);

    // The events 1 .. `eventCount` with the marks the log gives; no replay when 0.
    void showReplay(const ActionLog& log, int eventCount);
    void setPosition(int position);
    int position() const { return position_; }

    // The event at x (in this widget), and back; both clamped to the bar.
    int eventAt(int x) const;
    int xOf(int event) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // The user pressed or dragged to this event; asked for once per change.
    void positionRequested(int event);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    enum class MarkKind { Hour, Start, ProtectionEnd, Capture, Failure };
    struct Mark {
        int event;
        MarkKind kind;
    };

    QRect bar() const;
    void request(int x);

    std::vector<Mark> marks_;
    int eventCount_ = 0;
    int position_ = 0;
    int requested_ = 0;
};

}  // namespace trelvin
