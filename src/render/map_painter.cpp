#include "render/map_painter.h"

#include <algorithm>
#include <cmath>

#include <QFont>
#include <QImage>
#include <QPainter>

#include "bridge/core_text.h"
#include "view/field_pictures.h"

namespace trelvin {

namespace {

// The captions are 12-point text, 16 pixels at the natural size; smaller than this a caption
// is no longer legible and is left out.
constexpr int kCaptionPixels = 16;
constexpr int kSmallestLegibleCaption = 6;

// Colours that no field picture has, seen on dark and light fields alike.
constexpr QRgb kMarkColour = qRgb(255, 0, 220);
constexpr QRgb kCaptureColour = qRgb(210, 0, 0);
constexpr QRgb kMarkEdgeColour = qRgb(0, 0, 0);
// On smaller fields the arrow's dark edge would cover more than the arrow.
constexpr int kSmallestEdgedArrow = 12;
// A mark keeps this size on smaller fields, drawn around the field's centre, with lines of at
// least two pixels: one pixel on a field of a few would not be seen.
constexpr int kSmallestMark = 12;
constexpr int kThinnestSmallMark = 2;

QRect fieldSquare(int k, int columns, QPoint gridCorner, int size) {
    const int row = (k - 1) / columns, column = (k - 1) % columns;
    return QRect(gridCorner.x() + column * size, gridCorner.y() + row * size, size, size);
}

// Where a field's mark is drawn: its square, or around it the smallest mark's.
QRect markSquare(int k, int columns, QPoint gridCorner, int size) {
    const QRect square = fieldSquare(k, columns, gridCorner, size);
    if (size >= kSmallestMark) return square;
    const int grow = (kSmallestMark - size) / 2;
    return square.adjusted(-grow, -grow, kSmallestMark - size - grow, kSmallestMark - size - grow);
}

int lineWidth(int size) { return size >= kSmallestMark ? std::max(1, size / 10) : kThinnestSmallMark; }

// A frame of `width` inside the square.
void outline(QPainter& painter, const QRect& square, int width, QColor colour) {
    if (square.width() <= 2 * width + 1) return painter.fillRect(square, colour);  // too small for a hole
    const QRect inner = square.adjusted(width, width, -width, -width);
    painter.fillRect(QRect(square.left(), square.top(), square.width(), width), colour);
    painter.fillRect(QRect(square.left(), inner.bottom() + 1, square.width(), width), colour);
    painter.fillRect(QRect(square.left(), inner.top(), width, inner.height()), colour);
    painter.fillRect(QRect(inner.right() + 1, inner.top(), width, inner.height()), colour);
}

// A line from the centre of one square to the centre of the other, whose head ends there, with
// a dark edge that sets it off from the outlines and the pictures; it stays within the squares.
void arrow(QPainter& painter, const QRect& from, const QRect& to, int size, QColor colour) {
    const QPointF start = QRectF(from).center(), tip = QRectF(to).center();
    const QPointF along = tip - start;
    const double length = std::hypot(along.x(), along.y());
    if (length <= 0) return;
    const QPointF unit = along / length, across(-unit.y(), unit.x());
    const double head = std::max(3.0, size * 0.45);
    const QPointF base = tip - unit * head;
    const QPolygonF point({tip, base + across * (head / 2), base - across * (head / 2)});
    const int width = std::max(1, size / 8);
    const bool edged = size >= kSmallestEdgedArrow;
    for (const bool edge : {true, false}) {
        if (edge && !edged) continue;
        const QColor shade = edge ? QColor(kMarkEdgeColour) : colour;
        painter.setPen(QPen(shade, edge ? width + 2 : width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.drawLine(start, base);
        painter.setPen(edge ? QPen(shade, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin) : Qt::NoPen);
        painter.setBrush(shade);
        painter.drawPolygon(point);
    }
}

}  // namespace

MapPainter::MapPainter() {
    images_.resize(picture::kCount + 1);
    for (int index = 1; index <= picture::kCount; ++index)
        images_[std::size_t(index)] = QPixmap(QStringLiteral(":/fields/%1.png").arg(index, 2, 10, QLatin1Char('0')));
    setFieldPixels(kNaturalFieldPixels);
}

void MapPainter::setFieldPixels(int pixels, qreal devicePixelRatio) {
    if (pixels == fieldPixels_ && devicePixelRatio == devicePixelRatio_ && !scaled_.empty()) return;
    fieldPixels_ = pixels;
    devicePixelRatio_ = devicePixelRatio;
    captionTiles_.clear();
    // Whole factors and more stay crisp; below the natural size the pictures are smoothed.
    const Qt::TransformationMode mode =
        pixels < kNaturalFieldPixels ? Qt::SmoothTransformation : Qt::FastTransformation;
    const int side = int(std::lround(pixels * devicePixelRatio));
    scaled_.assign(images_.size(), QPixmap());
    for (std::size_t i = 1; i < images_.size(); ++i) {
        if (images_[i].isNull()) continue;
        scaled_[i] = images_[i].scaled(side, side, Qt::IgnoreAspectRatio, mode);
        scaled_[i].setDevicePixelRatio(devicePixelRatio);
    }
}

void MapPainter::setSharpLetters(bool sharp) {
    if (sharp != sharpLetters_) captionTiles_.clear();
    sharpLetters_ = sharp;
}

void MapPainter::paintFields(QPainter& painter, const MapScene& scene, QPoint gridCorner, const QRect& exposed) {
    const int count = static_cast<int>(scene.pictures.size());
    const int columns = scene.columns;
    if (count == 0 || columns <= 0) return;
    // Only the fields in the exposed part: they lie in rows of `columns` from the first one.
    const int size = fieldPixels_;
    const int c0 = std::clamp((exposed.left() - gridCorner.x()) / size - 1, 0, columns - 1);
    const int c1 = std::clamp((exposed.right() - gridCorner.x()) / size + 1, 0, columns - 1);
    const int r0 = std::clamp((exposed.top() - gridCorner.y()) / size - 1, 0, scene.rows() - 1);
    const int r1 = std::clamp((exposed.bottom() - gridCorner.y()) / size + 1, 0, scene.rows() - 1);
    for (int r = r0; r <= r1; ++r) {
        for (int c = c0; c <= c1; ++c) {
            const int k = r * columns + c + 1;
            if (k > count) continue;
            const QRect target(gridCorner.x() + c * size, gridCorner.y() + r * size, size, size);
            const int shown = scene.pictures[std::size_t(k - 1)];
            if (shown >= 1 && shown <= picture::kCount && !scaled_[std::size_t(shown)].isNull())
                painter.drawPixmap(target.topLeft(), scaled_[std::size_t(shown)]);
            else
                painter.fillRect(target, Qt::darkGray);
        }
    }
}

void MapPainter::paintCaptions(QPainter& painter, const MapScene& scene, QPoint gridCorner, const QRect& view,
                               const QRect& exposed, const QPalette& palette) {
    const int size = fieldPixels_;
    const bool legible = kCaptionPixels * size / kNaturalFieldPixels >= kSmallestLegibleCaption;
    const QColor band = palette.color(QPalette::Window);
    const QColor pen = palette.color(QPalette::WindowText);
    const auto paint = [&](QRect target, const std::string& caption) {
        if (!target.intersects(exposed)) return;
        if (legible)
            painter.drawPixmap(target.topLeft(), captionTile(caption, band, pen));
        else
            painter.fillRect(target, band);
    };
    for (std::size_t j = 0; j < scene.columnCaptions.size(); ++j) {
        const QRect target(gridCorner.x() + int(j) * size, std::max(gridCorner.y() - size, view.top()), size, size);
        paint(target, scene.columnCaptions[j]);
    }
    for (std::size_t i = 0; i < scene.rowCaptions.size(); ++i) {
        const QRect target(std::max(gridCorner.x() - size, view.left()), gridCorner.y() + int(i) * size, size, size);
        paint(target, scene.rowCaptions[i]);
    }
    // Where the two bands meet when both stick to the edges.
    const QPoint corner = gridCorner - QPoint(size, size);
    if (scene.hasCaptions() && (view.top() > 0 || view.left() > 0))
        painter.fillRect(QRect(QPoint(std::max(corner.x(), view.left()), std::max(corner.y(), view.top())),
                               QSize(size, size)),
                         band);
}

const QPixmap& MapPainter::captionTile(const std::string& caption, QColor band, QColor pen) {
    if (band.rgba() != tileBand_ || pen.rgba() != tilePen_) {
        captionTiles_.clear();
        tileBand_ = band.rgba();
        tilePen_ = pen.rgba();
    }
    QPixmap& tile = captionTiles_[caption];
    if (!tile.isNull()) return tile;
    const int size = fieldPixels_;
    const int side = int(std::lround(size * devicePixelRatio_));
    tile = QPixmap(side, side);
    tile.setDevicePixelRatio(devicePixelRatio_);
    QPainter painter(&tile);
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPixelSize(kCaptionPixels * size / kNaturalFieldPixels);
    if (sharpLetters_) font.setStyleStrategy(QFont::NoAntialias);
    painter.setFont(font);
    painter.setPen(pen);
    const QRect square(0, 0, size, size);
    painter.fillRect(square, band);
    painter.drawText(square, Qt::AlignCenter, FromCore(caption));
    return tile;
}

void MapPainter::paintMarks(QPainter& painter, const MapScene& scene, QPoint gridCorner, const QRect& exposed) const {
    const ActionMarks& marks = scene.marks;
    if (marks.empty() || scene.columns <= 0 || !marksRect(scene, gridCorner).intersects(exposed)) return;
    const int size = fieldPixels_;
    const int width = lineWidth(size);
    const auto square = [&](int k) { return markSquare(k, scene.columns, gridCorner, size); };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (const int k : marks.outlined) outline(painter, square(k), width, QColor(kMarkColour));
    if (marks.capturedHeadquarters != 0) {
        // A cross over the fallen headquarters, inside a frame of its own colour.
        const QRect fallen = square(marks.capturedHeadquarters);
        outline(painter, fallen, width, QColor(kCaptureColour));
        const QRectF inside = QRectF(fallen).adjusted(2 * width, 2 * width, -2 * width, -2 * width);
        if (inside.isValid()) {
            painter.setPen(QPen(QColor(kCaptureColour), width, Qt::SolidLine, Qt::FlatCap));
            painter.drawLine(inside.topLeft(), inside.bottomRight());
            painter.drawLine(inside.topRight(), inside.bottomLeft());
        }
    }
    // Over the cross, so the attack that took the headquarters still shows where it came from.
    if (marks.arrowFrom != 0 && marks.arrowTo != 0)
        arrow(painter, square(marks.arrowFrom), square(marks.arrowTo), std::max(size, kSmallestMark), QColor(kMarkColour));
    painter.restore();
}

QRect MapPainter::marksRect(const MapScene& scene, QPoint gridCorner) const {
    QRect united;
    if (scene.columns <= 0) return united;
    for (const int k : scene.marks.outlined) united |= markSquare(k, scene.columns, gridCorner, fieldPixels_);
    if (scene.marks.capturedHeadquarters != 0)
        united |= markSquare(scene.marks.capturedHeadquarters, scene.columns, gridCorner, fieldPixels_);
    return united;
}

std::vector<QRgb> MapPainter::MarkColours() { return {kMarkColour, kCaptureColour, kMarkEdgeColour}; }

QSize MapPainter::sceneSize(const MapScene& scene, bool captions) const {
    const int band = captions && scene.hasCaptions() ? fieldPixels_ : 0;
    return QSize(band + scene.columns * fieldPixels_, band + scene.rows() * fieldPixels_);
}

void MapPainter::paintScene(QPainter& painter, const MapScene& scene, bool captions, const QPalette& palette,
                            const QRect& exposed) {
    const int band = captions && scene.hasCaptions() ? fieldPixels_ : 0;
    const QRect whole(QPoint(), sceneSize(scene, captions));
    painter.save();
    painter.setClipRect(exposed);
    painter.fillRect(exposed, palette.color(QPalette::Window));
    paintFields(painter, scene, QPoint(band, band), exposed);
    paintMarks(painter, scene, QPoint(band, band), exposed);
    if (band > 0) paintCaptions(painter, scene, QPoint(band, band), whole, exposed, palette);
    painter.restore();
}

QImage MapPainter::render(const MapScene& scene, bool captions, const QPalette& palette) {
    const QSize size = sceneSize(scene, captions);
    QImage image(size * devicePixelRatio_, QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatio_);
    QPainter painter(&image);
    paintScene(painter, scene, captions, palette, QRect(QPoint(), size));
    return image;
}

MapScene MapScene::FromLayout(const GridLayout& layout) {
    const std::vector<GridField>& fields = layout.fields();
    const auto placed = std::find_if(fields.begin(), fields.end(), [](const GridField& f) { return !f.visible; });
    MapScene scene;
    scene.columns = layout.columns();
    scene.pictures.assign(std::size_t(placed - fields.begin()), picture::kFreeLand);
    const int columns = std::min(layout.columns(), layout.labelCount());
    for (int n = 1; n <= layout.labelCount(); ++n) {
        const GridLabel& label = layout.labels()[std::size_t(n - 1)];
        if (label.visible) (n <= columns ? scene.columnCaptions : scene.rowCaptions).push_back(label.caption);
    }
    return scene;
}

void MapScene::show(const MapFrame& frame, bool withMarks) {
    const std::size_t fields = pictures.size();
    pictures = frame.pictures;
    pictures.resize(fields, picture::kFreeLand);
    marks = withMarks ? frame.marks : ActionMarks{};
}

}  // namespace trelvin
