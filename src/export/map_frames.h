#pragma once
// The frames of an exported picture or animation, painted one at a time into one image: the
// map with the painter the window uses, as the window shows it when the step buttons reach
// each action, and what changed since the frame before.
#include <vector>

#include <QImage>
#include <QPalette>
#include <QRect>

#include "cursor/replay_cursor.h"
#include "export/export_options.h"
#include "model/task_progress.h"
#include "model/world_state.h"
#include "render/map_painter.h"

namespace trelvin {

// The size of every frame of a map of `columns` x `rows` fields.
QSize FrameSize(int columns, int rows, const PictureOptions& options);

class MapFrames {
public:
    // Frames of `replay`'s map, on a copy of it: the replay's own world is left as it is.
    // Throws where the window's grid cannot be built for the map, or it has no field.
    MapFrames(const WorldState& replay, const PictureOptions& options, const QPalette& palette);

    // Applies the actions from the first up to `action` and paints its frame whole. False when
    // `progress` stopped it on the way, asked with the action reached of `total`.
    bool start(int action, TaskProgress* progress, int total);
    // The next action's frame: what changed is painted again.
    void next();

    int action() const { return cursor_.position(); }
    const QImage& image() const { return image_; }
    // The part the last start() or next() painted; empty when nothing changed.
    QRect changed() const { return changed_; }
    // Every colour a frame can hold, those most used by the field pictures first.
    std::vector<QRgb> colours();

private:
    void paintCaption();

    PictureOptions options_;
    QPalette palette_;
    MapScene scene_;
    ReplayCursor cursor_;
    MapPainter painter_;
    QImage image_;
    QRect mapRect_;
    QRect stripRect_;
    QRect changed_;
};

}  // namespace trelvin
