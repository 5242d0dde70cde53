#include "panels/fitting_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace trelvin {

namespace {

const QString kEllipsis = QStringLiteral("\u2026");

int pixelSizeOf(const QFont& font, const QWidget& widget) {
    return font.pixelSize() > 0 ? font.pixelSize() : qRound(font.pointSizeF() * widget.logicalDpiY() / 72.0);
}

}  // namespace

FittingLabel::FittingLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

int FittingLabel::textFlags() const { return int(alignment()) | (wordWrap() ? int(Qt::TextWordWrap) : 0); }

bool FittingLabel::fitsIn(const QFont& font) const {
    const QRect room = contentsRect();
    const QRect needed = QFontMetrics(font).boundingRect(room, textFlags(), text());
    return needed.width() <= room.width() && needed.height() <= room.height();
}

QFont FittingLabel::fittedFont() const {
    QFont fitted = font();
    if (text().isEmpty() || fitsIn(fitted)) return fitted;
    const int designed = pixelSizeOf(fitted, *this);
    for (int pixels = designed - 1; pixels > kSmallestPixels; --pixels) {
        fitted.setPixelSize(pixels);
        if (fitsIn(fitted)) return fitted;
    }
    fitted.setPixelSize(std::min(designed, kSmallestPixels));
    return fitted;
}

QString FittingLabel::shownText(const QFont& font) const {
    const QRect room = contentsRect();
    const QFontMetrics metrics(font);
    const auto fits = [&](const QString& candidate) {
        const QRect needed = metrics.boundingRect(room, textFlags(), candidate);
        return needed.width() <= room.width() && needed.height() <= room.height();
    };
    if (fits(text())) return text();
    // The longest beginning that fits with the ellipsis.
    int shortest = 0, longest = int(text().size());
    while (shortest < longest) {
        const int middle = (shortest + longest + 1) / 2;
        if (fits(text().left(middle) + kEllipsis))
            shortest = middle;
        else
            longest = middle - 1;
    }
    return text().left(shortest) + kEllipsis;
}

void FittingLabel::paintEvent(QPaintEvent* event) {
    const QFont fitted = fittedFont();
    if (fitted == font()) return QLabel::paintEvent(event);
    QPainter painter(this);
    drawFrame(&painter);
    painter.setFont(fitted);
    style()->drawItemText(&painter, contentsRect(), textFlags(), palette(), isEnabled(), shownText(fitted),
                          foregroundRole());
}

bool FittingLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    // The whole text, wherever the box does not hold it in the label's own font.
    if (text().isEmpty() || fitsIn(font())) {
        QToolTip::hideText();
        event->ignore();
    } else {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    }
    return true;
}

}  // namespace trelvin
