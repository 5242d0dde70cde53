// What the core tells the front ends to show: the clock's geometry, the action list's search and
// the timeline's marks.
#include <gtest/gtest.h>

#include "display/action_filter.h"
#include "display/clock_geometry.h"
#include "display/timeline_marks.h"
#include "history/replay_history.h"
#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

TEST(ClockGeometry, HandsAndDialForAScaleHeightOf915) {
    EXPECT_EQ(ClockCentre(915), (ClockPoint{457, 457}));
    const ClockHands hands = HandsAt(13, 7, 30, 915);
    EXPECT_EQ(std::tuple(hands.centre, hands.hour, hands.minute, hands.second),
              std::tuple(ClockPoint{457, 457}, ClockPoint{340, 894}, ClockPoint{759, 121}, ClockPoint{457, 909}));
    // 25 marks from the left clockwise, back to the start.
    const std::vector<ClockPoint> marks = DialMarks(kDialMarks, 915);
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

// A field's name is found whole and in its case; other text anywhere, in any case.
TEST(ActionSearchTest, FindsFieldNamesWholeAndOtherTextAnywhere) {
    const struct {
        const char* search;  // typed, UTF-8
        const char* row;     // as the log keeps it, Windows-1250
        bool found;
    } cases[] = {
        {"B3", "Utok z B3 (Karel) na B4", true},  {"B3", "Pohyb z B37 na B38", false},
        {"B3", "Pohyb z b3 na A1", false},        {"b3", "Pohyb z b3 na A1", true},
        {"b3", "Pohyb z B3 na A1", false},        {"B3", "AB3 B30", false},
        {"B3", "B37 a pak (B3)", true},           {"B3", "B3", true},
        {" B3\u00a0", "Nakup na B3.", true},      {"B3", "1B3", false},
        {"jana", "Dobyto veleni hrace Jana", true}, {"tok z b", "Utok z B3", true},
        {"B", "Utok z B3", true},
        {"\u010de\u0148\u011bk", "hrace \xC8\x45\xD2\xCCK", true},  // Czech letters in any case
        {"\u00df", "Stra\xDF" "e", true},
        {"\u4e2d", "a ? in the text", false},  // no such letter in the replay's code page
    };
    for (const auto& c : cases) {
        const ActionSearch search{c.search};
        EXPECT_EQ(search.matches(c.row), c.found) << c.search << " in " << c.row;
        // The list asks the folded text first: it may not lose a row, nor keep one of other text.
        const bool mayMatch = search.mayMatchFolded(ActionSearch::Folded(c.row));
        if (!search.namesField()) {
            EXPECT_EQ(mayMatch, c.found) << c.search << " in the folded " << c.row;
        } else if (c.found) {
            EXPECT_TRUE(mayMatch) << c.search << " in the folded " << c.row;
        }
    }
    EXPECT_TRUE(ActionSearch("B37").namesField());
    EXPECT_TRUE(ActionSearch("\u0160" "0").namesField());  // a column past Z
    EXPECT_FALSE(ActionSearch("Jana2").namesField());
    EXPECT_FALSE(ActionSearch("37").namesField());
    EXPECT_TRUE(ActionSearch(" ").isEmpty());
}

TEST(TimelineMarksTest, MarksHoursDaysTheStartTheProtectionsEndCapturesAndFailures) {
    WorldState w;
    ASSERT_TRUE(Load(w, "0;Dobyti;2;2;1;3\n2004-06-19-08-00-00;create_world;NN\n"
                        "2004-06-19-08-10-00;create_hq;Karel;les;A0\n2004-06-19-08-20-00;create_hq;Jana;louka;B0\n"
                        "2004-06-19-08-25-00;move;A0;Z9;1\n2004-06-20-09-30-00;attack;A0;B0;1;1;1\n")
                    .empty());
    // 1 world, 2 and 3 headquarters, 4 start, 5 the failed move, 6 the next day's rounds at 9:00,
    // 7 the end of protection at 8:20, 8 the attack at 9:30, 9 the end: each of 6, 7, 8 starts an
    // hour of its own, only 6 a day.
    const ReplayHistory history = ReplayHistory::Build(w);
    ASSERT_EQ(history.log.size(), 9);
    const TimelineMarks marks = TimelineMarksOf(history.log, 9);
    EXPECT_EQ(MarksOf(marks, TimelineMark::Hour), (std::vector<int>{6, 7, 8}));
    EXPECT_EQ(MarksOf(marks, TimelineMark::Day), (std::vector<int>{6}));
    EXPECT_EQ(MarksOf(marks, TimelineMark::Start), (std::vector<int>{4}));
    EXPECT_EQ(MarksOf(marks, TimelineMark::ProtectionEnd), (std::vector<int>{7}));
    EXPECT_EQ(MarksOf(marks, TimelineMark::Capture), (std::vector<int>{8}));
    EXPECT_EQ(MarksOf(marks, TimelineMark::Failure), (std::vector<int>{5}));
    // A count short of the log marks only what it covers.
    EXPECT_TRUE(MarksOf(TimelineMarksOf(history.log, 4), TimelineMark::Failure).empty());
}

}  // namespace
}  // namespace trelvin
