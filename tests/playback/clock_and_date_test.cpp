#include <QLocale>
#include <gtest/gtest.h>

#include "display/clock_geometry.h"
#include "bridge/position_texts.h"

namespace trelvin {

TEST(ClockGeometry, HandsAndDialForAScaleHeightOf915) {
    EXPECT_EQ(ClockCentre(915), (ClockPoint{457, 457}));
    EXPECT_EQ(HandEnd(13, 24, 915), (ClockPoint{340, 894}));
    EXPECT_EQ(HandEnd(7, 60, 915), (ClockPoint{759, 121}));
    // 25 marks from the left clockwise, back to the start.
    const std::vector<ClockPoint> marks = DialMarks(24, 915);
    ASSERT_EQ(marks.size(), 25u);
    EXPECT_EQ(marks[0], (ClockPoint{5, 457}));
    EXPECT_EQ(marks[12], (ClockPoint{909, 457}));
    EXPECT_EQ(marks[24], marks[0]);
}

TEST(ClockGeometry, TheShortPiConstantDecidesCoordinatesNearAHalf) {
    // With the full value of pi these land on 395 instead of 396.
    EXPECT_EQ(HandEnd(32, 60, 996), (ClockPoint{396, 980}));
    EXPECT_EQ(HandEnd(47, 60, 996), (ClockPoint{16, 396}));
}

TEST(GeneralDateText, OnlyTheDateAtExactlyMidnight) {
    const auto at = [](int hour, int second, const QLocale& locale) {
        return GeneralDateText(*DateTime::fromParts(2004, 6, 5, hour, 0, second), locale);
    };
    EXPECT_EQ(at(0, 0, QLocale(QLocale::Czech)), u"05.06.04");
    EXPECT_EQ(at(0, 1, QLocale(QLocale::Czech)), u"05.06.04 0:00:01");
    // A zone written before the time leaves no blank behind either.
    EXPECT_EQ(at(14, 9, QLocale(QLocale::Chinese, QLocale::China)), u"2004/6/5 14:00:09");
}

}  // namespace trelvin
