#include "view/map_grid.h"

#include <cmath>
#include <exception>
#include <utility>

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>

#include "bridge/core_text.h"
#include "bridge/twips.h"
#include "model/field_addressing.h"

namespace trelvin {

namespace {

int floorToPixels(double twips) { return static_cast<int>(std::floor(twips / kTwipsPerPixel)); }

}  // namespace

MapGrid::MapGrid(WorldState& world, QWidget* parent)
    : QWidget(parent), world_(world), labelFont_(QStringLiteral("MS Sans Serif"), 12) {
    images_.resize(picture::kCount + 1);
    for (int index = 1; index <= picture::kCount; ++index)
        images_[index] = QPixmap(QStringLiteral(":/fields/%1.png").arg(index, 2, 10, QLatin1Char('0')));
    hide();
}

void MapGrid::unloadAll() {
    layout_.clear();
    pictures_.clear();
    pressedField_ = 0;
    fitToContent();
}

void MapGrid::build(int rows, int columns, double windowWidth) {
    // Whatever was loaded before a failure stays, as the window shows it.
    struct RefitOnExit {
        MapGrid& grid;
        ~RefitOnExit() {
            grid.pictures_.resize(grid.layout_.fields().size(), picture::kFreeLand);
            grid.fitToContent();
        }
    } refit{*this};
    layout_.build(rows, columns, windowWidth);
}

void MapGrid::redraw(ViewMode mode) {
    pictures_ = RedrawPictures(world_, mode, fieldCount());
    update();
}

void MapGrid::fitToContent() {
    const GridRect bounds = layout_.bounds();
    if (bounds.isEmpty()) {
        hide();
        return;
    }
    const QPoint topLeft(floorToPixels(bounds.left), floorToPixels(bounds.top));
    const QPoint bottomRight(floorToPixels(bounds.right()), floorToPixels(bounds.bottom()));
    originTwips_ = topLeft * kTwipsPerPixel;
    setGeometry(QRect(topLeft, QSize(bottomRight.x() - topLeft.x(), bottomRight.y() - topLeft.y())));
    show();
    update();
}

QRect MapGrid::toWidgetPixels(const GridRect& twips) const {
    return QRect(floorToPixels(twips.left - originTwips_.x()), floorToPixels(twips.top - originTwips_.y()),
                 floorToPixels(twips.width), floorToPixels(twips.height));
}

void MapGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Field pictures stay crisp when scaled to the device pixel ratio.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const QRect dirty = event->rect();
    const std::vector<GridField>& fields = layout_.fields();
    for (std::size_t index = 0; index < fields.size(); ++index) {
        if (!fields[index].visible) continue;
        const QRect target = toWidgetPixels(fields[index].rect);
        if (!target.intersects(dirty)) continue;
        const int shown = pictures_[index];
        if (shown >= 1 && shown <= picture::kCount && !images_[shown].isNull())
            painter.drawPixmap(target, images_[shown]);
        else
            painter.fillRect(target, Qt::darkGray);
    }
    painter.setFont(labelFont_);
    painter.setPen(palette().color(QPalette::WindowText));
    for (const GridLabel& label : layout_.labels()) {
        if (!label.visible) continue;
        const QRect target = toWidgetPixels(label.rect);
        if (target.intersects(dirty)) painter.drawText(target, Qt::AlignCenter, FromCore(label.caption));
    }
}

int MapGrid::fieldAt(const QPoint& point) const {
    // The pixel's centre, in twips of the window.
    return layout_.fieldAt(originTwips_.x() + (point.x() + 0.5) * kTwipsPerPixel,
                           originTwips_.y() + (point.y() + 0.5) * kTwipsPerPixel);
}

bool MapGrid::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int k = fieldAt(help->pos());
    QString name;
    if (k != 0) {
        try {
            name = FromCore(FieldName(world_, k));
        } catch (const std::exception&) {
            // A map whose names cannot be made keeps its fields unnamed.
        }
    }
    if (name.isEmpty()) {
        QToolTip::hideText();
        event->ignore();
    } else {
        // Bound to the field, so the tooltip follows the pointer to the next field.
        QToolTip::showText(help->globalPos(), name, this, toWidgetPixels(layout_.fields()[k - 1].rect));
    }
    return true;
}

void MapGrid::mousePressEvent(QMouseEvent* event) {
    pressedField_ = event->button() == Qt::LeftButton ? fieldAt(event->position().toPoint()) : 0;
}

void MapGrid::mouseReleaseEvent(QMouseEvent* event) {
    // A click is a press and a release on the same field.
    const int pressed = std::exchange(pressedField_, 0);
    if (event->button() == Qt::LeftButton && pressed != 0 &&
        fieldAt(event->position().toPoint()) == pressed)
        emit clicked(pressed);
}

}  // namespace trelvin
