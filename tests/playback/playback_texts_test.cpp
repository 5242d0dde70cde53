#include <QApplication>
#include <gtest/gtest.h>

#include "playback/clock_face.h"
#include "playback/player_panel.h"
#include "playback/time_text.h"

namespace trelvin {
namespace {

DateTime At(int year, int month, int day, int hour, int minute, int second) {
    return *DateTime::fromParts(year, month, day, hour, minute, second);
}

TEST(GeneralDateText, ShortDateAndLongTimeWithoutZone) {
    const DateTime afternoon = At(2004, 6, 5, 14, 3, 9);
    EXPECT_EQ(GeneralDateText(afternoon, QLocale(QLocale::Czech)), u"05.06.04 14:03:09");
    EXPECT_EQ(GeneralDateText(afternoon, QLocale::c()), u"5 Jun 2004 14:03:09");
    EXPECT_EQ(GeneralDateText(At(2004, 6, 5, 9, 5, 7), QLocale(QLocale::English, QLocale::UnitedStates)),
              u"6/5/04 9:05:07 AM");
    // A zone written before the time leaves no blank behind either.
    EXPECT_EQ(GeneralDateText(afternoon, QLocale(QLocale::Chinese, QLocale::China)), u"2004/6/5 14:03:09");
}

TEST(GeneralDateText, OnlyTheDateAtExactlyMidnight) {
    EXPECT_EQ(GeneralDateText(At(2004, 6, 5, 0, 0, 0), QLocale(QLocale::Czech)), u"05.06.04");
    EXPECT_EQ(GeneralDateText(At(2004, 6, 5, 0, 0, 1), QLocale(QLocale::Czech)), u"05.06.04 0:00:01");
    EXPECT_EQ(GeneralDateText(At(150, 12, 31, 0, 0, 0), QLocale::c()), u"31 Dec 0150");
}

WorldState WorldWithPlayer(const Player& player) {
    WorldState world;
    world.speed = 4;
    world.players.push_back(player);
    return world;
}

TEST(PlayerPanelFor, PlayingPlayerShowsMovesNectarHeadquartersAndTerritory) {
    Player rich{"Ema", "les", "C4", 17, 500, 12, 200, true};
    PlayerPanelTexts texts = PlayerPanelFor(WorldWithPlayer(rich), 1);
    EXPECT_EQ(texts.moves, u"17 (+ 4/hod)");
    EXPECT_EQ(texts.nectar, u"500 (+ 12/hod)");
    EXPECT_EQ(texts.headquarters, u"C4");
    EXPECT_EQ(texts.territory, u"200");

    Player poor{"Bob", "louka", "\x8A" "1", -3, 0, 0, 255, true};  // 0x8A is S with caron
    WorldState world = WorldWithPlayer(poor);
    world.speed = 0;
    texts = PlayerPanelFor(world, 1);
    EXPECT_EQ(texts.moves, u"-3 (+ 0/hod)");
    EXPECT_EQ(texts.nectar, u"0 (+ 0/hod)");
    EXPECT_EQ(texts.headquarters, QString::fromUtf8("\u0160" "1"));
    EXPECT_EQ(texts.territory, u"255");
}

TEST(PlayerPanelFor, PlayerOutOfTheGameShowsOnlyTheNotice) {
    Player gone{"Ema", "les", "C4", 17, 500, 12, 3, false};
    const PlayerPanelTexts texts = PlayerPanelFor(WorldWithPlayer(gone), 1);
    EXPECT_EQ(texts.headquarters, u"Uz nehraje");
    EXPECT_TRUE(texts.moves.isEmpty());
    EXPECT_TRUE(texts.nectar.isEmpty());
    EXPECT_TRUE(texts.territory.isEmpty());
}

TEST(ClockFace, RecordsTheDialThenTheHandsInDrawingOrder) {
    ClockFace face;
    ASSERT_EQ(face.scaleHeight(), 915);
    face.drawHand(1, 24, 9, 0);
    face.clear();
    EXPECT_TRUE(face.strokes().empty());

    face.drawDial(24, 3, 100 + 256 * 100 + 65536 * 100);
    face.drawHand(6, 24, 4, 65536 * 255);
    face.drawHand(7, 60, 2, 255);
    face.drawHand(45, 60, 1, 200 + 256 * 200 + 65536 * 200);

    const std::vector<ClockStroke>& strokes = face.strokes();
    ASSERT_EQ(strokes.size(), 28u);
    const ClockPoint top{457, 5};
    EXPECT_EQ(strokes[6], (ClockStroke{ClockStroke::Shape::Circle, top, top, 3, 0x646464}));
    for (std::size_t i = 0; i < 25; ++i) {
        EXPECT_EQ(strokes[i].shape, ClockStroke::Shape::Circle);
        EXPECT_EQ(strokes[i].width, 3);
    }
    const ClockPoint centre{457, 457};
    EXPECT_EQ(strokes[25], (ClockStroke{ClockStroke::Shape::Line, centre, {909, 457}, 4, 0xFF0000}));
    EXPECT_EQ(strokes[26], (ClockStroke{ClockStroke::Shape::Line, centre, {759, 121}, 2, 0x0000FF}));
    EXPECT_EQ(strokes[27], (ClockStroke{ClockStroke::Shape::Line, centre, {5, 457}, 1, 0xC8C8C8}));

    face.grab();  // paints every recorded stroke without failing
}

}  // namespace
}  // namespace trelvin

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
