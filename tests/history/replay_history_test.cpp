// The one pass over a replay's events when it is opened, and what it records of each event.
#include <gtest/gtest.h>

#include "history/replay_history.h"
#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

// Each event once, on a copy: its summary, messages, captures, new hours; the world untouched.
TEST(ActionLogTest, RecordsWhatEachEventDidWithoutTouchingTheWorld) {
    WorldState w;
    ASSERT_TRUE(Load(w, "0;Dobyti;2;2;1;3\n2004-06-19-08-00-00;create_world;NN\n"
                        "2004-06-19-08-10-00;create_hq;Karel;les;A0\n2004-06-19-08-20-00;create_hq;Jana;louka;B0\n"
                        "2004-06-19-08-25-00;move;A0;Z9;1\n2004-06-19-09-30-00;attack;A0;B0;1;1;1\n")
                    .empty());
    RecordingReporter played;
    for (int i = 1; i <= 6; ++i) ExecuteEvent(w, std::int16_t(i), played);
    const WorldState before = w;  // players in the game: the world's creation takes no headquarters
    const ActionLog log = ReplayHistory::Build(w).log;
    ASSERT_EQ(log.size(), 8);  // with the start, the hour's rounds and the end
    EXPECT_EQ(std::tuple(w.actionText, w.lastPlayerIndex(), w.players[1].moves),
              std::tuple(before.actionText, before.lastPlayerIndex(), before.players[1].moves));
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
    EXPECT_EQ(std::tuple(log.nearest(1, EventKind::Failures, true), log.nearest(8, EventKind::Attacks, false),
                         log.nearest(7, EventKind::HeadquartersCaptures, true), log.nearest(99, EventKind::Moves, false)),
              std::tuple(5, 7, 0, 5));
}

}  // namespace
}  // namespace trelvin
