#pragma once
// The map: the field pictures m(1..) and the grid labels l(1..) painted in one scrolling area,
// so that maps of ten thousand fields open, redraw and scroll at once. It is given the pictures
// a redraw chose and paints the part in view with the map painter.
//
// Positions follow the grid's layout in twips of the window. The area's own top-left corner
// stands at a place of the window too; at 100 % every element appears exactly where the
// layout puts it, and zooming scales the grid from its top-left corner. The column letters
// and row numbers stay in view while the map scrolls.
#include <optional>
#include <vector>

#include <QAbstractScrollArea>

#include "bridge/twips.h"
#include "view/grid_layout.h"
#include "render/map_painter.h"

namespace trelvin {

class MapGrid : public QAbstractScrollArea {
    Q_OBJECT

public:
    // A field's side in logical pixels at 100 %.
    static constexpr int kFieldPixels = TwipsToPixels(GridLayout::kFieldSize);
    static_assert(kFieldPixels == MapPainter::kNaturalFieldPixels);

    explicit MapGrid(QWidget* parent = nullptr);

    // Unloads m(1) .. and l(1) ..; the templates stay.
    void unloadAll();

    // Builds the grid for a map of `rows` x `columns` with the window's outer width in twips;
    // every field starts with the free-land picture. Throws at the grid's limits, keeping the
    // elements loaded until then.
    void build(int rows, int columns, double windowWidth);

    // Shows a frame of the map, with its marks or without.
    void setFrame(const MapFrame& frame, bool withMarks);

    const GridLayout& layout() const { return layout_; }
    // What the map shows: the pictures and the captions.
    const MapScene& scene() const { return scene_; }
    // The highest index of m: the fields loaded, one of them perhaps unplaced after a failure.
    int fieldCount() const { return layout_.fieldCount(); }
    // The fields a redraw covers (those loaded) and those it shows (those placed).
    MapFields fields() const { return {fieldCount(), static_cast<int>(scene_.pictures.size())}; }

    // Where the area's top-left corner stands in the window, in twips.
    void setAreaOrigin(QPoint twips);

    // The zoom, as a field's side in logical pixels.
    int fieldPixels() const { return fieldPixels_; }
    // Zooms so that the point `anchor` of the viewport keeps the field under it, where the
    // scroll bars allow; without an anchor, the viewport's top-left corner stays.
    void setFieldPixels(int pixels, std::optional<QPoint> anchor = std::nullopt);
    void zoomIn(std::optional<QPoint> anchor = std::nullopt);
    void zoomOut(std::optional<QPoint> anchor = std::nullopt);
    void zoomToFit();

    // Scrolls the least that brings the marks of the current action into the view of the fields
    // (the captions' bands cover its edges); marks already in view leave it where it is.
    void bringMarksIntoView();
    // The text shown in an area with no map, such as how to open one.
    void setEmptyText(const QString& text);

    // The size of everything the area shows at a zoom, from its top-left corner.
    QSize contentSize(int fieldPixels) const;
    // Field k's square, and the field under a point, in viewport pixels; 0 for none.
    QRect fieldRectInViewport(int k) const;
    int fieldAt(QPoint viewportPoint) const;

signals:
    void clicked(int k);
    // The grid was built or unloaded: its fields changed.
    void fieldsChanged(trelvin::MapFields fields);
    // The zoom changed, to a field's side of `pixels`.
    void zoomChanged(int pixels);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    // An element's square in content pixels at the current zoom.
    QRect contentRect(const GridRect& twips) const;
    QPoint scroll() const;
    void updateScrollBars();
    // Where field A0 stands, in content pixels.
    QPoint gridCorner() const;

    GridLayout layout_;
    MapScene scene_;
    MapPainter painter_;
    QPoint areaOrigin_;      // twips
    GridRect bounds_;        // of the shown elements, twips
    QPoint margin_;          // from the area's corner to the grid's, pixels
    int fieldPixels_ = kFieldPixels;
    int pressedField_ = 0;
    int wheelTurned_ = 0;  // Ctrl+wheel turned since the last zoom step, in eighths of a degree
    QString emptyText_;
};

}  // namespace trelvin
