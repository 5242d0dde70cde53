#pragma once
// One painter for every picture of the map: the window's scrolling area paints the part in
// view with it, and a picture or an animation of the map is painted with it into an image, so
// both show the same pixels. It paints what a scene holds and reads no world.
#include <string>
#include <unordered_map>
#include <vector>

#include <QColor>
#include <QPalette>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QSize>

#include "view/action_marks.h"
#include "view/grid_layout.h"
#include "view/map_frame.h"

class QImage;
class QPainter;

namespace trelvin {

// What the map shows, apart from where and how large.
struct MapScene {
    int columns = 0;            // fields in a row
    std::vector<int> pictures;  // the picture (1 .. 16) of each field, row by row from A0
    // The column letters left to right and the row numbers top to bottom (Windows-1250); empty
    // for a grid that has none.
    std::vector<std::string> columnCaptions;
    std::vector<std::string> rowCaptions;
    // The current action's marks, drawn over the pictures; empty when the action is not
    // highlighted.
    ActionMarks marks;

    int rows() const { return columns > 0 ? (static_cast<int>(pictures.size()) + columns - 1) / columns : 0; }
    bool hasCaptions() const { return !columnCaptions.empty() || !rowCaptions.empty(); }

    // The scene of a newly built layout: free land everywhere, the captions of a complete grid.
    // A field whose place a failure left unset is not shown.
    static MapScene FromLayout(const GridLayout& layout);
    // Shows a frame of the map: its pictures on the scene's fields (free land where it has
    // none), and its marks when they are asked for.
    void show(const MapFrame& frame, bool withMarks);
};

class MapPainter {
public:
    // A field's side in logical pixels at 100 %: the pictures' own size.
    static constexpr int kNaturalFieldPixels = 20;

    MapPainter();

    // The size of a field's side in logical pixels, and the pixel density of what is painted on.
    void setFieldPixels(int pixels, qreal devicePixelRatio = 1.0);
    int fieldPixels() const { return fieldPixels_; }

    // The fields of the scene that meet `exposed`, field A0 at `gridCorner`. A picture number
    // outside 1 .. 16 shows as a grey square.
    void paintFields(QPainter& painter, const MapScene& scene, QPoint gridCorner, const QRect& exposed);

    // The column letters on a band above the grid at `gridCorner`, the row numbers on a band left
    // of it, in the palette's window colours. They keep inside `view`: as the map scrolls under
    // them they stay at its edges, and a corner is filled where the two bands then meet. Text too
    // small to read is left out, its bands stay.
    void paintCaptions(QPainter& painter, const MapScene& scene, QPoint gridCorner, const QRect& view,
                       const QRect& exposed, const QPalette& palette);

    // The scene's action marks over the fields that meet `exposed`: an outline on each marked
    // field, an arrow from field to field and a cross on a captured headquarters. Their edges
    // are never smoothed, so they add no colour but their own, at any size.
    void paintMarks(QPainter& painter, const MapScene& scene, QPoint gridCorner, const QRect& exposed) const;
    // Where the marks are painted: within the squares of the fields they name (on fields smaller
    // than a mark's least size, around them); empty for none.
    QRect marksRect(const MapScene& scene, QPoint gridCorner) const;
    // The colours of the marks, which a picture with them holds besides the pictures' own.
    static std::vector<QRgb> MarkColours();

    // Letters drawn in the pen's colour alone, their edges not smoothed: a picture then holds
    // no colour but the field pictures' and the bands' two (and the marks'), which a GIF's
    // palette needs.
    void setSharpLetters(bool sharp);

    // The whole scene as an image: the captions' bands above and left of the grid when asked
    // for; otherwise the grid alone, one picture per field and the marks the scene holds.
    QImage render(const MapScene& scene, bool captions, const QPalette& palette);
    QSize sceneSize(const MapScene& scene, bool captions) const;
    // The part `exposed` of that image, painted anew with the same pixels.
    void paintScene(QPainter& painter, const MapScene& scene, bool captions, const QPalette& palette,
                    const QRect& exposed);

private:
    // A caption on its square of the band, laid out once: laying text out anew for every caption
    // of every paint made each scroll of the map cost a frame's worth of time.
    const QPixmap& captionTile(const std::string& caption, QColor band, QColor pen);

    std::vector<QPixmap> images_;  // the 16 pictures, entry 0 unused
    std::vector<QPixmap> scaled_;  // at the current size and density
    // The captions' tiles at the current size, density, letters and colours.
    std::unordered_map<std::string, QPixmap> captionTiles_;
    QRgb tileBand_ = 0;
    QRgb tilePen_ = 0;
    int fieldPixels_ = kNaturalFieldPixels;
    qreal devicePixelRatio_ = 1.0;
    bool sharpLetters_ = false;
};

}  // namespace trelvin
