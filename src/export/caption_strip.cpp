#include "export/caption_strip.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include "bridge/core_text.h"
#include "bridge/date_text.h"
#include "display/world_texts.h"

namespace trelvin {

namespace {

constexpr int kLetterPixels = 13;
constexpr int kMargin = 4;
constexpr int kLines = 3;  // the action with the count; its date and time; its description

// The map's caption font, without smoothing: the strip adds no colour to a GIF's palette.
QFont stripFont() {
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPixelSize(kLetterPixels);
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

}  // namespace

int CaptionStripHeight() { return kLines * QFontMetrics(stripFont()).lineSpacing() + 2 * kMargin; }

QStringList CaptionLines(const WorldState& world, int position) {
    return {QStringLiteral("Akce ") + FromUtf8(PositionText(position, world.eventCount)),
            GeneralDateText(world.currentTime), FromUtf8(DescriptionText(world)).section(u'\n', 0, 0)};
}

void PaintCaptionStrip(QPainter& painter, const QRect& strip, const QStringList& lines, const QPalette& palette) {
    const QFont font = stripFont();
    const QFontMetrics metrics(font);
    painter.save();
    painter.setClipRect(strip);
    painter.fillRect(strip, palette.color(QPalette::Window));
    painter.setFont(font);
    painter.setPen(palette.color(QPalette::WindowText));
    const int width = strip.width() - 2 * kMargin;
    for (int i = 0; i < lines.size(); ++i) {
        const QRect line(strip.left() + kMargin, strip.top() + kMargin + i * metrics.lineSpacing(), width,
                         metrics.lineSpacing());
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, metrics.elidedText(lines[i], Qt::ElideRight, width));
    }
    painter.restore();
}

}  // namespace trelvin
