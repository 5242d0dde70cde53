#pragma once
// Where the clock face draws: the 24-hour dial's marks and the end points of its hands, in
// the picture box's scale units. The arithmetic is fixed step by step (single-precision
// angles, the constant 3.141592, ties rounded to even, 16-bit results), so a time always
// lands on the same scale unit, even where a coordinate lies close to a half.
#include <cstdint>
#include <vector>

namespace trelvin {

struct ClockPoint {
    std::int16_t x;
    std::int16_t y;
    bool operator==(const ClockPoint&) const = default;
};

// The centre of a square box: half the scale height, truncated, for both coordinates.
ClockPoint ClockCentre(int scaleHeight);

// End of a hand showing `value` on a dial where `turn` is one full turn; 0 points up and the
// hand turns clockwise. The hand starts at ClockCentre.
ClockPoint HandEnd(float value, float turn, int scaleHeight);

// Centres of the dial's marks from the top clockwise, the top one repeated at the end
// (25 centres for 24 marks). Empty when `count` gives no positive step.
std::vector<ClockPoint> DialMarks(float count, int scaleHeight);

// The 24-hour face at a time: its 24 marks, and its three hands from the centre. The hands move
// in whole steps: the hour hand does not advance with the minutes.
struct ClockHands {
    ClockPoint centre;
    ClockPoint hour;    // a turn in 24 hours
    ClockPoint minute;  // a turn in 60 minutes
    ClockPoint second;  // a turn in 60 seconds
};
inline constexpr float kDialMarks = 24;
ClockHands HandsAt(int hour, int minute, int second, int scaleHeight);

}  // namespace trelvin
