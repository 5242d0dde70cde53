#include "view/map_grid.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <string>
#include <utility>

#include <QMouseEvent>
#include <QPainter>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QToolTip>

#include "model/checked_math.h"
#include "model/field_addressing.h"
#include "shell/core_text.h"
#include "shell/twips.h"
#include "view/field_pictures.h"

namespace trelvin {

namespace {

// The first row starts 2950 twips down; the column characters fill the band above it.
constexpr int kFirstRowTop = 2650;

int floorToPixels(double twips) {
    return static_cast<int>(std::floor(twips / kTwipsPerPixel));
}

}  // namespace

MapGrid::MapGrid(QWidget* parent) : QWidget(parent), labelFont_(QStringLiteral("MS Sans Serif"), 12) {
    pictures_.resize(picture::kCount + 1);
    for (int index = 1; index <= picture::kCount; ++index)
        pictures_[index] = QPixmap(QStringLiteral(":/fields/%1.png").arg(index, 2, 10, QLatin1Char('0')));
    hide();
}

void MapGrid::unloadAll() {
    fields_.clear();
    labels_.clear();
    pressedField_ = 0;
    fitToContent();
}

const MapGrid::Field& MapGrid::firstField() const {
    if (fields_.empty())
        throw RuleError(RuleError::Kind::OutOfRange, "Prvek m(1) pole ovladacich prvku neexistuje");
    return fields_.front();
}

MapGrid::Label& MapGrid::loadLabel() {
    labels_.emplace_back();
    return labels_.back();
}

void MapGrid::build(int rows, int columns, double windowWidth) {
    // Whatever was loaded before a failure stays, as the window shows it.
    struct RefitOnExit {
        MapGrid& grid;
        ~RefitOnExit() { grid.fitToContent(); }
    } refit{*this};

    for (int i = 1; i <= rows; ++i) {
        for (int j = 1; j <= columns; ++j) {
            checked16(std::int64_t{i - 1} * columns + j);  // the field's index is 16-bit too
            Field& field = fields_.emplace_back();
            const std::int16_t top = checked16(std::int64_t{300} * i + kFirstRowTop);
            const std::int16_t columnOffset = checked16(std::int64_t{300} * j);
            const float left = static_cast<float>(windowWidth) / 2.0f + columnOffset - 150.0f;
            field.rect = QRectF(left, top, kFieldTemplateSize, kFieldTemplateSize);
            field.visible = true;
            field.picture = picture::kFreeLand;
        }
    }
    for (int j = 1; j <= columns; ++j) {
        Label& label = loadLabel();
        const QRectF first = firstField().rect;
        if (j > fieldCount())
            throw RuleError(RuleError::Kind::OutOfRange, "Prvek m(" + std::to_string(j) +
                                                             ") pole ovladacich prvku neexistuje");
        label.rect = QRectF(fields_[j - 1].rect.left(), first.top() - kFieldTemplateSize,
                            first.width(), first.height());
        label.caption = FromCore(ColumnCharacter(j - 1));
        label.visible = true;
    }
    for (int i = 1; i <= rows; ++i) {
        Label& label = loadLabel();
        const QRectF first = firstField().rect;
        const int rowStart = (i - 1) * columns + 1;
        if (rowStart > fieldCount())
            throw RuleError(RuleError::Kind::OutOfRange, "Prvek m(" + std::to_string(rowStart) +
                                                             ") pole ovladacich prvku neexistuje");
        label.rect = QRectF(first.left() - first.width(), fields_[rowStart - 1].rect.top(),
                            first.width(), first.height());
        label.caption = QString::number(i - 1);
        label.visible = true;
    }
}

void MapGrid::setPictures(const std::vector<int>& pictures) {
    const std::size_t count = std::min(pictures.size(), fields_.size());
    for (std::size_t index = 0; index < count; ++index) fields_[index].picture = pictures[index];
    update();
}

QRectF MapGrid::contentRect() const {
    QRectF bounds;
    for (const Field& field : fields_)
        if (field.visible) bounds = bounds.united(field.rect);
    for (const Label& label : labels_)
        if (label.visible) bounds = bounds.united(label.rect);
    return bounds;
}

void MapGrid::fitToContent() {
    const QRectF bounds = contentRect();
    if (bounds.isEmpty()) {
        hide();
        return;
    }
    const QPoint topLeft(floorToPixels(bounds.left()), floorToPixels(bounds.top()));
    const QPoint bottomRight(floorToPixels(bounds.right()), floorToPixels(bounds.bottom()));
    originTwips_ = topLeft * kTwipsPerPixel;
    setGeometry(QRect(topLeft, QSize(bottomRight.x() - topLeft.x(), bottomRight.y() - topLeft.y())));
    show();
    update();
}

QRect MapGrid::toWidgetPixels(const QRectF& twips) const {
    const int left = floorToPixels(twips.left() - originTwips_.x());
    const int top = floorToPixels(twips.top() - originTwips_.y());
    return QRect(left, top, floorToPixels(twips.width()), floorToPixels(twips.height()));
}

void MapGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Field pictures stay crisp when scaled to the device pixel ratio.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const QRect dirty = event->rect();
    for (const Field& field : fields_) {
        if (!field.visible) continue;
        const QRect target = toWidgetPixels(field.rect);
        if (!target.intersects(dirty)) continue;
        const bool known = field.picture >= 1 && field.picture <= picture::kCount &&
                           !pictures_[field.picture].isNull();
        if (known)
            painter.drawPixmap(target, pictures_[field.picture]);
        else
            painter.fillRect(target, Qt::darkGray);
    }
    painter.setFont(labelFont_);
    painter.setPen(palette().color(QPalette::WindowText));
    for (const Label& label : labels_) {
        if (!label.visible) continue;
        const QRect target = toWidgetPixels(label.rect);
        if (target.intersects(dirty))
            painter.drawText(target, Qt::AlignCenter, label.caption);
    }
}

int MapGrid::fieldAt(const QPoint& point) const {
    for (int k = 1; k <= fieldCount(); ++k) {
        const Field& field = fields_[k - 1];
        if (field.visible && toWidgetPixels(field.rect).contains(point)) return k;
    }
    return 0;
}

bool MapGrid::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int k = fieldAt(help->pos());
    QString name;
    if (k != 0 && fieldNames_) {
        try {
            name = fieldNames_(k);
        } catch (const std::exception&) {
            // A map whose names cannot be made keeps its fields unnamed.
        }
    }
    if (name.isEmpty()) {
        QToolTip::hideText();
        event->ignore();
    } else {
        // Bound to the field, so the tooltip follows the pointer to the next field.
        QToolTip::showText(help->globalPos(), name, this, toWidgetPixels(fields_[k - 1].rect));
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
