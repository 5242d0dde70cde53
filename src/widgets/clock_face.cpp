#include "widgets/clock_face.h"

#include <QPainter>
#include <QPalette>

#include "bridge/twips.h"
#include "display/clock_geometry.h"

namespace trelvin {

namespace {

constexpr int kBorderPixels = 2;

constexpr std::uint32_t Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red + 256 * green + 65536 * blue;
}

QColor ColourOf(std::uint32_t rgb) {
    return QColor(int(rgb & 0xFF), int((rgb >> 8) & 0xFF), int((rgb >> 16) & 0xFF));
}

QPointF At(ClockPoint point) { return QPointF(point.x, point.y); }

// The dial has no numbers: its tooltip tells how to read it, and the time it shows.
const QString kHowToRead = QStringLiteral("Cas akce na 24hodinovem ciferniku: hodiny modre, minuty cervene, sekundy sede");

}  // namespace

ClockFace::ClockFace(QWidget* parent) : QFrame(parent) {
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setLineWidth(kBorderPixels);
    setBackgroundRole(QPalette::HighlightedText);
    setAutoFillBackground(true);
    setToolTip(kHowToRead);
}

int ClockFace::scaleHeight() const { return contentsRect().height() * kTwipsPerPixel; }

void ClockFace::setTime(const std::optional<QTime>& time) {
    dialShown_ = true;
    time_ = time;
    setToolTip(time ? kHowToRead + u'\n' + time->toString(QStringLiteral("HH:mm:ss")) : kHowToRead);
    update();
}

// Grey marks, one per hour; hours blue, minutes red, seconds light grey on top.
void ClockFace::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    if (!dialShown_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(contentsRect());
    painter.translate(contentsRect().topLeft());
    painter.scale(1.0 / kTwipsPerPixel, 1.0 / kTwipsPerPixel);
    drawDial(painter, 3, Rgb(100, 100, 100));
    if (!time_) return;
    const ClockHands hands = HandsAt(time_->hour(), time_->minute(), time_->second(), scaleHeight());
    drawHand(painter, hands.centre, hands.hour, 4, Rgb(0, 0, 255));
    drawHand(painter, hands.centre, hands.minute, 2, Rgb(255, 0, 0));
    drawHand(painter, hands.centre, hands.second, 1, Rgb(200, 200, 200));
}

// Each mark is a circle of radius 1 drawn with the line width, so it shows as a dot: filled,
// since a stroked outline this small would leave a hole in its middle.
void ClockFace::drawDial(QPainter& painter, std::int16_t width, std::uint32_t colour) const {
    const double radius = 1 + width * kTwipsPerPixel / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ColourOf(colour));
    for (const ClockPoint& centre : DialMarks(kDialMarks, scaleHeight()))
        painter.drawEllipse(At(centre), radius, radius);
    painter.setBrush(Qt::NoBrush);
}

// Line widths are pixels whatever the scale.
void ClockFace::drawHand(QPainter& painter, ClockPoint from, ClockPoint to, std::int16_t width,
                         std::uint32_t colour) const {
    painter.setPen(QPen(ColourOf(colour), width * kTwipsPerPixel, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(At(from), At(to));
}

}  // namespace trelvin
