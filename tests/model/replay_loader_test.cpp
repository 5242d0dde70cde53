#include <gtest/gtest.h>

#include "support/world_builder.h"

namespace trelvin {
namespace {

using testing::Load;

const std::string kAlfa =
    "0;Alfa;2;3;2;3\r\n"
    "2004-06-19-08-00-00;create_world;NNBSXN\r\n"
    "2004-06-19-08-10-00;create_hq;Karel;les;A0\r\n"
    "2004-06-19-08-20-30;create_hq;Jana;louka;C1\r\n"
    "2004-06-19-09-05-00;buy;A0;Vosi\xE8ka;4\r\n"
    "2004-06-19-09-40-00;attack;A0;B0;4;1;3\r\n";

std::vector<std::string> actions(const WorldState& w) {
    std::vector<std::string> result;
    for (int i = 1; i <= w.lastEventIndex(); ++i) result.push_back(w.events[i].action);
    return result;
}

TEST(ReplayLoader, AlfaGetsItsStartAndEndInserted) {
    WorldState w;
    EXPECT_TRUE(Load(w, kAlfa).empty());
    EXPECT_EQ(w.worldName, "Alfa");
    EXPECT_EQ(w.playerLimit, 2);
    EXPECT_EQ(w.mapWidth, 3);
    EXPECT_EQ(w.mapHeight, 2);
    EXPECT_EQ(w.speed, 3);
    EXPECT_EQ(w.lastTileIndex(), 6);
    EXPECT_EQ(w.eventCount, 7);
    EXPECT_TRUE(w.loaded);
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "create_hq", "create_hq", "start",
                                                     "buy", "attack", "end"}));
    EXPECT_EQ(w.events[4].time.iso(), "2004-06-19T08:20:30");
    EXPECT_EQ(w.events[7].time.iso(), "2004-06-19T09:40:00");
    EXPECT_EQ(w.events[2].playerName, "Karel");
    EXPECT_EQ(w.events[2].target, "les");
    EXPECT_EQ(w.events[2].place, "A0");
    EXPECT_EQ(w.events[5].armyType, "Vosi\xE8ka");
    EXPECT_TRUE(w.events[6].success);
    EXPECT_EQ(w.events[6].survivors, 3);
}

TEST(ReplayLoader, HourlyRoundsAndTheProtectionDay) {
    WorldState w;
    ASSERT_TRUE(Load(w, "0;A;0;3;3;3\n"
                        "2004-19-06-08-00-00;create_world;NNNNNNNNN\n"
                        "2004-19-06-10-25-30;fly\n"
                        "2004-19-06-13-10-00;fly\n"
                        "2004-19-06-14-00-00;fly\n"
                        "2004-19-06-14-59-59;fly\n"
                        "2004-21-06-13-10-00;fly\n")
                    .empty());
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "start", "fly", "add_rounds", "fly",
                                                     "add_rounds", "fly", "fly", "add_rounds",
                                                     "end_hld_fire", "fly"}));
    EXPECT_EQ(w.events[4].amount, 3);
    EXPECT_EQ(w.events[4].time.iso(), "2004-06-19T13:00:00");
    EXPECT_EQ(w.events[6].amount, 1);
    EXPECT_EQ(w.events[6].time.iso(), "2004-06-19T14:00:00");
    EXPECT_EQ(w.events[9].time.iso(), "2004-06-21T13:00:00");
    EXPECT_EQ(w.events[10].time.iso(), "2004-06-20T08:00:00");
}

TEST(ReplayLoader, StartLinesAndTheRoster) {
    WorldState w;
    // A start line where the inserted one is due replaces it.
    ASSERT_TRUE(Load(w, "0;A;1;2;1;3\n2004-19-06-08-00-00;create_world;NN\n"
                        "2004-19-06-08-01-00;create_hq;K;les;A0\n2004-19-06-08-02-00;start\n")
                    .empty());
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "create_hq", "start"}));
    // An early start line does not stop the start inserted once the roster is full.
    ASSERT_TRUE(Load(w, "0;A;1;2;1;3\n2004-19-06-08-00-00;create_world;NN\n2004-19-06-08-00-30;start\n"
                        "2004-19-06-08-01-00;create_hq;K;les;A0\n2004-19-06-08-02-00;fly\n")
                    .empty());
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "start", "create_hq", "start", "fly"}));
    EXPECT_EQ(w.events[4].time.iso(), "2004-06-19T08:01:00");
}

TEST(ReplayLoader, LineEndsBlankLinesAndUtf8Files) {
    WorldState w;
    std::string crOnly = kAlfa;
    std::erase(crOnly, '\n');
    ASSERT_TRUE(Load(w, crOnly + "   \r\r\n").empty());
    EXPECT_EQ(w.eventCount, 7);
    ASSERT_TRUE(Load(w, "\xEF\xBB\xBF" "0;Alfa;2;3;2;3\n2004-06-19-08-00-00;buy; A0 ;Vosička;4\n").empty());
    EXPECT_EQ(w.events[1].armyType, "Vosi\xE8ka");
    EXPECT_EQ(w.events[1].place, "A0");
}

TEST(ReplayLoader, DatesAreDayFirstWithTheSwapWhenInvalid) {
    WorldState w;
    ASSERT_TRUE(Load(w, "0;A;9;1;1;1\n2004-06-05-01-02-03;fly\n2004-06-19 - 23-59-59;fly\n").empty());
    EXPECT_EQ(w.events[1].time.iso(), "2004-05-06T01:02:03");
    EXPECT_EQ(w.events[2].time.iso(), "2004-06-19T23:59:59");
}

TEST(ReplayLoader, FailuresStopWhereTheyHappenWithoutRollback) {
    WorldState w;
    ASSERT_TRUE(Load(w, kAlfa).empty());
    const auto expectFailure = [&](const std::string& file, const std::string& part) {
        const auto texts = Load(w, file);
        ASSERT_EQ(texts.size(), 1u) << file;
        EXPECT_TRUE(texts[0].starts_with("Chyba pri nacitani replaye - ")) << texts[0];
        EXPECT_NE(texts[0].find(part), std::string::npos) << texts[0];
        EXPECT_EQ(w.eventCount, 7);  // the previous load's count stays
        EXPECT_TRUE(w.loaded);
    };
    expectFailure("", "hlavick");
    expectFailure("0;B;1;4;4\n", "hlavicka");
    expectFailure("0;B;1;4;x;1\n", "pocet radku");
    EXPECT_EQ(w.worldName, "B");  // values before the failing one are kept
    EXPECT_EQ(w.mapWidth, 4);
    expectFailure("0;B;1;4;4;1\n2004-13-45-08-00-00;fly\n", "radek 2");
    expectFailure("0;B;1;4;4;1\n2004-06-19-08-00;fly\n", "radek 2");
    expectFailure("0;B;1;4;4;1\n2004-06-19-08-00-00;move;A0;B0;12abc\n", "12abc");
    expectFailure("0;B;1;4;4;1\n2004-06-19-08-00-00;attack;A0;B0;4\n", "attack");
    // The failing line appends nothing of its own; the events inserted before it stay.
    expectFailure("0;B;0;4;4;1\n2004-06-19-08-00-00;create_world;N\n2004-06-19-09-00-00;retreat;A0;x\n", "");
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "start"}));
    EXPECT_EQ(w.lastTileIndex(), 16);
    expectFailure("0;B;0;4;4;1\n9999-31-12-23-30-00;create_world;N\n9999-31-12-23-40-00;fly\n"
                  "9999-31-12-23-50-00;fly\n", "");
}

TEST(ReplayLoader, AttackReadsLeadingNumbersAndSuccessIsRoundedFirst) {
    WorldState w;
    ASSERT_TRUE(Load(w, "0;A;9;1;1;1\n2004-06-19-08-00-00;attack;A0;B0;12abc;0.4;3x\n"
                        "2004-06-19-08-00-00;attack;A0;B0;1;0.6;\n")
                    .empty());
    EXPECT_EQ(w.events[1].amount, 12);
    EXPECT_FALSE(w.events[1].success);
    EXPECT_EQ(w.events[1].survivors, 3);
    EXPECT_TRUE(w.events[2].success);
    EXPECT_EQ(w.events[3].action, "end");
}

TEST(ReplayLoader, TheEventListStopsAt32767) {
    std::string file = "0;A;9;1;1;1\n";
    for (int i = 0; i < 32768; ++i) file += "2004-06-19-08-00-00;fly\n";
    WorldState w;
    const auto texts = Load(w, file);
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(w.lastEventIndex(), 32767);
    EXPECT_EQ(w.eventCount, 0);
    EXPECT_FALSE(w.loaded);
}

}  // namespace
}  // namespace trelvin
