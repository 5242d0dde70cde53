#pragma once
// The picture box pHod: a 24-hour clock face. It is given the time to show and paints the
// dial and the hands itself, in scale units (twips) scaled to pixels, so the face stays sharp
// at any pixel density.
#include <cstdint>
#include <optional>

#include <QFrame>
#include <QTime>

#include "display/clock_geometry.h"

class QPainter;

namespace trelvin {

class ClockFace : public QFrame {
    Q_OBJECT

public:
    // The box is 975 x 975 twips outside.
    static constexpr int kSizeTwips = 975;

    explicit ClockFace(QWidget* parent = nullptr);

    // The inner height in scale units, rounded: 915 for the box's own size.
    int scaleHeight() const;

    // The dial with the hands at `time`; without a time, the dial alone.
    void setTime(const std::optional<QTime>& time);
    const std::optional<QTime>& time() const { return time_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawDial(QPainter& painter, std::int16_t width, std::uint32_t colour) const;
    void drawHand(QPainter& painter, ClockPoint from, ClockPoint to, std::int16_t width, std::uint32_t colour) const;

    bool dialShown_ = false;
    std::optional<QTime> time_;
};

}  // namespace trelvin
