// The rules of each event applied to small worlds: texts, state changes, costs and failures.
#include <gtest/gtest.h>

#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

bool stopped(const std::vector<std::string>& texts) { return OneMessage(texts, kExecuteErrorPrefix); }

ReplayEvent WithPlayer(ReplayEvent e, const std::string& player, const std::string& armyType = "") {
    e.playerName = player;
    e.armyType = armyType;
    return e;
}

TEST(Lifecycle, CreateWorldDescribesResetsAndFailsPastTheTable) {
    WorldState w = MakeWorld(10, 8, "");
    w.worldName = "Alfa";
    w.playerLimit = 4;
    AddPlayer(w, "Karel", "les", "A0");
    At(w, "A0") = Tile{"S", "Karel", "Hovado", 5, true};
    At(w, "C0") = Tile{"B", "Karel", "Hovado", 7, false};
    EXPECT_TRUE(Apply(w, Event("create_world", "NB")).empty());
    EXPECT_EQ(StateOf(w, "A0"), FieldState("N", "", "", 0));
    // Past the string nothing changes; the visible flag belongs to the view.
    EXPECT_EQ(std::tuple(At(w, "A0").visible, At(w, "C0").armyCount, w.lastPlayerIndex()), std::tuple(true, 7, 0));
    AddPlayer(w, "Karel", "les", "A0");
    EXPECT_TRUE(stopped(Apply(w, Event("create_world", std::string(80, 'S') + "BB"))));
    EXPECT_TRUE(w.actionText.starts_with("Svet Alfa vytvoren\r\n"));
    EXPECT_EQ(At(w, "J7").terrain, "S");
    EXPECT_EQ(w.lastPlayerIndex(), 1);  // players stay
}

TEST(Lifecycle, PlayersJoinStartGainHourlyAndEnd) {
    WorldState w = MakeWorld(3, 2, "NBSXNN");
    Apply(w, WithPlayer(Event("create_hq", "B0", "louka"), "Jana"));
    Apply(w, WithPlayer(Event("create_hq", "C0", "les"), "Karel"));
    EXPECT_TRUE(Apply(w, Event("start")).empty());
    EXPECT_EQ(std::tuple(w.players[1].nectarPerHour, w.players[2].nectarPerHour), std::tuple(7, 5));  // swamp, rock

    w.players[1].nectarPerHour = 20000;  // past 16 bits: stops at that player's nectar step
    EXPECT_TRUE(stopped(Apply(w, Event("add_rounds", "", "", 2))));
    EXPECT_EQ(std::tuple(w.players[1].moves, w.players[1].nectar, w.players[2].moves, w.players[2].nectar),
              std::tuple(21, 500, 15, 500));
    w.speed = 200;  // the product in the text fails before anything changes
    EXPECT_TRUE(stopped(Apply(w, Event("add_rounds", "", "", 200))));
    EXPECT_EQ(w.players[1].moves, 21);

    // The owner of the field the action before it was made from wins; the file's winner is not
    // taken, and the list stays as the file gave it.
    w.events.push_back(Event("attack", "B0", "A1", 1));
    const EventOutcome end = ApplyEvent(w, WithPlayer(Event("end"), "from file"));
    EXPECT_TRUE(end.messages.empty());
    EXPECT_EQ(std::tuple(*end.winner, *w.storedWinner, w.events.back().playerName),
              std::tuple("louka", "louka", "from file"));
    EXPECT_EQ(w.actionText, "konec sveta - vitezem se stal typ louka");
}

class Rules : public ::testing::Test {
protected:
    // 10 x 10 grass; Karel (les) has 12 "Beruška" on C4, Jana (louka) sits on J9.
    Rules() : w(MakeWorld(10, 10, std::string(100, 'N'))) {
        AddPlayer(w, "Karel", "les", "A0");
        AddPlayer(w, "Jana", "louka", "J9");
        At(w, "C4") = Tile{"N", "Karel", "Beru\x9Aka", 12, false};
    }
    Player& karel() { return w.players[1]; }
    Player& jana() { return w.players[2]; }
    WorldState w;
};

TEST_F(Rules, CapturedHeadquartersFreesAllLandOfEveryHolder) {
    At(w, "D5") = Tile{"B", "Jana", "Kom\xE1r", 3, false};
    At(w, "E5") = Tile{"N", "Jana", "Kom\xE1r", 4, false};
    jana().hqField = "D5";
    AddPlayer(w, "Twin", "louka", "H0").hqField = "D5";
    At(w, "A0").owner = "Jana";  // the map's first field
    w.tiles[0].owner = "Jana";   // the placeholder is no field of the map
    const EventOutcome taken = ApplyEvent(w, Event("attack", "C4", "D5", 12, true, 9));
    EXPECT_TRUE(taken.messages.empty());
    EXPECT_EQ(taken.captures, (std::vector<CapturedHeadquarters>{{2, "Jana"}, {3, "Twin"}}));
    EXPECT_EQ(taken.changedFields, (std::vector<int>{1, 8, 43, 54, 55, 100}));  // A0 H0 C4 D5 E5 J9
    EXPECT_EQ(w.actionText, "Utok z C4 (Karel) na D5 (Jana) s 12 jednotkami.\r\nUtok se zdaril prezilo 9 "
                            "jednotek\r\nDobyto veleni hrace Jana\r\nDobyto veleni hrace Twin\r\n"
                            "Akce stala 7 tah(u).");
    EXPECT_EQ(std::tuple(jana().playing, w.players[3].playing), std::tuple(false, false));
    for (const char* freed : {"A0", "E5", "J9", "H0"})
        EXPECT_EQ(std::tuple(At(w, freed).owner, At(w, freed).armyCount), std::tuple("", 0)) << freed;
    EXPECT_EQ(w.tiles[0].owner, "Jana");
    // Players have left the game; an attack on a field that is nobody's headquarters takes none.
    EXPECT_FALSE(ApplyEvent(w, Event("attack", "C4", "C3", 1, true, 1)).tookHeadquarters());
}

TEST_F(Rules, TheFirstPlayersHeadquartersFallsLikeAnyOther) {
    At(w, "B0") = Tile{"N", "Jana", "Hovado", 5, false};
    EXPECT_TRUE(Apply(w, Event("attack", "B0", "A0", 5, true, 4)).empty());
    EXPECT_TRUE(w.actionText.find("Dobyto veleni hrace Karel") != std::string::npos) << w.actionText;
    EXPECT_EQ(std::tuple(karel().playing, jana().playing), std::tuple(false, true));
}

TEST(Executor, ReportsMissingEventsAndTakesEachEventsTime) {
    WorldState w = MakeWorld(2, 1, "NN");
    w.events.push_back(Event("end"));  // an end with no event before it names nobody
    w.events[1].time = *DateTime::fromParts(2004, 6, 19, 8, 30, 0);
    w.eventCount = 1;
    for (const std::int16_t index : {std::int16_t{0}, std::int16_t{2}}) {
        EXPECT_EQ(ExecuteEvent(w, index).messages,
                  std::vector<std::string>{std::string(kExecuteErrorPrefix) + "Index mimo rozsah: udalost " +
                                           std::to_string(index) + " neexistuje"});
    }
    EXPECT_TRUE(ExecuteEvent(w, 1).messages.empty());
    EXPECT_EQ(w.currentTime.iso(), "2004-06-19T08:30:00");
    EXPECT_EQ(w.actionText, "konec sveta - vitezem se stal typ ");
}

TEST_F(Rules, AttackCostGrowsWithDistanceAndIsLowerOnRock) {
    // From C4: dx, dy = 1,0 / 1,1 / 2,1 / 2,2 / 3,4; an attack costs less on rock.
    const std::tuple<const char*, int, int> costs[] = {
        {"D4", 5, 4}, {"D5", 7, 5}, {"E5", 11, 8}, {"E6", 14, 11}, {"F8", 25, 20}};
    for (const auto& [target, normal, rock] : costs) {
        for (const char* terrain : {"N", "X", "S"}) {
            At(w, target) = Tile{terrain, "", "", 0, false};
            const int cost = std::string(terrain) == "S" ? rock : normal;
            karel().moves = 100;
            EXPECT_TRUE(Apply(w, Event("attack", "C4", target)).empty());
            EXPECT_EQ(karel().moves, 100 - cost) << target << terrain;
            EXPECT_TRUE(w.actionText.ends_with("\r\nAkce stala " + std::to_string(cost) + " tah(u)."));
        }
    }
}

TEST_F(Rules, ForgedAttackKeepsItsCostLineButRockDoesNot) {
    karel().moves = -32765;
    EXPECT_EQ(Apply(w, Event("attack", "C4", "D5", 1, true, 1)), std::vector<std::string>{kForgeryMessage});
    EXPECT_EQ(karel().moves, -32765);
    EXPECT_TRUE(w.actionText.ends_with("prezilo 1 jednotek\r\nAkce stala 7 tah(u)."));
    At(w, "E5").terrain = "S";
    EXPECT_TRUE(stopped(Apply(w, Event("attack", "D5", "E5", 1, true, 1))));
    EXPECT_TRUE(w.actionText.ends_with("prezilo 1 jednotek"));
    EXPECT_EQ(At(w, "E5").owner, "Karel");  // the steps before the cost stay
    karel().moves = 15;
    karel().territory = 255;  // before the cost the attack stops at the first failure
    EXPECT_TRUE(stopped(Apply(w, Event("attack", "E5", "F5", 1, true, 1))));
    EXPECT_EQ(std::tuple(At(w, "F5").owner, karel().moves), std::tuple("", 15));
}

TEST_F(Rules, MoveCarriesUnitsAndTheirType) {
    At(w, "D5") = Tile{"N", "Jana", "Hovado", 2, false};
    EXPECT_TRUE(Apply(w, Event("move", "C4", "D5", 5)).empty());
    EXPECT_EQ(StateOf(w, "D5"), FieldState("N", "Jana", "Beru\x9Aka", 7));  // the mover's type, the owner kept
    EXPECT_EQ(std::tuple(karel().moves, jana().moves), std::tuple(13, 15));
    Apply(w, Event("move", "C4", "F8", 7));  // 3,4 away: twice 5
    EXPECT_EQ(w.actionText, "Pohyb 7 jednotek z C4 na F8\r\nAkce stala 10 tah(u).");
    EXPECT_EQ(StateOf(w, "C4"), FieldState("N", "Karel", "", 0));  // an emptied field loses its type
    EXPECT_EQ(Apply(w, Event("move", "C4", "Z99", 1)).size(), 1u);
    EXPECT_EQ(std::tuple(At(w, "C4").armyCount, karel().moves), std::tuple(-1, 3));  // units leave before the target fails
}

TEST_F(Rules, RetreatRefundsHalfAndGoesQuietAfterItsText) {
    for (const auto& [type, amount, refund] : std::initializer_list<std::tuple<const char*, int, int>>{
             {"\x8Av\xE1\x62", 1, 8}, {"hovado", 4, 0}, {"Hovado", -3, -15}}) {
        At(w, "B2") = Tile{"N", "Karel", type, 10, false};
        karel().nectar = 100;
        EXPECT_TRUE(Apply(w, Event("retreat", "B2", "", static_cast<std::int16_t>(amount))).empty());
        EXPECT_EQ(w.actionText, "Prodej " + std::to_string(amount) + " jednotek z B2. Ziskals za ne " +
                                    std::to_string(refund) + "ml nektaru.");
        EXPECT_EQ(std::tuple(karel().nectar, At(w, "B2").armyCount, karel().moves),
                  std::tuple(100 + refund, 10 - amount, 15)) << type;
    }
    karel().nectar = 2147483647;  // quiet: the overflowing refund is skipped, the army still shrinks
    EXPECT_TRUE(Apply(w, Event("retreat", "B2", "", 2)).empty());
    EXPECT_EQ(std::tuple(karel().nectar, At(w, "B2").armyCount), std::tuple(2147483647, 11));
    w.actionText = "previous";  // the text step itself still stops
    EXPECT_TRUE(stopped(Apply(w, Event("retreat", "Q77", "", 2))));
    EXPECT_EQ(w.actionText, "previous");
}

TEST_F(Rules, BuyConvertAndTrade) {
    EXPECT_TRUE(stopped(Apply(w, WithPlayer(Event("buy", "A99", "", 1), "", "Hovado"))));

    At(w, "C3") = Tile{"B", "Karel", "Hovado", 2, false};
    karel().nectarPerHour = 19;
    EXPECT_TRUE(Apply(w, Event("convert_gnd", "C3", "X")).empty());  // an unknown terrain yields nothing and costs no nectar
    EXPECT_EQ(std::tuple(karel().nectarPerHour, karel().nectar, karel().moves), std::tuple(12, 500, 14));

    Apply(w, Event("trade", "Nobody", "Jana", 5));
    EXPECT_EQ(w.players[0].nectar, -5);  // an unknown name is slot 0
    jana().nectar = 40000;  // nectar is 32-bit on both sides of a trade
    karel().nectar = -40000;
    EXPECT_TRUE(Apply(w, Event("trade", "Karel", "Jana", 30000)).empty());
    EXPECT_EQ(std::tuple(karel().nectar, jana().nectar), std::tuple(-70000, 70000));
    karel().nectar = 301;
    jana().nectar = 2147483647;
    EXPECT_TRUE(stopped(Apply(w, Event("trade", "Karel", "Jana", 1))));
    EXPECT_EQ(karel().nectar, 300);  // the first step stays
}

}  // namespace
}  // namespace trelvin
