#include "display/clock_geometry.h"

#include <cmath>

#include "model/checked_math.h"

namespace trelvin {

namespace {

constexpr int kMargin = 5;
constexpr double kDegreesToRadians = 3.141592 / 180;

// The point at `degrees` (0 pointing left, 90 up) on a circle of `radius` around the centre.
ClockPoint PointOnCircle(float degrees, std::int16_t radius, ClockPoint centre) {
    const double t = static_cast<double>(degrees) * kDegreesToRadians;
    const std::int16_t x = roundTo16(std::cos(t) * -radius);
    const std::int16_t y = roundTo16(std::sin(t) * -radius);
    return {checked16(std::int64_t{centre.x} + x), checked16(std::int64_t{centre.y} + y)};
}

std::int16_t Radius(int scaleHeight) { return checked16(std::int64_t{scaleHeight / 2} - kMargin); }

}  // namespace

ClockPoint ClockCentre(int scaleHeight) {
    const std::int16_t c = checked16(scaleHeight / 2);
    return {c, c};
}

ClockPoint HandEnd(float value, float turn, int scaleHeight) {
    const std::int16_t length = Radius(scaleHeight);
    float angle = static_cast<float>(360.0 / turn * value);
    angle = angle + 90.0f;
    return PointOnCircle(angle, length, ClockCentre(scaleHeight));
}

std::vector<ClockPoint> DialMarks(float count, int scaleHeight) {
    const std::int16_t radius = Radius(scaleHeight);
    const ClockPoint centre = ClockCentre(scaleHeight);
    const float step = static_cast<float>(360.0 / count);
    std::vector<ClockPoint> marks;
    if (!(step > 0.0f)) return marks;
    for (float angle = 0.0f; angle <= 360.0f; angle += step) {
        marks.push_back(PointOnCircle(angle, radius, centre));
        if (angle + step == angle) break;  // a step too small to move on would never end
    }
    return marks;
}

ClockHands HandsAt(int hour, int minute, int second, int scaleHeight) {
    return {ClockCentre(scaleHeight), HandEnd(static_cast<float>(hour), 24, scaleHeight),
            HandEnd(static_cast<float>(minute), 60, scaleHeight), HandEnd(static_cast<float>(second), 60, scaleHeight)};
}

}  // namespace trelvin
