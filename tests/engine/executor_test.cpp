// The executor's frame and the rules that set up, advance and end a world.
#include <gtest/gtest.h>

#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

bool isStopMessage(const std::string& text) {
    return text.starts_with(kExecuteErrorPrefix) && text.size() > std::string(kExecuteErrorPrefix).size();
}

ReplayEvent CreateHq(const std::string& player, const std::string& side, const std::string& field) {
    ReplayEvent e = Event("create_hq", field, side);
    e.playerName = player;
    return e;
}

TEST(Executor, CreateWorldDescribesAndResets) {
    WorldState w = MakeWorld(10, 8, "");
    w.worldName = "Alfa";
    w.playerLimit = 4;
    AddPlayer(w, "Karel", "les", "A0");
    At(w, "A0") = Tile{"S", "Karel", "Hovado", 5, true};
    At(w, "C0") = Tile{"B", "Karel", "Hovado", 7, false};
    w.tiles[0].terrain = "slot 0";
    EXPECT_TRUE(Apply(w, Event("create_world", "NB")).empty());
    EXPECT_EQ(w.actionText, "Svet Alfa vytvoren\r\nRozmery: 10x8\r\nRychlost: 3\r\nPocet hracu (limit): 4");
    EXPECT_EQ(At(w, "A0").terrain, "N");
    EXPECT_EQ(At(w, "A0").owner + At(w, "A0").armyType, "");
    EXPECT_EQ(At(w, "A0").armyCount, 0);
    EXPECT_TRUE(At(w, "A0").visible);  // the flag belongs to the view
    EXPECT_EQ(At(w, "B0").terrain, "B");
    EXPECT_EQ(At(w, "C0").armyCount, 7);  // beyond the string's length nothing changes
    EXPECT_EQ(At(w, "C0").owner, "Karel");
    EXPECT_EQ(w.tiles[0].terrain, "slot 0");
    EXPECT_EQ(w.lastPlayerIndex(), 0);

    // A string longer than the table fails at the first field past it; players stay.
    AddPlayer(w, "Karel", "les", "A0");
    w.worldName = "Beta";
    const auto texts = Apply(w, Event("create_world", std::string(80, 'S') + "BB"));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_TRUE(isStopMessage(texts[0])) << texts[0];
    EXPECT_TRUE(w.actionText.starts_with("Svet Beta vytvoren\r\n"));
    EXPECT_EQ(At(w, "J7").terrain, "S");
    EXPECT_EQ(w.lastPlayerIndex(), 1);
}

TEST(Executor, FrameHandlesUnknownActionsAndMissingEvents) {
    WorldState w = MakeWorld(3, 2, "NNNNNN");
    AddPlayer(w, "Karel", "les", "A0");
    EXPECT_EQ(w.currentTime.iso(), "1899-12-30T00:00:00");  // the zero date-time
    w.actionText = "before";
    for (const char* keyword : {"Attack", "fly", "", "start "}) {
        ReplayEvent unknown = Event(keyword, "A0", "B0", 5);
        unknown.time = *DateTime::fromParts(2004, 6, 19, 8, 0, 0);
        EXPECT_TRUE(Apply(w, unknown).empty()) << keyword;
        EXPECT_EQ(w.actionText, "before");
        EXPECT_EQ(w.currentTime.iso(), "2004-06-19T08:00:00");
        EXPECT_EQ(At(w, "B0").armyCount, 0);
        EXPECT_EQ(w.players[1].moves, 15);
        w.currentTime = DateTime();
    }
    for (std::int16_t index : {std::int16_t{-1}, static_cast<std::int16_t>(w.lastEventIndex() + 1),
                               std::int16_t{32767}}) {
        RecordingReporter reporter;
        ExecuteEvent(w, index, reporter);
        ASSERT_EQ(reporter.texts.size(), 1u) << index;
        EXPECT_TRUE(isStopMessage(reporter.texts[0]));
        EXPECT_EQ(w.actionText, "before");
    }
}

TEST(Executor, PlayersJoinAndStart) {
    WorldState w = MakeWorld(3, 2, "NBSXNN");
    EXPECT_TRUE(Apply(w, Event("start")).empty());  // nobody yet: only the text
    EXPECT_EQ(w.actionText, "Zacatek sveta");
    EXPECT_EQ(w.lastPlayerIndex(), 0);

    EXPECT_TRUE(Apply(w, CreateHq("Jana", "louka", "B0")).empty());
    EXPECT_EQ(w.actionText, "vytvoreni veleni hrace Jana(louka)");
    ASSERT_EQ(w.lastPlayerIndex(), 1);
    const Player& jana = w.players[1];
    EXPECT_EQ(jana.name + "|" + jana.side + "|" + jana.hqField, "Jana|louka|B0");
    EXPECT_TRUE(jana.playing);
    EXPECT_EQ(jana.moves + jana.nectar + jana.nectarPerHour + jana.territory, 0);
    EXPECT_EQ(At(w, "B0").owner, "Jana");
    EXPECT_EQ(At(w, "B0").terrain, "B");

    Apply(w, CreateHq("Karel", "les", "C0"));
    EXPECT_TRUE(Apply(w, Event("start")).empty());
    EXPECT_EQ(w.actionText, "Zacatek sveta");
    for (const Player& p : {w.players[1], w.players[2]}) {
        EXPECT_EQ(p.nectar, 500);
        EXPECT_EQ(p.moves, 15);
        EXPECT_EQ(p.territory, 1);
    }
    EXPECT_EQ(w.players[1].nectarPerHour, 7);
    EXPECT_EQ(w.players[2].nectarPerHour, 5);

    // Players who join after the start get nothing from it.
    Apply(w, CreateHq("Late", "les", "C1"));
    const Player& late = w.players[3];
    EXPECT_EQ(late.moves + late.nectar + late.nectarPerHour + late.territory, 0);

    // A headquarters off the map: the player and the text exist, then ownership fails.
    const auto texts = Apply(w, CreateHq("Far", "louka", "Z9"));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_TRUE(isStopMessage(texts[0]));
    EXPECT_EQ(w.players.back().name, "Far");
    EXPECT_TRUE(w.players.back().playing);
    EXPECT_EQ(w.actionText, "vytvoreni veleni hrace Far(louka)");
}

TEST(Executor, HourlyRoundsAddMovesAndNectar) {
    WorldState w = MakeWorld(3, 2, "NNNNNN");
    AddPlayer(w, "Karel", "les", "A0");
    AddPlayer(w, "Jana", "louka", "B0").playing = false;
    AddPlayer(w, "Petr", "les", "C0");
    w.players[1].moves = 10;
    w.players[1].nectar = 600;
    w.players[1].nectarPerHour = 24;
    EXPECT_TRUE(Apply(w, Event("add_rounds", "", "", 2)).empty());
    EXPECT_EQ(w.actionText, "Pridani 6 (za 2 hodin) tahu.");
    EXPECT_EQ(w.players[1].moves, 16);
    EXPECT_EQ(w.players[1].nectar, 648);
    EXPECT_EQ(w.players[2].moves, 21);  // players who are out gain too
    EXPECT_EQ(w.players[2].nectar, 524);

    // An income too large for 16 bits stops at that player's nectar step.
    w.players[2].nectarPerHour = 20000;
    const auto texts = Apply(w, Event("add_rounds", "", "", 2));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_TRUE(isStopMessage(texts[0]));
    EXPECT_EQ(w.players[1].moves, 22);
    EXPECT_EQ(w.players[1].nectar, 696);
    EXPECT_EQ(w.players[2].moves, 27);
    EXPECT_EQ(w.players[2].nectar, 524);
    EXPECT_EQ(w.players[3].moves, 21);
    EXPECT_EQ(w.players[3].nectar, 524);

    // The 16-bit product in the text fails before anything changes.
    w.actionText = "before";
    w.speed = 200;
    EXPECT_EQ(Apply(w, Event("add_rounds", "", "", 200)).size(), 1u);
    EXPECT_EQ(w.actionText, "before");
    EXPECT_EQ(w.players[1].moves, 22);
}

TEST(Executor, EndNamesTheSideOwningTheLastPlace) {
    WorldState w = MakeWorld(3, 2, "NNNNNN");
    AddPlayer(w, "Jana", "louka", "C1");
    w.events.push_back(Event("attack", "C1", "B1", 1));
    ReplayEvent end = Event("end");
    end.playerName = "from file";
    EXPECT_TRUE(Apply(w, end).empty());
    EXPECT_EQ(w.events.back().playerName, "louka");
    EXPECT_EQ(w.actionText, "konec sveta - vitezem se stal typ louka");
    EXPECT_EQ(w.players[1].moves, 15);

    // An end that is not last writes into the last event and names its own winner.
    w.events.push_back(Event("attack", "A0", "B1", 1));
    w.events.push_back(Event("fly"));
    const auto endIndex = static_cast<std::int16_t>(w.lastEventIndex() - 2);
    w.events[endIndex].playerName = "les";
    w.events.back().playerName = "file";
    RecordingReporter reporter;
    ExecuteEvent(w, endIndex, reporter);
    EXPECT_TRUE(reporter.texts.empty());
    EXPECT_EQ(w.events.back().playerName, "");  // A0 is free: the placeholder's side
    EXPECT_EQ(w.actionText, "konec sveta - vitezem se stal typ les");

    EXPECT_TRUE(Apply(w, Event("end_hld_fire")).empty());
    EXPECT_EQ(w.actionText, "Zruseni ochranne lhuty neutoceni");
}

}  // namespace
}  // namespace trelvin
