#include "export/map_frames.h"

#include <algorithm>
#include <map>
#include <new>

#include <QPainter>

#include "export/caption_strip.h"
#include "export/export_error.h"
#include "view/grid_layout.h"

namespace trelvin {

namespace {

// The map's scene as the window builds its grid, with the grid's limits.
MapScene sceneOf(const WorldState& world) {
    GridLayout layout;
    layout.build(world.mapHeight, world.mapWidth, 0);
    MapScene scene = MapScene::FromLayout(layout);
    if (scene.pictures.empty()) throw ExportError(QStringLiteral("Mapa nema zadne policko"));
    return scene;
}

}  // namespace

QSize FrameSize(int columns, int rows, const PictureOptions& options) {
    const int band = options.labels ? options.fieldPixels : 0;
    return QSize(band + columns * options.fieldPixels,
                 band + rows * options.fieldPixels + (options.caption ? CaptionStripHeight() : 0));
}

MapFrames::MapFrames(const WorldState& replay, const PictureOptions& options, const QPalette& palette)
    : options_(options), palette_(palette), scene_(sceneOf(replay)), cursor_(replay) {
    const int fields = static_cast<int>(scene_.pictures.size());
    cursor_.setMap(options.view, {fields, fields});
    painter_.setFieldPixels(options.fieldPixels);
    painter_.setSharpLetters(true);
    mapRect_ = QRect(QPoint(), painter_.sceneSize(scene_, options.labels));
    if (options.caption) stripRect_ = QRect(0, mapRect_.bottom() + 1, mapRect_.width(), CaptionStripHeight());
    image_ = QImage(mapRect_.united(stripRect_).size(), QImage::Format_RGB32);
    if (image_.isNull()) throw std::bad_alloc();
}

bool MapFrames::start(int action, TaskProgress* progress, int total) {
    if (!cursor_.walkTo(action, progress, total)) return false;
    scene_.show(cursor_.frame(), options_.highlight);
    QPainter painter(&image_);
    painter_.paintScene(painter, scene_, options_.labels, palette_, mapRect_);
    painter.end();
    paintCaption();
    changed_ = image_.rect();
    return true;
}

void MapFrames::next() {
    const std::vector<int> before = scene_.pictures;
    const int size = painter_.fieldPixels();
    const int columns = scene_.columns;
    const QPoint gridCorner(mapRect_.width() - columns * size, mapRect_.width() - columns * size);
    // The last action's marks are painted over, the next one's painted.
    changed_ = painter_.marksRect(scene_, gridCorner);
    cursor_.forward();
    scene_.show(cursor_.frame(), options_.highlight);
    changed_ |= painter_.marksRect(scene_, gridCorner);
    // The block of fields whose picture changed.
    int top = scene_.rows(), bottom = -1, left = columns, right = -1;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] == scene_.pictures[i]) continue;
        const int row = int(i) / columns, column = int(i) % columns;
        top = std::min(top, row);
        bottom = std::max(bottom, row);
        left = std::min(left, column);
        right = std::max(right, column);
    }
    if (bottom >= 0)
        changed_ |= QRect(gridCorner.x() + left * size, gridCorner.y() + top * size, (right - left + 1) * size,
                          (bottom - top + 1) * size);
    // A small field's marks reach past the map's edge; the frame ends there.
    changed_ &= mapRect_;
    if (!changed_.isEmpty()) {
        QPainter painter(&image_);
        painter_.paintScene(painter, scene_, options_.labels, palette_, changed_);
    }
    paintCaption();
    if (options_.caption) changed_ = changed_.united(stripRect_);
}

void MapFrames::paintCaption() {
    if (!options_.caption) return;
    QPainter painter(&image_);
    PaintCaptionStrip(painter, stripRect_, CaptionLines(cursor_.world(), cursor_.position()), palette_);
}

std::vector<QRgb> MapFrames::colours() {
    // The sixteen pictures side by side, painted as every frame paints them.
    MapScene sample;
    sample.columns = picture::kCount;
    for (int p = 1; p <= picture::kCount; ++p) sample.pictures.push_back(p);
    const QImage pictures = painter_.render(sample, false, palette_).convertToFormat(QImage::Format_RGB32);
    std::map<QRgb, int> counts;
    for (int y = 0; y < pictures.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(pictures.constScanLine(y));
        for (int x = 0; x < pictures.width(); ++x) ++counts[line[x]];
    }
    std::vector<std::pair<int, QRgb>> byUse;
    for (const auto& [colour, count] : counts) byUse.emplace_back(-count, colour);
    std::sort(byUse.begin(), byUse.end());
    // The bands and the letters first: they cover whole strips of a frame; then the marks.
    std::vector<QRgb> result;
    const auto add = [&result](QRgb colour) {
        if (std::find(result.begin(), result.end(), colour) == result.end()) result.push_back(colour);
    };
    add(palette_.color(QPalette::Window).rgb());
    add(palette_.color(QPalette::WindowText).rgb());
    if (options_.highlight)
        for (const QRgb colour : MapPainter::MarkColours()) add(colour);
    for (const auto& [count, colour] : byUse) add(colour);
    return result;
}

}  // namespace trelvin
