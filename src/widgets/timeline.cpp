#include "widgets/timeline.h"

#include <algorithm>
#include <cmath>

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolTip>
#include <QWheelEvent>

#include "bridge/core_text.h"
#include "bridge/date_text.h"
#include "display/action_texts.h"

namespace trelvin {

namespace {

constexpr int kMargin = 6;
constexpr int kBarAreaHeight = 32;
// The fewest events a zoomed bar spans, and how much one notch of the wheel zooms.
constexpr int kSmallestSpan = 10;
constexpr double kZoomStep = 1.5;
// Hour ticks closer than this, in pixels, merge into a band: days are shown instead.
constexpr int kTickSpacing = 4;
constexpr int kCountPixels = 9;

QColor colourOf(TimelineMark kind) {
    // Hour, day, start, end of protection, capture, failure.
    static const QColor colours[] = {QColor(150, 150, 150), QColor(90, 90, 90),  QColor(40, 150, 60),
                                     QColor(40, 90, 220),   QColor(200, 30, 30), QColor(240, 150, 0)};
    return colours[static_cast<std::size_t>(kind)];
}

}  // namespace

Timeline::Timeline(QWidget* parent) : QWidget(parent), scroll_(new QScrollBar(Qt::Horizontal, this)) {
    setFocusPolicy(Qt::NoFocus);
    setEnabled(false);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setRange(0, 0);
    scroll_->setToolTip(QStringLiteral("Usek casove osy; Ctrl+kolecko nad osou ho zuzi nebo rozsiri"));
    connect(scroll_, &QScrollBar::valueChanged, this,
            [this](int value) { setVisibleRange(value + 1, value + 1 + (last_ - first_)); });
}

QSize Timeline::sizeHint() const { return {400, kBarAreaHeight + scroll_->sizeHint().height()}; }
QSize Timeline::minimumSizeHint() const { return {120, kBarAreaHeight + scroll_->sizeHint().height()}; }

void Timeline::showReplay(const ActionLog& log, int eventCount) {
    log_ = &log;
    eventCount_ = std::max(eventCount, 0);
    marks_ = TimelineMarksOf(log, eventCount_);
    first_ = std::min(1, eventCount_);
    last_ = eventCount_;
    setVisibleRange(first_, last_);
    setEnabled(eventCount_ > 0);
    update();
}

void Timeline::setPosition(int position) {
    if (position == position_) return;
    position_ = position;
    requested_ = position;
    const int span = last_ - first_;
    if (position >= 1 && position < first_) setVisibleRange(position, position + span);
    if (position <= eventCount_ && position > last_) setVisibleRange(position - span, position);
    // The scroll bar below is left alone: a style's scroll bar is costly to paint, and a move
    // within the stretch shown does not change it.
    update(QRect(0, 0, width(), kBarAreaHeight));
}

void Timeline::setVisibleRange(int first, int last) {
    if (eventCount_ <= 1) {
        first_ = last_ = eventCount_;
    } else {
        const int span = std::clamp(last - first, std::min(kSmallestSpan, eventCount_ - 1), eventCount_ - 1);
        first_ = std::clamp(first, 1, eventCount_ - span);
        last_ = first_ + span;
    }
    followRange();
    update();
}

void Timeline::followRange() {
    const QSignalBlocker quiet(scroll_);
    const int span = last_ - first_;
    scroll_->setRange(0, std::max(0, eventCount_ - 1 - span));
    scroll_->setPageStep(std::max(1, span));
    scroll_->setSingleStep(std::max(1, span / 10));
    scroll_->setValue(first_ - 1);
    scroll_->setEnabled(scroll_->maximum() > 0);
}

void Timeline::zoomAt(int x, int steps) {
    if (eventCount_ <= 1 || steps == 0) return;
    const QRect b = bar();
    const double share = std::clamp(double(x - b.left()) / std::max(b.width() - 1, 1), 0.0, 1.0);
    const double anchor = first_ + share * (last_ - first_);
    const int span = int(std::lround((last_ - first_) / std::pow(kZoomStep, steps)));
    const int first = int(std::lround(anchor - share * span));
    setVisibleRange(first, first + std::max(span, 1));
}

QRect Timeline::bar() const { return QRect(kMargin, 2, std::max(width() - 2 * kMargin, 1), kBarAreaHeight - 4); }

void Timeline::resizeEvent(QResizeEvent*) {
    scroll_->setGeometry(kMargin, kBarAreaHeight, std::max(width() - 2 * kMargin, 1), scroll_->sizeHint().height());
}

int Timeline::eventAt(int x) const {
    if (eventCount_ <= 1) return eventCount_;
    const QRect b = bar();
    const double share = std::clamp(double(x - b.left()) / std::max(b.width() - 1, 1), 0.0, 1.0);
    return first_ + static_cast<int>(share * (last_ - first_) + 0.5);
}

int Timeline::xOf(int event) const {
    const QRect b = bar();
    if (eventCount_ <= 1 || last_ == first_) return b.left();
    return b.left() + int(std::lround(double(event - first_) / (last_ - first_) * (b.width() - 1)));
}

std::pair<std::vector<int>::const_iterator, std::vector<int>::const_iterator> Timeline::shown(TimelineMark kind) const {
    const std::vector<int>& events = MarksOf(marks_, kind);
    return {std::lower_bound(events.begin(), events.end(), first_), std::upper_bound(events.begin(), events.end(), last_)};
}

bool Timeline::showsDays() const {
    const auto [from, to] = shown(TimelineMark::Hour);
    return (to - from) > 0 && bar().width() / (int(to - from) + 1) < kTickSpacing;
}

void Timeline::paintMarks(QPainter& painter, TimelineMark kind, int top, int bottom) {
    const QColor colour = colourOf(kind);
    const bool counted = kind == TimelineMark::Capture || kind == TimelineMark::Failure;
    painter.setPen(colour);
    painter.setBrush(colour);
    int countsEnd = -1;  // where the last count drawn ends: counts never overlap
    const auto [from, to] = shown(kind);
    for (auto it = from; it != to;) {
        // The marks of this pixel column are drawn once.
        const int x = xOf(*it);
        auto next = it;
        while (next != to && xOf(*next) == x) ++next;
        const int count = int(next - it);
        it = next;
        if (kind == TimelineMark::Capture)
            painter.drawPolygon(QPolygon({QPoint(x - 3, top), QPoint(x + 3, top), QPoint(x, top + 5)}));
        else
            painter.drawLine(x, top, x, bottom);
        if (!counted || count < 2) continue;
        const QString text = QString::number(count);
        const int left = x + 4;
        if (left <= countsEnd) continue;
        painter.drawText(QRect(left, top - 1, painter.fontMetrics().horizontalAdvance(text), kCountPixels + 2),
                         Qt::AlignLeft | Qt::AlignTop, text);
        countsEnd = left + painter.fontMetrics().horizontalAdvance(text) + 2;
    }
}

void Timeline::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect b = bar();
    const int middle = b.center().y();
    painter.fillRect(QRect(b.left(), middle - 3, b.width(), 7), palette().color(QPalette::Mid));
    if (eventCount_ == 0) return;
    QFont small = font();
    small.setPixelSize(kCountPixels);
    painter.setFont(small);
    paintMarks(painter, showsDays() ? TimelineMark::Day : TimelineMark::Hour, middle + 4, b.bottom());
    paintMarks(painter, TimelineMark::Start, b.top(), b.bottom());
    paintMarks(painter, TimelineMark::ProtectionEnd, b.top(), b.bottom());
    paintMarks(painter, TimelineMark::Failure, b.top(), middle - 4);
    paintMarks(painter, TimelineMark::Capture, b.top(), b.top() + 5);
    if (position_ < 1) return;
    const QColor highlight = palette().color(QPalette::Highlight);
    if (position_ >= first_ && position_ <= last_) {
        const int x = xOf(position_);
        painter.setPen(QPen(highlight, 3));
        painter.drawLine(x, b.top(), x, b.bottom());
    } else {
        // Outside the stretch shown: an arrow at the end it lies beyond.
        const bool before = position_ < first_;
        const int tip = before ? b.left() - kMargin + 1 : b.right() + kMargin - 1;
        const int base = before ? tip + 5 : tip - 5;
        painter.setPen(Qt::NoPen);
        painter.setBrush(highlight);
        painter.drawPolygon(QPolygon({QPoint(tip, middle), QPoint(base, middle - 5), QPoint(base, middle + 5)}));
    }
}

QString Timeline::hoverText(int x) const {
    if (eventCount_ == 0 || !log_) return {};
    const int event = eventAt(x);
    // Where many events share the pixel, what the marks there stand for.
    const auto countAt = [&](TimelineMark kind) {
        const auto [from, to] = shown(kind);
        return int(std::count_if(from, to, [&](int marked) { return xOf(marked) == xOf(event); }));
    };
    const std::vector<std::string> lines =
        TimelineHoverLines(*log_, event, eventCount_, countAt(TimelineMark::Capture), countAt(TimelineMark::Failure));
    QStringList shown;
    for (const std::string& line : lines) shown << FromUtf8(line);
    if (event >= 1 && event <= log_->size()) shown.front() += QStringLiteral(", ") + GeneralDateText(log_->event(event).time);
    return shown.join(u'\n');
}

void Timeline::request(int x) {
    const int event = eventAt(x);
    if (event < 1 || event == requested_) return;
    requested_ = event;
    emit positionRequested(event);
}

void Timeline::mousePressEvent(QMouseEvent* event) {
    const int x = event->position().toPoint().x();
    panFromX_ = event->button() == Qt::MiddleButton ? x : -1;
    panFromEvent_ = first_;
    if (event->button() == Qt::LeftButton) request(x);
}

void Timeline::mouseMoveEvent(QMouseEvent* event) {
    const int x = event->position().toPoint().x();
    if (event->buttons() & Qt::LeftButton) request(x);
    if ((event->buttons() & Qt::MiddleButton) && panFromX_ >= 0) {
        // The stretch follows the pointer, as a map dragged by hand.
        const double eventsPerPixel = double(last_ - first_) / std::max(bar().width() - 1, 1);
        const int first = panFromEvent_ - int(std::lround((x - panFromX_) * eventsPerPixel));
        setVisibleRange(first, first + (last_ - first_));
    }
}

void Timeline::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier) {
        // A touchpad turns the wheel in small parts of a notch: they add up to whole steps.
        wheelTurned_ += event->angleDelta().y();
        const int steps = wheelTurned_ / 120;
        wheelTurned_ %= 120;
        zoomAt(event->position().toPoint().x(), steps);
    } else {
        const QPoint turned = event->angleDelta();
        const int notches = (std::abs(turned.x()) > std::abs(turned.y()) ? turned.x() : turned.y()) / 120;
        const int step = scroll_->singleStep() * notches;
        setVisibleRange(first_ - step, last_ - step);
    }
    event->accept();
}

bool Timeline::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString text = hoverText(help->pos().x());
    if (text.isEmpty() || help->pos().y() >= kBarAreaHeight) {
        QToolTip::hideText();
        event->ignore();
        return true;
    }
    // Bound to the pixel column, so the text follows the pointer to the next event.
    QToolTip::showText(help->globalPos(), text, this, QRect(help->pos().x(), 0, 1, kBarAreaHeight));
    return true;
}

}  // namespace trelvin
