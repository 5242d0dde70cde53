// Replays that load: header values, the events of each line and the events the loader inserts.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/replay_files.h"

namespace trelvin {
namespace {

using testing::LoadReplayText;

using testing::kAlfa;

std::vector<std::string> actions(const WorldState& w) {
    std::vector<std::string> result;
    for (int i = 1; i <= w.lastEventIndex(); ++i) result.push_back(w.events[i].action);
    return result;
}

// Every operand of an event on one line, so a wrong slot shows at once.
std::string operands(const ReplayEvent& e) {
    return e.place + "|" + e.target + "|" + std::to_string(e.amount) + "|" + (e.success ? "1" : "0") +
           "|" + std::to_string(e.survivors) + "|" + e.playerName + "|" + e.armyType;
}

TEST(ReplayLoader, AlfaGetsItsStartAndEndInserted) {
    WorldState w;
    w.players.resize(3);  // a previous replay's players are dropped
    ASSERT_TRUE(LoadReplayText(w, kAlfa).empty());
    EXPECT_EQ(w.worldName, "Alfa");
    EXPECT_EQ(w.playerLimit, 2);
    EXPECT_EQ(w.mapWidth, 3);
    EXPECT_EQ(w.mapHeight, 2);
    EXPECT_EQ(w.speed, 3);
    EXPECT_EQ(w.lastPlayerIndex(), 0);
    ASSERT_EQ(w.lastTileIndex(), 6);
    for (int k = 1; k <= 6; ++k) EXPECT_EQ(w.tiles[k].terrain + w.tiles[k].owner, "") << k;
    EXPECT_TRUE(w.loaded);
    EXPECT_EQ(w.eventCount, 7);
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "create_hq", "create_hq", "start",
                                                     "buy", "attack", "end"}));
    EXPECT_EQ(w.events[1].place, "NNBSXN");
    EXPECT_EQ(operands(w.events[2]), "A0|les|0|0|0|Karel|");
    EXPECT_EQ(w.events[4].time.iso(), "2004-06-19T08:20:30");
    EXPECT_EQ(operands(w.events[4]), "||0|0|0||");
    EXPECT_EQ(operands(w.events[5]), "A0||4|0|0||Vosi\xE8ka");
    EXPECT_EQ(operands(w.events[6]), "A0|B0|4|1|3||");
    EXPECT_EQ(w.events[7].time.iso(), "2004-06-19T09:40:00");
    EXPECT_EQ(operands(w.events[7]), "||0|0|0||");
}

TEST(ReplayLoader, EachKeywordFillsItsOwnFields) {
    WorldState w;
    ASSERT_TRUE(LoadReplayText(w, "x; World ;9;4;4;2;extra\r\n"
                                  "  2004-06-19-08-00-00 ;  attack ; A0 ; B 0 ;12abc;0.4;3x;more  \r\n"
                                  "2004-06-19-08-00-00;attack;A0;B0;1;0.6;\r\n"
                                  "2004-06-19-08-00-00;move;A0;B0; 7 \r\n"
                                  "2004-06-19-08-00-00;trade;Karel;Jana;-100\r\n"
                                  "2004-06-19-08-00-00;retreat;B2;3\r\n"
                                  "2004-06-19-08-00-00;buy;C3;Kom\xE1r;4.5abc\r\n"
                                  "2004-06-19-08-00-00;convert_gnd;C3;N\r\n"
                                  "2004-06-19-08-00-00;create_hq;Jana;louka;C1\r\n"
                                  "2004-06-19-08-00-00;end;les\r\n"
                                  "2004-06-19-08-00-00;fly;A0;B0;5;1;1;x;y\r\n"
                                  "2004-06-19-08-00-00;Attack\r\n")
                    .empty());
    EXPECT_EQ(w.worldName, " World ");  // header fields are taken as they are
    const std::vector<std::string> expected = {
        "A0|B 0|12|0|3||",   "A0|B0|1|1|0||",  "A0|B0|7|0|0||",   "Karel|Jana|-100|0|0||",
        "B2||3|0|0||",       "C3||4|0|0||Kom\xE1r", "C3|N|0|0|0||", "C1|louka|0|0|0|Jana|",
        "||0|0|0|les|",      "||0|0|0||",      "||0|0|0||",
    };
    ASSERT_EQ(w.eventCount, static_cast<int>(expected.size()));  // "Attack" is no attack: no end
    for (int i = 1; i <= w.eventCount; ++i) EXPECT_EQ(operands(w.events[i]), expected[i - 1]) << i;
    EXPECT_EQ(w.events[10].action, "fly");
    EXPECT_EQ(w.events[11].action, "Attack");
}

TEST(ReplayLoader, TimeStampsAreDayFirstWithTheSwapWhenInvalid) {
    WorldState w;
    ASSERT_TRUE(LoadReplayText(w, "0;A;9;1;1;1\n"
                                  "2004-06-05-01-02-03;fly\n"
                                  "2004-06-19-23-59-59;fly\n"
                                  "2004-19-06-00-00-00;fly\n"
                                  "2004 - 6 - 7 - 8 - 9 -10;fly\n"
                                  "2004-29-02-12-00-00-99-x;fly\n")
                    .empty());
    const std::vector<std::string> times = {"2004-05-06T01:02:03", "2004-06-19T23:59:59",
                                            "2004-06-19T00:00:00", "2004-07-06T08:09:10",
                                            "2004-02-29T12:00:00"};
    ASSERT_EQ(w.eventCount, 5);
    for (int i = 1; i <= 5; ++i) EXPECT_EQ(w.events[i].time.iso(), times[i - 1]) << i;
}

// A world that starts at once (limit 0), then a line at `first` and one at `second`, all on
// 19 June 2004: returns what the loader inserted between the two lines.
std::string roundsBetween(const std::string& first, const std::string& second) {
    WorldState w;
    const auto texts = LoadReplayText(w, "0;A;0;1;1;1\n2004-06-19-08-00-00;create_world;N\n"
                                         "2004-06-19-" + first + ";fly\n2004-06-19-" + second + ";fly\n");
    if (!texts.empty() || w.eventCount < 4) return "load failed";
    if (w.eventCount == 4) return "none";
    const ReplayEvent& inserted = w.events[4];
    return inserted.action + " " + std::to_string(inserted.amount) + " " + inserted.time.iso();
}

TEST(ReplayLoader, AddRoundsCoversEveryFullHourUpToTheLine) {
    EXPECT_EQ(roundsBetween("10-25-30", "13-10-00"), "add_rounds 3 2004-06-19T13:00:00");
    EXPECT_EQ(roundsBetween("10-00-00", "11-00-00"), "add_rounds 1 2004-06-19T11:00:00");
    EXPECT_EQ(roundsBetween("10-00-00", "10-59-59"), "none");
    EXPECT_EQ(roundsBetween("10-00-00", "12-00-00"), "add_rounds 2 2004-06-19T12:00:00");
    EXPECT_EQ(roundsBetween("10-59-59", "11-00-00"), "add_rounds 1 2004-06-19T11:00:00");
    EXPECT_EQ(roundsBetween("10-00-01", "10-59-59"), "none");
    EXPECT_EQ(roundsBetween("10-30-00", "10-20-00"), "none");  // a line back in time
}

TEST(ReplayLoader, StartIsInsertedOnceTheRosterIsFull) {
    WorldState w;
    // Limit 0: the start comes before the second line's event, dated like the first.
    ASSERT_TRUE(LoadReplayText(w, "0;A;0;2;1;3\n2004-06-19-08-00-00;create_world;NN\n"
                                  "2004-06-19-08-30-00;fly\n2004-06-19-08-40-00;fly\n")
                    .empty());
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "start", "fly", "fly"}));
    EXPECT_EQ(w.events[2].time.iso(), "2004-06-19T08:00:00");

    // A start line where the inserted one is due replaces it.
    ASSERT_TRUE(LoadReplayText(w, "0;A;1;2;1;3\n2004-06-19-08-00-00;create_world;NN\n"
                                  "2004-06-19-08-01-00;create_hq;K;les;A0\n2004-06-19-08-02-00;start\n")
                    .empty());
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "create_hq", "start"}));

    // A start line first: the hourly check needs two events in the list.
    ASSERT_TRUE(LoadReplayText(w, "0;A;9;2;1;3\n2004-06-19-08-00-00;start\n2004-06-19-10-00-00;fly\n"
                                  "2004-06-19-12-00-00;fly\n")
                    .empty());
    EXPECT_EQ(actions(w), (std::vector<std::string>{"start", "fly", "add_rounds", "fly"}));

    // A roster that never fills gets no start, so no hourly rounds either.
    ASSERT_TRUE(LoadReplayText(w, "0;A;2;2;1;3\n2004-06-19-08-00-00;create_world;NN\n"
                                  "2004-06-19-08-01-00;create_hq;K;les;A0\n2004-06-19-20-00-00;fly\n")
                    .empty());
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "create_hq", "fly"}));
}

TEST(ReplayLoader, ProtectionEndsOnceADayAfterTheLastStart) {
    WorldState w;
    // An early start line; the roster fills later and gets its own start; hours pass.
    ASSERT_TRUE(LoadReplayText(w, "0;A;1;2;1;3\n"
                                  "2004-06-19-08-00-00;create_world;NN\n"
                                  "2004-06-19-08-00-30;start\n"
                                  "2004-06-19-09-10-00;create_hq;K;les;A0\n"
                                  "2004-06-20-12-00-00;fly\n"
                                  "2004-06-22-12-00-00;fly\n")
                    .empty());
    EXPECT_EQ(actions(w), (std::vector<std::string>{"create_world", "start", "add_rounds", "create_hq",
                                                     "start", "add_rounds", "end_hld_fire", "fly",
                                                     "add_rounds", "fly"}));
    EXPECT_EQ(w.events[3].time.iso(), "2004-06-19T09:00:00");
    EXPECT_EQ(w.events[3].amount, 1);
    EXPECT_EQ(w.events[5].time.iso(), "2004-06-19T09:10:00");
    EXPECT_EQ(w.events[6].time.iso(), "2004-06-20T12:00:00");
    EXPECT_EQ(w.events[6].amount, 27);
    // Dated a day after the inserted start, and placed after the rounds even though earlier.
    EXPECT_EQ(w.events[7].time.iso(), "2004-06-20T09:10:00");
    EXPECT_EQ(w.events[9].amount, 48);
}

TEST(ReplayLoader, LineEndsAndBlankLinesChangeNothing) {
    std::string lfOnly = kAlfa;
    std::erase(lfOnly, '\r');
    std::string crOnly = kAlfa;
    std::erase(crOnly, '\n');
    std::string withBlanks = kAlfa;
    withBlanks.insert(withBlanks.find("2004-06-19-09-05"), "\r\n   \r\n\r\r\n");
    const std::string unterminated = kAlfa.substr(0, kAlfa.size() - 2);
    for (const std::string& file : {lfOnly, crOnly, withBlanks, kAlfa + "  \r\n\r\n", unterminated}) {
        WorldState w;
        ASSERT_TRUE(LoadReplayText(w, file).empty());
        EXPECT_EQ(w.eventCount, 7);
        EXPECT_EQ(w.events[6].survivors, 3);
        EXPECT_EQ(w.events[7].action, "end");
    }
    WorldState headerOnly;
    ASSERT_TRUE(LoadReplayText(headerOnly, "0;Alfa;2;3;2;3").empty());
    EXPECT_EQ(headerOnly.eventCount, 0);
    EXPECT_EQ(headerOnly.lastEventIndex(), 0);
    EXPECT_TRUE(headerOnly.loaded);
}

TEST(ReplayLoader, Utf8FilesAreReadAsWindows1250) {
    WorldState w;
    ASSERT_TRUE(
        LoadReplayText(w, "0;Sv\xC4\x9Bt;2;3;2;3\n2004-06-19-08-00-00;buy;A0;Vosi\xC4\x8Dka;4\n").empty());
    EXPECT_EQ(w.worldName, "Sv\xEC" "t");
    EXPECT_EQ(w.events[1].armyType, "Vosi\xE8ka");
    ASSERT_TRUE(
        LoadReplayText(w, "\xEF\xBB\xBF" "0;Alfa;2;3;2;3\n2004-06-19-08-00-00;buy;A0;Hovado;4\n").empty());
    EXPECT_EQ(w.worldName, "Alfa");
    EXPECT_EQ(w.events[1].armyType, "Hovado");
    // A Windows-1250 file stays as it is.
    ASSERT_TRUE(LoadReplayText(w, "0;Alfa;2;3;2;3\n2004-06-19-08-00-00;buy;A0;\x8Av\xE1\x62;1\n").empty());
    EXPECT_EQ(w.events[1].armyType, "\x8Av\xE1\x62");
}

}  // namespace
}  // namespace trelvin
