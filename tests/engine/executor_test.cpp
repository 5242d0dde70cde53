#include <gtest/gtest.h>

#include "engine/game_tables.h"
#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

const char* const kStop = "Chyba pri provadeni tahu - ";

TEST(GameTables, YieldsAndPricesMatchExactly) {
    EXPECT_EQ(TerrainYield("N"), 12);
    EXPECT_EQ(TerrainYield("B"), 7);
    EXPECT_EQ(TerrainYield("S"), 5);
    for (const char* other : {"X", "", "n", " N", "NN"}) EXPECT_EQ(TerrainYield(other), 0) << other;
    EXPECT_EQ(UnitPrice("Beru\x9Aka"), 8);
    EXPECT_EQ(UnitPrice("Chrob\xE1k"), 10);
    EXPECT_EQ(UnitPrice("Vosi\xE8ka"), 12);
    EXPECT_EQ(UnitPrice("Kom\xE1r"), 2);
    EXPECT_EQ(UnitPrice("Hovado"), 10);
    EXPECT_EQ(UnitPrice("\x8Av\xE1\x62"), 17);
    EXPECT_EQ(UnitPrice("Beruska"), 0);
    EXPECT_FALSE(ArmyValueA("Beruska").has_value());
}

TEST(Executor, CreateWorldDescribesAndResets) {
    WorldState w = MakeWorld(10, 8, "");
    w.worldName = "Alfa";
    w.playerLimit = 4;
    AddPlayer(w, "Karel", "les", "A0");
    At(w, "C0").armyCount = 7;
    EXPECT_TRUE(Apply(w, Event("create_world", "NB")).empty());
    EXPECT_EQ(w.actionText,
              "Svet Alfa vytvoren\r\nRozmery: 10x8\r\nRychlost: 3\r\nPocet hracu (limit): 4");
    EXPECT_EQ(At(w, "B0").terrain, "B");
    EXPECT_EQ(At(w, "A0").owner, "");
    EXPECT_EQ(At(w, "C0").armyCount, 7);  // beyond the string's length
    EXPECT_EQ(w.lastPlayerIndex(), 0);

    // A string longer than the table fails at the first field past it; players stay.
    AddPlayer(w, "Karel", "les", "A0");
    const auto texts = Apply(w, Event("create_world", std::string(81, 'S')));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_TRUE(texts[0].starts_with(kStop));
    EXPECT_EQ(At(w, "J7").terrain, "S");
    EXPECT_EQ(w.lastPlayerIndex(), 1);
}

TEST(Executor, FrameHandlesUnknownActionsAndMissingEvents) {
    WorldState w = MakeWorld(3, 2, "NNNNNN");
    w.actionText = "before";
    ReplayEvent fly = Event("Attack");
    fly.time = *DateTime::fromParts(2004, 6, 19, 8, 0, 0);
    EXPECT_TRUE(Apply(w, fly).empty());
    EXPECT_EQ(w.actionText, "before");
    EXPECT_EQ(w.currentTime.iso(), "2004-06-19T08:00:00");
    RecordingReporter reporter;
    ExecuteEvent(w, 5, reporter);
    ExecuteEvent(w, 0, reporter);
    ASSERT_EQ(reporter.texts.size(), 2u);
    EXPECT_TRUE(reporter.texts[0].starts_with(kStop));
}

TEST(Executor, PlayersJoinStartAndGainByTheHour) {
    WorldState w = MakeWorld(3, 2, "NBSXNN");
    ReplayEvent hq = Event("create_hq", "B0", "louka");
    hq.playerName = "Jana";
    EXPECT_TRUE(Apply(w, hq).empty());
    EXPECT_EQ(w.actionText, "vytvoreni veleni hrace Jana(louka)");
    EXPECT_EQ(At(w, "B0").owner, "Jana");
    EXPECT_TRUE(Apply(w, Event("start")).empty());
    EXPECT_EQ(w.players[1].nectarPerHour, 7);
    EXPECT_EQ(w.players[1].moves, 15);
    hq.playerName = "Late";
    hq.place = "C1";
    Apply(w, hq);
    EXPECT_EQ(w.players[2].nectar, 0);

    w.players[1].moves = 10;
    w.players[1].nectar = 600;
    w.players[1].nectarPerHour = 24;
    EXPECT_TRUE(Apply(w, Event("add_rounds", "", "", 2)).empty());
    EXPECT_EQ(w.actionText, "Pridani 6 (za 2 hodin) tahu.");
    EXPECT_EQ(w.players[1].moves, 16);
    EXPECT_EQ(w.players[1].nectar, 648);
    EXPECT_EQ(w.players[2].moves, 6);

    // An income too large for 16 bits stops at that player's nectar step.
    w.players[1].nectarPerHour = 20000;
    const auto texts = Apply(w, Event("add_rounds", "", "", 2));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(w.players[1].moves, 22);
    EXPECT_EQ(w.players[1].nectar, 648);
    EXPECT_EQ(w.players[2].moves, 6);

    // A headquarters off the map: player and text exist, then the failure.
    hq.playerName = "Far";
    hq.place = "Z9";
    EXPECT_EQ(Apply(w, hq).size(), 1u);
    EXPECT_EQ(w.players.back().name, "Far");
    EXPECT_EQ(w.actionText, "vytvoreni veleni hrace Far(louka)");
}

TEST(Executor, EndNamesTheSideOwningTheLastPlace) {
    WorldState w = MakeWorld(3, 2, "NNNNNN");
    AddPlayer(w, "Jana", "louka", "C1");
    w.events.push_back(Event("attack", "C1", "B1", 1));
    ReplayEvent end = Event("end");
    end.playerName = "from file";
    Apply(w, end);
    EXPECT_EQ(w.events.back().playerName, "louka");
    EXPECT_EQ(w.actionText, "konec sveta - vitezem se stal typ louka");
    EXPECT_EQ(Apply(w, Event("end_hld_fire")).size(), 0u);
    EXPECT_EQ(w.actionText, "Zruseni ochranne lhuty neutoceni");
}

}  // namespace
}  // namespace trelvin
