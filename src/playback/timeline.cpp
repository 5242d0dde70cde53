#include "playback/timeline.h"

#include <algorithm>

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace trelvin {

namespace {

constexpr int kMargin = 6;

QColor colourOf(int kind) {
    static const QColor colours[] = {QColor(150, 150, 150), QColor(40, 150, 60), QColor(40, 90, 220),
                                     QColor(200, 30, 30), QColor(240, 150, 0)};
    return colours[kind];
}

}  // namespace

Timeline::Timeline(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::NoFocus);
    setEnabled(false);
}

QSize Timeline::sizeHint() const { return {400, 30}; }
QSize Timeline::minimumSizeHint() const { return {120, 30}; }

void Timeline::showReplay(const ActionLog& log, int eventCount) {
    marks_.clear();
    eventCount_ = std::max(eventCount, 0);
    for (int i = 1; i <= std::min(log.size(), eventCount_); ++i) {
        const LoggedEvent& e = log.event(i);
        if (e.startsAnHour && i > 1) marks_.push_back({i, MarkKind::Hour});
        if (e.action == Action::Start) marks_.push_back({i, MarkKind::Start});
        if (e.action == Action::EndHoldFire) marks_.push_back({i, MarkKind::ProtectionEnd});
        if (e.headquartersTaken) marks_.push_back({i, MarkKind::Capture});
        if (!e.messages.empty()) marks_.push_back({i, MarkKind::Failure});
    }
    // Hours lie beneath the rest.
    std::stable_sort(marks_.begin(), marks_.end(),
                     [](const Mark& a, const Mark& b) { return a.kind < b.kind; });
    setEnabled(eventCount_ > 0);
    update();
}

void Timeline::setPosition(int position) {
    if (position == position_) return;
    position_ = position;
    requested_ = position;
    update();
}

QRect Timeline::bar() const { return rect().adjusted(kMargin, 4, -kMargin, -4); }

int Timeline::eventAt(int x) const {
    if (eventCount_ <= 1) return eventCount_;
    const QRect b = bar();
    const double share = std::clamp(double(x - b.left()) / std::max(b.width() - 1, 1), 0.0, 1.0);
    return 1 + static_cast<int>(share * (eventCount_ - 1) + 0.5);
}

int Timeline::xOf(int event) const {
    const QRect b = bar();
    if (eventCount_ <= 1) return b.left();
    return b.left() + static_cast<int>(double(event - 1) / (eventCount_ - 1) * (b.width() - 1) + 0.5);
}

void Timeline::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect b = bar();
    const int middle = b.center().y();
    painter.fillRect(QRect(b.left(), middle - 3, b.width(), 7), palette().color(QPalette::Mid));
    if (eventCount_ == 0) return;
    // One line per pixel column and kind at most, however many events share it.
    int lastX = -1;
    MarkKind lastKind = MarkKind::Hour;
    for (const Mark& mark : marks_) {
        const int x = xOf(mark.event);
        if (x == lastX && mark.kind == lastKind) continue;
        lastX = x;
        lastKind = mark.kind;
        painter.setPen(colourOf(static_cast<int>(mark.kind)));
        switch (mark.kind) {
            case MarkKind::Hour: painter.drawLine(x, middle + 4, x, b.bottom()); break;
            case MarkKind::Start:
            case MarkKind::ProtectionEnd: painter.drawLine(x, b.top(), x, b.bottom()); break;
            case MarkKind::Capture:
                painter.setBrush(colourOf(static_cast<int>(mark.kind)));
                painter.drawPolygon(QPolygon({QPoint(x - 3, b.top()), QPoint(x + 3, b.top()), QPoint(x, b.top() + 5)}));
                break;
            case MarkKind::Failure: painter.drawLine(x, b.top(), x, middle - 4); break;
        }
    }
    if (position_ >= 1) {
        const int x = xOf(position_);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 3));
        painter.drawLine(x, b.top(), x, b.bottom());
    }
}

void Timeline::request(int x) {
    const int event = eventAt(x);
    if (event < 1 || event == requested_) return;
    requested_ = event;
    emit positionRequested(event);
}

void Timeline::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) request(event->position().toPoint().x());
}

void Timeline::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) request(event->position().toPoint().x());
}

bool Timeline::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    if (eventCount_ == 0) {
        QToolTip::hideText();
        return true;
    }
    QToolTip::showText(help->globalPos(), QStringLiteral("Akce %1").arg(eventAt(help->pos().x())), this);
    return true;
}

}  // namespace trelvin
