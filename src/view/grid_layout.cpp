#include "view/grid_layout.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "model/checked_math.h"
#include "model/field_addressing.h"

namespace trelvin {

namespace {

[[noreturn]] void throwMissingField(int k) {
    throw RuleError(RuleError::Kind::OutOfRange,
                    "Prvek m(" + std::to_string(k) + ") pole ovladacich prvku neexistuje");
}

}  // namespace

GridRect GridRect::united(const GridRect& other) const {
    if (other.isEmpty()) return *this;
    if (isEmpty()) return other;
    const double l = std::min(left, other.left);
    const double t = std::min(top, other.top);
    return {l, t, std::max(right(), other.right()) - l, std::max(bottom(), other.bottom()) - t};
}

void GridLayout::clear() {
    fields_.clear();
    labels_.clear();
    columns_ = 0;
}

const GridField& GridLayout::firstField() const {
    if (fields_.empty()) throwMissingField(1);
    return fields_.front();
}

GridLabel& GridLayout::loadLabel() {
    labels_.emplace_back();
    return labels_.back();
}

void GridLayout::build(int rows, int columns, double windowWidth) {
    columns_ = columns;
    for (int i = 1; i <= rows; ++i) {
        for (int j = 1; j <= columns; ++j) {
            checked16(std::int64_t{i - 1} * columns + j);  // the field's index is 16-bit too
            GridField& field = fields_.emplace_back();
            const std::int16_t top = checked16(std::int64_t{kFieldSize} * i + kColumnLettersTop);
            const std::int16_t columnOffset = checked16(std::int64_t{kFieldSize} * j);
            // The left edge is computed in single precision, as the grid's formula does.
            const float left = static_cast<float>(windowWidth) / 2.0f + columnOffset - 150.0f;
            field.rect = {left, double(top), kFieldSize, kFieldSize};
            field.visible = true;
        }
    }
    for (int j = 1; j <= columns; ++j) {
        GridLabel& label = loadLabel();
        const GridRect first = firstField().rect;
        if (j > fieldCount()) throwMissingField(j);
        label.rect = {fields_[j - 1].rect.left, first.top - kFieldSize, first.width, first.height};
        label.caption = ColumnCharacter(j - 1);
        label.visible = true;
    }
    for (int i = 1; i <= rows; ++i) {
        GridLabel& label = loadLabel();
        const GridRect first = firstField().rect;
        const int rowStart = (i - 1) * columns + 1;
        if (rowStart > fieldCount()) throwMissingField(rowStart);
        label.rect = {first.left - first.width, fields_[rowStart - 1].rect.top, first.width, first.height};
        label.caption = std::to_string(i - 1);
        label.visible = true;
    }
}

int GridLayout::fieldAt(double x, double y) const {
    if (fields_.empty() || columns_ <= 0) return 0;
    // The cells touch in rows of `columns_`, starting at the first field.
    const GridRect& first = fields_.front().rect;
    const double column = std::floor((x - first.left) / kFieldSize);
    const double row = std::floor((y - first.top) / kFieldSize);
    if (column < 0 || column >= columns_ || row < 0 || row * columns_ >= fieldCount()) return 0;
    const int k = static_cast<int>(row) * columns_ + static_cast<int>(column) + 1;
    if (k > fieldCount()) return 0;
    const GridField& field = fields_[k - 1];
    return field.visible && field.rect.contains(x, y) ? k : 0;
}

GridRect GridLayout::bounds() const {
    GridRect result;
    for (const GridField& field : fields_)
        if (field.visible) result = result.united(field.rect);
    for (const GridLabel& label : labels_)
        if (label.visible) result = result.united(label.rect);
    return result;
}

}  // namespace trelvin
