// The one pass over a replay's events when it is opened, and what it records of each event.
#include <gtest/gtest.h>

#include "history/replay_history.h"
#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

// Each event once, on a copy: its summary, messages, captures, new hours.
TEST(ActionLogTest, RecordsWhatEachEventDid) {
    WorldState w;
    ASSERT_TRUE(Load(w, "0;Dobyti;2;2;1;3\n2004-06-19-08-00-00;create_world;NN\n"
                        "2004-06-19-08-10-00;create_hq;Karel;les;A0\n2004-06-19-08-20-00;create_hq;Jana;louka;B0\n"
                        "2004-06-19-08-25-00;move;A0;Z9;1\n2004-06-19-09-30-00;attack;A0;B0;1;1;1\n")
                    .empty());
    // Players in the game: the world's creation takes no headquarters.
    for (int i = 1; i <= 6; ++i) ExecuteEvent(w, std::int16_t(i));
    const ActionLog log = ReplayHistory::Build(w).log;
    ASSERT_EQ(log.size(), 8);  // with the start, the hour's rounds and the end
    std::string summaries, flags;
    for (int i = 1; i <= log.size(); ++i) {
        const LoggedEvent& e = log.event(i);
        summaries += e.keyword + ":" + e.summary + "|";
        flags += std::to_string(e.messages.size()) + (e.headquartersTaken ? "C" : "") + (e.startsAnHour ? "H" : "") + " ";
    }
    EXPECT_EQ(summaries, "create_world:Svet Dobyti vytvoren|create_hq:vytvoreni veleni hrace Karel(les)|"
                         "create_hq:vytvoreni veleni hrace Jana(louka)|start:Zacatek sveta|"
                         "move:Pohyb 1 jednotek z A0 na Z9|add_rounds:Pridani 3 (za 1 hodin) tahu.|"
                         "attack:Utok z A0 (Karel) na B0 (Jana) s 1 jednotkami.|end:konec sveta - vitezem se stal typ les|");
    EXPECT_EQ(flags, "0H 0 0 0 1 0H 0C 0 ");
    EXPECT_EQ(log.event(5).subjects, "A0 Z9 ");
    EXPECT_TRUE(log.event(7).description.ends_with("\r\nDobyto veleni hrace Jana\r\nAkce stala 5 tah(u)."))
        << log.event(7).description;
    const std::pair<EventKind, std::string> kinds[] = {
        {EventKind::All, "12345678"},     {EventKind::Attacks, "7"}, {EventKind::HeadquartersCaptures, "7"},
        {EventKind::Economy, ""},         {EventKind::Moves, "5"},   {EventKind::Lifecycle, "123468"},
        {EventKind::Failures, "5"}};
    for (const auto& [kind, events] : kinds) {
        std::string found;
        for (int i = 1; i <= log.size(); ++i)
            if (log.isOfKind(i, kind)) found += std::to_string(i);
        EXPECT_EQ(found, events) << int(kind);
    }
    // Never the event the search starts from.
    EXPECT_EQ(std::tuple(log.nearest(1, EventKind::Failures, true), log.nearest(8, EventKind::Attacks, false),
                         log.nearest(7, EventKind::HeadquartersCaptures, true), log.nearest(99, EventKind::Moves, false),
                         log.nearest(7, EventKind::Attacks, false)),
              std::tuple(5, 7, 0, 5, 0));
}

// Who each event was by and whose field it reached, as the world stood before it.
TEST(ActionPlayersTest, NamesTheActorAndThePlayerReachedBeforeEachEvent) {
    WorldState w;
    ASSERT_TRUE(Load(w, "0;Hraci;2;3;1;3\n2004-06-19-08-00-00;create_world;NNN\n"
                        "2004-06-19-08-10-00;create_hq;Karel;les;A0\n2004-06-19-08-20-00;create_hq;Jana;louka;C0\n"
                        "2004-06-19-08-30-00;buy;A0;Vosi\xE8ka;2\n2004-06-19-08-31-00;attack;A0;B0;1;1;1\n"
                        "2004-06-19-08-32-00;move;B0;A0;1\n2004-06-19-08-33-00;trade;Jana;Karel;5\n"
                        "2004-06-19-08-34-00;convert_gnd;C0;B\n2004-06-19-08-35-00;retreat;B0;1\n"
                        "2004-06-19-08-36-00;attack;A0;C0;1;1;1\n2004-06-19-08-37-00;move;Q7;A0;1\n")
                    .empty());
    const ReplayHistory history = ReplayHistory::Build(w);
    const ActionPlayers& players = history.players;
    ASSERT_EQ(players.names(), (std::vector<std::string>{"Karel", "Jana"}));
    constexpr int none = ActionPlayers::kNobody;
    // 1 world, 2 and 3 headquarters, 4 start, then the lines in order.
    const std::pair<int, int> expected[] = {
        {none, none}, {0, none}, {1, none}, {none, none}, {0, none}, {0, none} /* B0 free before */, {0, 0},
        {1, 0},       {1, none}, {0, none}, {0, 1} /* the headquarters taken */, {none, 0} /* no such field */};
    ASSERT_EQ(history.log.size(), 12);
    for (int i = 1; i <= 12; ++i)
        EXPECT_EQ(std::pair(players.actor(i), players.reached(i)), expected[i - 1]) << "event " << i;
    std::string karels, janas;
    for (int i = 1; i <= 12; ++i) {
        if (players.concerns(i, 0)) karels += std::to_string(i) + " ";
        if (players.concerns(i, 1)) janas += std::to_string(i) + " ";
    }
    EXPECT_EQ(karels, "2 5 6 7 8 10 11 12 ");
    EXPECT_EQ(janas, "3 8 9 11 ");
    EXPECT_FALSE(players.concerns(1, none));
}

}  // namespace
}  // namespace trelvin
