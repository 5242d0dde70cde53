#pragma once
// The picture box pHod: a 24-hour clock face. Drawing calls are recorded in scale units
// (twips) and painted scaled to pixels, so the face stays sharp at any pixel density.
#include <QFrame>
#include <cstdint>
#include <vector>

#include "playback/clock_geometry.h"

namespace trelvin {

// One drawn primitive. A line runs from `from` to `to`; a circle of radius 1 scale unit sits
// at `from` (and `to` equals `from`). The width is in pixels; the colour is r + 256g + 65536b.
struct ClockStroke {
    enum class Shape { Line, Circle };
    Shape shape;
    ClockPoint from;
    ClockPoint to;
    std::int16_t width;
    std::uint32_t colour;
    bool operator==(const ClockStroke&) const = default;
};

class ClockFace : public QFrame {
    Q_OBJECT

public:
    explicit ClockFace(QWidget* parent = nullptr);

    // The inner height in scale units, rounded: 915 for the box's own 975 x 975 twips.
    int scaleHeight() const;

    void clear();
    void drawDial(float marks, std::int16_t width, std::uint32_t colour);
    void drawHand(float value, float turn, std::int16_t width, std::uint32_t colour);

    const std::vector<ClockStroke>& strokes() const { return strokes_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<ClockStroke> strokes_;
};

}  // namespace trelvin
