#include "playback/clock_geometry.h"

#include <gtest/gtest.h>

namespace trelvin {
namespace {

constexpr int kScale = 915;  // the clock box's own inner height
constexpr ClockPoint kCentre{457, 457};
constexpr ClockPoint kUp{457, 5};
constexpr ClockPoint kRight{909, 457};
constexpr ClockPoint kDown{457, 909};
constexpr ClockPoint kLeft{5, 457};

TEST(ClockGeometry, CentreAndHandEndsForAScaleHeightOf915) {
    EXPECT_EQ(ClockCentre(kScale), kCentre);
    EXPECT_EQ(HandEnd(6, 24, kScale), kRight);
    EXPECT_EQ(HandEnd(13, 24, kScale), (ClockPoint{340, 894}));
    EXPECT_EQ(HandEnd(7, 60, kScale), (ClockPoint{759, 121}));
    // An odd height truncates the centre; the length follows it.
    EXPECT_EQ(ClockCentre(100), (ClockPoint{50, 50}));
    EXPECT_EQ(HandEnd(0, 60, 100), (ClockPoint{50, 5}));
}

TEST(ClockGeometry, TheShortPiConstantDecidesCoordinatesNearAHalf) {
    // With the full value of pi these land on 395 instead of 396.
    EXPECT_EQ(HandEnd(32, 60, 996), (ClockPoint{396, 980}));
    EXPECT_EQ(HandEnd(47, 60, 996), (ClockPoint{16, 396}));
}

TEST(ClockGeometry, DialHas25MarksFromTheLeftClockwiseBackToTheStart) {
    const std::vector<ClockPoint> marks = DialMarks(24, kScale);
    ASSERT_EQ(marks.size(), 25u);
    const std::vector<ClockPoint> firstQuarter{{5, 457},   {20, 340}, {66, 231}, {137, 137},
                                               {231, 66},  {340, 20}, {457, 5}};
    EXPECT_EQ(std::vector<ClockPoint>(marks.begin(), marks.begin() + 7), firstQuarter);
    EXPECT_EQ(marks[12], kRight);
    EXPECT_EQ(marks[18], kDown);
    EXPECT_EQ(marks[23], (ClockPoint{20, 574}));
    EXPECT_EQ(marks[24], kLeft);
}

TEST(ClockGeometry, DialWithoutAPositiveStepDrawsNothing) {
    EXPECT_TRUE(DialMarks(-24, kScale).empty());
    EXPECT_EQ(DialMarks(0, kScale).size(), 1u);  // an infinite step leaves only the start mark
}

struct ClockTime {
    float hour, minute, second;
    ClockPoint hourEnd, minuteEnd, secondEnd;
};

class ClockHands : public testing::TestWithParam<ClockTime> {};

TEST_P(ClockHands, PointWhereTheTimeOfDaySays) {
    const ClockTime& t = GetParam();
    EXPECT_EQ(HandEnd(t.hour, 24, kScale), t.hourEnd);
    EXPECT_EQ(HandEnd(t.minute, 60, kScale), t.minuteEnd);
    EXPECT_EQ(HandEnd(t.second, 60, kScale), t.secondEnd);
}

INSTANTIATE_TEST_SUITE_P(
    TimesOfDay, ClockHands,
    testing::Values(ClockTime{0, 0, 0, kUp, kUp, kUp},
                    ClockTime{6, 15, 45, kRight, kRight, kLeft},
                    ClockTime{12, 30, 0, kDown, kDown, kUp},
                    // The hour hand does not creep with the minutes: 23 h is one mark left of the top.
                    ClockTime{23, 59, 59, ClockPoint{340, 20}, ClockPoint{410, 7},
                              ClockPoint{410, 7}}));

}  // namespace
}  // namespace trelvin
