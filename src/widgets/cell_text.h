#pragma once
// One line of a list cell's text, shaped once for both its width and its paint: shaping is most of
// what a row costs, and a jump repaints every row on screen.
#include <QFont>
#include <QString>
#include <QTextLayout>

namespace trelvin {

// Lays out the text as it shows in `width`: whole, or elided as the style elides where it is too
// long. Only the start of a long text can show, so at first only as many characters as could fit
// are shaped. For an elision at the right the cut is found in the line already shaped, so the text
// is shaped twice, not three times. The texts come from a Central European code page: nothing in
// them runs right to left. The line belongs to `layout`.
QTextLine LayOutCellText(QTextLayout& layout, const QString& text, const QFont& font, qreal width,
                         Qt::TextElideMode mode);

}  // namespace trelvin
