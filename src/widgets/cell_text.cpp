#include "widgets/cell_text.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QGlyphRun>

namespace trelvin {

namespace {

// Characters past a cut whose shaping can still change the advances before it (a kerning pair,
// a ligature of three letters).
constexpr int kShapingContext = 4;

// Lays the text out as one unwrapped line.
QTextLine layOutLine(QTextLayout& layout, const QString& text, const QFont& font) {
    layout.clearLayout();
    layout.setText(text);
    layout.setFont(font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);  // or the paint shapes the text again
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setNumColumns(int(text.size()));
    layout.endLayout();
    return line;
}

// Whether the characters either side of `position` are drawn by one glyph, as the letters of a
// ligature are: the style never cuts between them.
bool splitsGlyph(const QTextLine& line, int position) {
    if (position <= 0 || position >= line.textLength()) return false;
    const QList<QGlyphRun> before = line.glyphRuns(position - 1, 1), after = line.glyphRuns(position, 1);
    return !before.isEmpty() && !after.isEmpty() && before.front().glyphIndexes() == after.front().glyphIndexes() &&
           before.front().positions() == after.front().positions();
}

}  // namespace

QTextLine LayOutCellText(QTextLayout& layout, const QString& text, const QFont& font, qreal width,
                         Qt::TextElideMode mode) {
    const QFontMetricsF metrics(font);
    const qsizetype bound = qsizetype(3 * width / std::max(metrics.averageCharWidth(), 1.0)) + kShapingContext;
    const bool shortened = mode == Qt::ElideRight && text.size() > bound;
    QTextLine line = layOutLine(layout, shortened ? text.left(bound) : text, font);
    if (shortened && line.cursorToX(int(bound - kShapingContext)) < width) line = layOutLine(layout, text, font);
    if (line.naturalTextWidth() <= width) return line;
    if (mode != Qt::ElideRight) return layOutLine(layout, metrics.elidedText(text, mode, width), font);
    // The whole glyphs that end before the room the ellipsis leaves.
    const QChar ellipsisChar(0x2026);
    const bool hasEllipsis = metrics.inFont(ellipsisChar);
    const qreal room = width - (hasEllipsis ? metrics.horizontalAdvance(ellipsisChar)
                                            : 3 * metrics.horizontalAdvance(QLatin1Char('.')));
    if (room < 0) return layOutLine(layout, QString(), font);
    int cut = line.xToCursor(room, QTextLine::CursorOnCharacter);
    while (cut > 0 && (line.cursorToX(cut) >= room || splitsGlyph(line, cut))) cut = layout.previousCursorPosition(cut);
    return layOutLine(layout, layout.text().left(cut) + (hasEllipsis ? QString(ellipsisChar) : QStringLiteral("...")),
                      font);
}

}  // namespace trelvin
