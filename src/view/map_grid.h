#pragma once
// The map: one painted widget holding the field pictures m(1..) and the grid labels l(1..),
// so that maps of ten thousand fields open and redraw at once. It is given the world once and
// a way of viewing at each redraw, and paints the pictures that redraw chose. Positions are
// twips of the window's client area; the widget covers their bounding box.
#include <vector>

#include <QPixmap>
#include <QWidget>

#include "model/world_state.h"
#include "view/field_pictures.h"
#include "view/grid_layout.h"

namespace trelvin {

class MapGrid : public QWidget {
    Q_OBJECT

public:
    MapGrid(WorldState& world, QWidget* parent = nullptr);

    // Unloads m(1) .. and l(1) ..; the templates stay.
    void unloadAll();

    // Builds the grid for a map of `rows` x `columns` with the window's outer width in twips;
    // every field starts with the free-land picture. Throws at the grid's limits, keeping the
    // elements loaded until then.
    void build(int rows, int columns, double windowWidth);

    // Chooses every field's picture from the world in that way of viewing (which updates the
    // fields' visibility in the world) and paints them.
    void redraw(ViewMode mode);

    const GridLayout& layout() const { return layout_; }
    int fieldCount() const { return layout_.fieldCount(); }
    // Picture of field k (1-based).
    int fieldPicture(int k) const { return pictures_.at(k - 1); }

signals:
    void clicked(int k);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void fitToContent();
    QRect toWidgetPixels(const GridRect& twips) const;
    int fieldAt(const QPoint& point) const;

    WorldState& world_;
    GridLayout layout_;
    std::vector<int> pictures_;
    std::vector<QPixmap> images_;  // entry 0 unused
    QFont labelFont_;
    QPoint originTwips_;
    int pressedField_ = 0;
};

}  // namespace trelvin
