#pragma once
// What an export of the map asks for: the file, the actions, and how each frame is drawn. The
// window's dialogs and trelvin-export fill the same options.
#include <optional>

#include <QPalette>
#include <QString>

#include "view/field_pictures.h"
#include "render/map_painter.h"

namespace trelvin {

// How the map is drawn in every frame. A further way of drawing is one more member here, read
// where the frames are painted.
struct PictureOptions {
    ViewMode view = ViewMode::All;
    int fieldPixels = MapPainter::kNaturalFieldPixels;
    bool labels = false;   // the column letters and row numbers
    bool caption = false;  // the strip under the map: the action, its date and time, its description
    bool highlight = false;  // the action's marks over the map
};

// The field sizes an export accepts, as the window's zoom does.
inline constexpr int kSmallestExportField = 2;
inline constexpr int kLargestExportField = 80;

// The frame delays an animation accepts, in milliseconds; viewers show shorter ones slower.
inline constexpr int kShortestDelay = 20;
inline constexpr int kLongestDelay = 60000;
inline constexpr int kDefaultDelay = 200;

enum class ExportFormat { Png, Gif, WebP };

// The format an output's extension names (any case): .png, .gif or .webp.
std::optional<ExportFormat> FormatOfPath(const QString& path);

struct ExportJob {
    QString path;
    int first = 1;  // the action of the first frame
    int last = 1;   // of the last: the same for a picture
    int delayMilliseconds = kDefaultDelay;
    PictureOptions picture;
    QPalette palette;  // the bands' and the caption strip's colours
};

}  // namespace trelvin
