#include "playback/clock_face.h"

#include <QPainter>
#include <QPalette>
#include <cmath>

namespace trelvin {

namespace {

constexpr double kTwipsPerPixel = 15.0;
constexpr int kOuterTwips = 975;
constexpr int kBorderPixels = 2;

QColor ColourOf(std::uint32_t rgb) {
    return QColor(int(rgb & 0xFF), int((rgb >> 8) & 0xFF), int((rgb >> 16) & 0xFF));
}

}  // namespace

ClockFace::ClockFace(QWidget* parent) : QFrame(parent) {
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setLineWidth(kBorderPixels);
    const int side = int(kOuterTwips / kTwipsPerPixel);
    resize(side, side);
    setBackgroundRole(QPalette::HighlightedText);
    setAutoFillBackground(true);
}

int ClockFace::scaleHeight() const {
    return int(std::lround(contentsRect().height() * kTwipsPerPixel));
}

void ClockFace::clear() {
    strokes_.clear();
    update();
}

void ClockFace::drawDial(float marks, std::int16_t width, std::uint32_t colour) {
    for (const ClockPoint& centre : DialMarks(marks, scaleHeight()))
        strokes_.push_back({ClockStroke::Shape::Circle, centre, centre, width, colour});
    update();
}

void ClockFace::drawHand(float value, float turn, std::int16_t width, std::uint32_t colour) {
    const int height = scaleHeight();
    const ClockPoint end = HandEnd(value, turn, height);
    strokes_.push_back({ClockStroke::Shape::Line, ClockCentre(height), end, width, colour});
    update();
}

void ClockFace::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(contentsRect());
    const QPointF origin = contentsRect().topLeft();
    const auto toPixels = [&origin](ClockPoint p) {
        return origin + QPointF(p.x / kTwipsPerPixel, p.y / kTwipsPerPixel);
    };
    for (const ClockStroke& stroke : strokes_) {
        const QColor colour = ColourOf(stroke.colour);
        if (stroke.shape == ClockStroke::Shape::Line) {
            painter.setPen(QPen(colour, stroke.width, Qt::SolidLine, Qt::RoundCap));
            painter.drawLine(toPixels(stroke.from), toPixels(stroke.to));
        } else {
            // A circle this small stroked with a wide pen is a dot; a stroked outline would
            // leave a hole in its middle, so it is filled instead.
            const double radius = 1 / kTwipsPerPixel + stroke.width / 2.0;
            painter.setPen(Qt::NoPen);
            painter.setBrush(colour);
            painter.drawEllipse(toPixels(stroke.from), radius, radius);
            painter.setBrush(Qt::NoBrush);
        }
    }
}

}  // namespace trelvin
