#pragma once
// Paints one cell of the action list as the style does (background, selection, warning sign,
// focus frame), but lays its text out once as a single line: a jump repaints every row on
// screen, and the style's general text layout made that the slowest part of a jump.
#include <QStyledItemDelegate>

namespace trelvin {

class ActionRowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace trelvin
