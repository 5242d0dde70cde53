#include "widgets/map_grid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <utility>

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include "bridge/core_text.h"
#include "bridge/twips.h"
#include "model/field_addressing.h"
#include "view/field_pictures.h"

namespace trelvin {

namespace {

// The zoom steps, as a field's side in pixels; 20 is 100 %.
constexpr std::array<int, 17> kSteps{2, 3, 4, 5, 6, 8, 10, 12, 14, 16, 20, 24, 30, 40, 50, 60, 80};

}  // namespace

MapGrid::MapGrid(QWidget* parent) : QAbstractScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    viewport()->setBackgroundRole(QPalette::Window);
}

void MapGrid::unloadAll() {
    layout_.clear();
    scene_ = {};
    pressedField_ = 0;
    bounds_ = {};
    fieldPixels_ = kFieldPixels;
    updateScrollBars();
    viewport()->update();
    emit fieldsChanged(fields());
    emit zoomChanged(fieldPixels_);
}

void MapGrid::build(int rows, int columns, double windowWidth) {
    // Whatever was loaded before a failure stays, as the window shows it.
    struct Refresh {
        MapGrid& grid;
        ~Refresh() {
            grid.scene_ = MapScene::FromLayout(grid.layout_);
            grid.bounds_ = grid.layout_.bounds();
            grid.setAreaOrigin(grid.areaOrigin_);
            emit grid.fieldsChanged(grid.fields());
        }
    } refresh{*this};
    layout_.build(rows, columns, windowWidth);
}

void MapGrid::setFrame(const MapFrame& frame, bool withMarks) {
    scene_.show(frame, withMarks);
    viewport()->update();
}

void MapGrid::setAreaOrigin(QPoint twips) {
    areaOrigin_ = twips;
    const auto pixels = [](double from, double to) {
        return std::max(0, static_cast<int>(std::floor((to - from) / kTwipsPerPixel)));
    };
    margin_ = bounds_.isEmpty() ? QPoint()
                                : QPoint(pixels(twips.x(), bounds_.left), pixels(twips.y(), bounds_.top));
    updateScrollBars();
    viewport()->update();
}

QSize MapGrid::contentSize(int fieldPixels) const {
    if (bounds_.isEmpty()) return {};
    const double scale = double(fieldPixels) / GridLayout::kFieldSize;
    return QSize(margin_.x() + int(std::lround(bounds_.width * scale)),
                 margin_.y() + int(std::lround(bounds_.height * scale)));
}

QRect MapGrid::contentRect(const GridRect& twips) const {
    const double scale = double(fieldPixels_) / GridLayout::kFieldSize;
    return QRect(margin_.x() + int(std::lround((twips.left - bounds_.left) * scale)),
                 margin_.y() + int(std::lround((twips.top - bounds_.top) * scale)),
                 int(std::lround(twips.width * scale)), int(std::lround(twips.height * scale)));
}

QPoint MapGrid::scroll() const {
    return QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void MapGrid::updateScrollBars() {
    // The view as it will be once the bars that the content needs are shown, and only those:
    // measured from the current view, a bar once shown would keep itself in place.
    const QSize content = contentSize(fieldPixels_);
    const QSize whole = maximumViewportSize();
    const QSize bars(verticalScrollBar()->sizeHint().width(), horizontalScrollBar()->sizeHint().height());
    QSize view = whole;
    for (int pass = 0; pass < 2; ++pass) {
        if (content.width() > view.width()) view.setHeight(whole.height() - bars.height());
        if (content.height() > view.height()) view.setWidth(whole.width() - bars.width());
    }
    horizontalScrollBar()->setRange(0, std::max(0, content.width() - view.width()));
    verticalScrollBar()->setRange(0, std::max(0, content.height() - view.height()));
    horizontalScrollBar()->setPageStep(view.width());
    verticalScrollBar()->setPageStep(view.height());
    horizontalScrollBar()->setSingleStep(fieldPixels_);
    verticalScrollBar()->setSingleStep(fieldPixels_);
}

QPoint MapGrid::gridCorner() const {
    const int band = scene_.hasCaptions() ? fieldPixels_ : 0;
    return margin_ + QPoint(band, band);
}

void MapGrid::setFieldPixels(int pixels, std::optional<QPoint> anchor) {
    pixels = std::clamp(pixels, kSteps.front(), kSteps.back());
    if (pixels == fieldPixels_) return;
    // The point under the anchor, in fields from the grid's corner, stays under it.
    const QPoint at = anchor.value_or(QPoint());
    const QPointF fields = QPointF(at + scroll() - margin_) / fieldPixels_;
    fieldPixels_ = pixels;
    updateScrollBars();
    const QPointF wanted = fields * pixels + QPointF(margin_) - QPointF(at);
    horizontalScrollBar()->setValue(int(std::lround(wanted.x())));
    verticalScrollBar()->setValue(int(std::lround(wanted.y())));
    viewport()->update();
    emit zoomChanged(pixels);
}

void MapGrid::zoomIn(std::optional<QPoint> anchor) {
    const auto next = std::upper_bound(kSteps.begin(), kSteps.end(), fieldPixels_);
    if (next != kSteps.end()) setFieldPixels(*next, anchor);
}

void MapGrid::zoomOut(std::optional<QPoint> anchor) {
    const auto next = std::lower_bound(kSteps.begin(), kSteps.end(), fieldPixels_);
    if (next != kSteps.begin()) setFieldPixels(*std::prev(next), anchor);
}

void MapGrid::zoomToFit() {
    if (bounds_.isEmpty()) return;
    const QSize view = viewport()->size();
    const double across = bounds_.width / GridLayout::kFieldSize;
    const double down = bounds_.height / GridLayout::kFieldSize;
    const int pixels = int(std::min((view.width() - margin_.x()) / across, (view.height() - margin_.y()) / down));
    setFieldPixels(std::clamp(pixels, kSteps.front(), kSteps.back()));
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
}

void MapGrid::bringMarksIntoView() {
    const QRect marks = painter_.marksRect(scene_, gridCorner());
    if (marks.isEmpty()) return;
    // The fields' view: the viewport less the captions' bands at its top and left.
    const int band = scene_.hasCaptions() ? fieldPixels_ : 0;
    const QRect view = QRect(scroll(), viewport()->size()).adjusted(band, band, 0, 0);
    // Along each axis the least move; marks larger than the view show from their start.
    const auto least = [](int start, int end, int viewStart, int viewEnd) {
        if (end - start > viewEnd - viewStart || start < viewStart) return start - viewStart;
        return end > viewEnd ? end - viewEnd : 0;
    };
    const int dx = least(marks.left(), marks.right(), view.left(), view.right());
    const int dy = least(marks.top(), marks.bottom(), view.top(), view.bottom());
    if (dx != 0) horizontalScrollBar()->setValue(horizontalScrollBar()->value() + dx);
    if (dy != 0) verticalScrollBar()->setValue(verticalScrollBar()->value() + dy);
}

void MapGrid::setEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

QRect MapGrid::fieldRectInViewport(int k) const {
    if (k < 1 || k > fieldCount()) return {};
    return contentRect(layout_.fields()[std::size_t(k - 1)].rect).translated(-scroll());
}

int MapGrid::fieldAt(QPoint viewportPoint) const {
    if (bounds_.isEmpty()) return 0;
    // The pixel's centre, in twips of the window.
    const QPointF content = QPointF(viewportPoint + scroll() - margin_) + QPointF(0.5, 0.5);
    const double twipsPerPixel = double(GridLayout::kFieldSize) / fieldPixels_;
    return layout_.fieldAt(bounds_.left + content.x() * twipsPerPixel, bounds_.top + content.y() * twipsPerPixel);
}

void MapGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    if (bounds_.isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
        return;
    }
    const QPoint offset = scroll();
    painter.translate(-offset);
    const QRect exposed = event->rect().translated(offset);
    painter_.setFieldPixels(fieldPixels_, viewport()->devicePixelRatioF());
    painter_.paintFields(painter, scene_, gridCorner(), exposed);
    painter_.paintMarks(painter, scene_, gridCorner(), exposed);
    painter_.paintCaptions(painter, scene_, gridCorner(), QRect(offset, viewport()->size()), exposed, palette());
}

void MapGrid::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

bool MapGrid::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int k = fieldAt(help->pos());
    QString name;
    if (k != 0) {
        try {
            name = FromCore(FieldName(layout_.columns(), k));
        } catch (const std::exception&) {
            // A map whose names cannot be made keeps its fields unnamed.
        }
    }
    if (name.isEmpty()) {
        QToolTip::hideText();
        event->ignore();
    } else {
        // Bound to the field, so the tooltip follows the pointer to the next field.
        QToolTip::showText(help->globalPos(), name, viewport(), fieldRectInViewport(k));
    }
    return true;
}

// The labels stay at the edges, so the view is painted anew rather than shifted.
void MapGrid::scrollContentsBy(int, int) { viewport()->update(); }

void MapGrid::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    // A touchpad turns the wheel in small parts of a notch: they add up to whole steps.
    wheelTurned_ += event->angleDelta().y();
    const int steps = wheelTurned_ / 120;
    wheelTurned_ %= 120;
    const QPoint at = event->position().toPoint();
    for (int i = 0; i < std::abs(steps); ++i) steps > 0 ? zoomIn(at) : zoomOut(at);
    event->accept();
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
