#pragma once
// Where the map's elements stand: the field pictures m(1..) and the grid labels l(1..), in
// twips of the window, laid out for one map when a replay is opened. Plain data, so the
// layout and its limits are known without a window.
#include <string>
#include <vector>

namespace trelvin {

struct GridRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    double right() const { return left + width; }
    double bottom() const { return top + height; }
    bool isEmpty() const { return width <= 0 || height <= 0; }
    bool contains(double x, double y) const { return x >= left && x < right() && y >= top && y < bottom(); }
    GridRect united(const GridRect& other) const;
    bool operator==(const GridRect&) const = default;
};

// A loaded element starts hidden and is shown once its place is set.
struct GridField {
    GridRect rect;
    bool visible = false;
};

struct GridLabel {
    GridRect rect;
    bool visible = false;
    std::string caption;  // Windows-1250
};

class GridLayout {
public:
    // The template m(0): a field is 300 x 300 twips.
    static constexpr int kFieldSize = 300;
    // The column letters' band starts here, in twips from the window's top; the first row of
    // fields lies just below it.
    static constexpr int kColumnLettersTop = 2650;

    // Unloads every element; the templates stay.
    void clear();

    // Lays out the fields row by row, then the column characters, then the row numbers, for
    // the window's outer width `windowWidth` in twips. Positions and indexes are 16-bit: a map
    // of 101 rows or 110 columns throws an overflow, keeping the elements loaded until then.
    void build(int rows, int columns, double windowWidth);

    const std::vector<GridField>& fields() const { return fields_; }
    const std::vector<GridLabel>& labels() const { return labels_; }
    int fieldCount() const { return static_cast<int>(fields_.size()); }
    int labelCount() const { return static_cast<int>(labels_.size()); }
    // Fields in a row of the layout.
    int columns() const { return columns_; }

    // The shown field (1-based) at a point in twips of the window; 0 when there is none.
    int fieldAt(double x, double y) const;

    // Bounding box of everything shown; empty when nothing is.
    GridRect bounds() const;

private:
    const GridField& firstField() const;
    GridLabel& loadLabel();

    std::vector<GridField> fields_;
    std::vector<GridLabel> labels_;
    int columns_ = 0;
};

}  // namespace trelvin
