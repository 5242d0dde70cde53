#include "widgets/action_row_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

#include "widgets/cell_text.h"

namespace trelvin {

void ActionRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QWidget* widget = cell.widget;
    const QStyle* style = widget ? widget->style() : QApplication::style();
    painter->save();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, widget);

    const bool enabled = cell.state & QStyle::State_Enabled;
    const bool selected = cell.state & QStyle::State_Selected;
    QRect text = cell.rect;
    if (!cell.icon.isNull()) {
        // Only the rows of failures have an icon: the style's own layout is cheap enough there.
        const QIcon::Mode mode = !enabled ? QIcon::Disabled : selected ? QIcon::Selected : QIcon::Normal;
        cell.icon.paint(painter, style->subElementRect(QStyle::SE_ItemViewItemDecoration, &cell, widget),
                        cell.decorationAlignment, mode);
        text = style->subElementRect(QStyle::SE_ItemViewItemText, &cell, widget);
    }
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, widget) + 1;
    text.adjust(margin, 0, -margin, 0);

    const QPalette::ColorGroup group = !enabled ? QPalette::Disabled
                                       : (cell.state & QStyle::State_Active) ? QPalette::Normal
                                                                             : QPalette::Inactive;
    painter->setPen(cell.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
    // Placed where the style places a single line, to the same fraction of a pixel across. The
    // text is shaped once for both its width and its paint: shaping is most of a row's cost.
    QTextLayout layout;
    const QTextLine line = LayOutCellText(layout, cell.text, QFont(cell.font, painter->device()), text.width(),
                                          cell.textElideMode);
    const qreal width = line.naturalTextWidth();
    const Qt::Alignment alignment = QStyle::visualAlignment(cell.direction, cell.displayAlignment);
    const qreal x = alignment & Qt::AlignRight     ? text.left() + text.width() - width
                    : alignment & Qt::AlignHCenter ? text.left() + (text.width() - width) / 2
                                                   : text.left();
    const int baseline = text.top() + (text.height() - cell.fontMetrics.height()) / 2 + cell.fontMetrics.ascent();
    layout.draw(painter, QPointF(x, baseline - line.ascent()));

    if (cell.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(cell);
        focus.rect = style->subElementRect(QStyle::SE_ItemViewItemFocusRect, &cell, widget);
        focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
        focus.backgroundColor = cell.palette.color(group, selected ? QPalette::Highlight : QPalette::Window);
        style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, widget);
    }
    painter->restore();
}

}  // namespace trelvin
