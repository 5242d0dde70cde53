// The player actions: what each changes, the text it leaves, and how failures differ by mode.
#include <gtest/gtest.h>

#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

const char* const kForgery =
    "Chyba - zaznam je padelek - hrac nema dostatecny pocet tahu na provedeni tahu";

ReplayEvent Attack(const std::string& from, const std::string& to, std::int16_t amount, bool success,
                   std::int16_t survivors) {
    ReplayEvent e = Event("attack", from, to, amount);
    e.success = success;
    e.survivors = survivors;
    return e;
}

class Rules : public ::testing::Test {
protected:
    Rules() : w(MakeWorld(10, 10, std::string(100, 'N'))) {
        AddPlayer(w, "Karel", "les", "A0");
        AddPlayer(w, "Jana", "louka", "J9");
        At(w, "C4") = Tile{"N", "Karel", "Beru\x9Aka", 12, false};
    }
    WorldState w;
};

TEST_F(Rules, SuccessfulAttackOnFreeLand) {
    EXPECT_TRUE(Apply(w, Attack("C4", "D5", 12, true, 9)).empty());
    EXPECT_EQ(w.actionText,
              "Utok z C4 (Karel) na D5 (volne uzemi) s 12 jednotkami.\r\n"
              "Utok se zdaril prezilo 9 jednotek\r\nAkce stala 7 tah(u).");
    EXPECT_EQ(At(w, "D5").owner, "Karel");
    EXPECT_EQ(At(w, "D5").armyCount, 9);
    EXPECT_EQ(At(w, "D5").armyType, "Beru\x9Aka");
    EXPECT_EQ(At(w, "C4").armyCount, 0);
    EXPECT_EQ(At(w, "C4").armyType, "");
    EXPECT_EQ(w.players[1].territory, 2);
    EXPECT_EQ(w.players[1].nectarPerHour, 24);
    EXPECT_EQ(w.players[1].moves, 8);
}

TEST_F(Rules, CapturedHeadquartersFreesAllLandOfBothHolders) {
    At(w, "D5") = Tile{"B", "Jana", "Kom\xE1r", 3, false};
    At(w, "E5") = Tile{"N", "Jana", "Kom\xE1r", 4, false};
    w.players[2].hqField = "D5";
    AddPlayer(w, "Twin", "louka", "H0").hqField = "D5";
    EXPECT_TRUE(Apply(w, Attack("C4", "D5", 12, true, 9)).empty());
    EXPECT_EQ(w.actionText,
              "Utok z C4 (Karel) na D5 (Jana) s 12 jednotkami.\r\nUtok se zdaril prezilo 9 jednotek\r\n"
              "Dobyto veleni hrace Jana\r\nDobyto veleni hrace Twin\r\nAkce stala 7 tah(u).");
    EXPECT_FALSE(w.players[2].playing);
    EXPECT_FALSE(w.players[3].playing);
    EXPECT_EQ(w.players[2].territory, 0);
    EXPECT_EQ(w.players[2].nectarPerHour, 5);
    EXPECT_EQ(At(w, "E5").owner, "");
    EXPECT_EQ(At(w, "E5").armyCount, 0);
    EXPECT_EQ(At(w, "E5").armyType, "Kom\xE1r");
    EXPECT_EQ(At(w, "H0").owner, "");
    EXPECT_EQ(At(w, "D5").owner, "Karel");
}

TEST_F(Rules, FailedAttackAndTheCostTable) {
    At(w, "D4") = Tile{"S", "Jana", "Hovado", 5, false};
    EXPECT_TRUE(Apply(w, Attack("C4", "D4", 10, false, 0)).empty());
    EXPECT_EQ(At(w, "C4").armyCount, 2);
    EXPECT_EQ(At(w, "D4").armyCount, 0);
    EXPECT_EQ(At(w, "D4").armyType, "");
    EXPECT_EQ(At(w, "D4").owner, "Jana");
    EXPECT_EQ(w.players[1].moves, 11);  // rock: factor 4

    for (auto [to, terrain, cost] : {std::tuple{"F8", "N", 25}, {"F8", "S", 20}, {"E5", "X", 11},
                                     {"F4", "S", 12}, {"E6", "B", 14}}) {
        At(w, to).terrain = terrain;
        At(w, to).owner.clear();
        Apply(w, Attack("C4", to, 0, false, 0));
        EXPECT_TRUE(w.actionText.ends_with("Akce stala " + std::to_string(cost) + " tah(u).")) << to;
    }
}

TEST_F(Rules, ForgedAttackKeepsItsCostLineButRockDoesNot) {
    w.players[1].moves = -32765;
    auto texts = Apply(w, Attack("C4", "D5", 1, true, 1));
    EXPECT_EQ(texts, std::vector<std::string>{kForgery});
    EXPECT_EQ(w.players[1].moves, -32765);
    EXPECT_TRUE(w.actionText.ends_with("Akce stala 7 tah(u)."));

    At(w, "E5").terrain = "S";
    texts = Apply(w, Attack("D5", "E5", 1, true, 1));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_TRUE(texts[0].starts_with("Chyba pri provadeni tahu - "));
    EXPECT_TRUE(w.actionText.ends_with("prezilo 1 jednotek"));

    // Before the cost the attack is in stop mode: territory past 255 skips the rest.
    w.players[1].territory = 255;
    texts = Apply(w, Attack("E5", "F5", 1, true, 1));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(At(w, "F5").owner, "");
}

TEST_F(Rules, MoveCarriesUnitsAndTheirType) {
    At(w, "D5") = Tile{"N", "Jana", "Hovado", 2, false};
    EXPECT_TRUE(Apply(w, Event("move", "C4", "D5", 5)).empty());
    EXPECT_EQ(w.actionText, "Pohyb 5 jednotek z C4 na D5\r\nAkce stala 2 tah(u).");
    EXPECT_EQ(At(w, "D5").armyCount, 7);
    EXPECT_EQ(At(w, "D5").armyType, "Beru\x9Aka");
    EXPECT_EQ(At(w, "D5").owner, "Jana");
    EXPECT_EQ(w.players[1].moves, 13);
    Apply(w, Event("move", "C4", "F8", 7));
    EXPECT_EQ(At(w, "C4").armyType, "");
    EXPECT_TRUE(w.actionText.ends_with("Akce stala 10 tah(u)."));
    EXPECT_EQ(Apply(w, Event("move", "C4", "Z99", 1)).size(), 1u);
    EXPECT_EQ(At(w, "C4").armyCount, -1);  // the step before the failing one stays
}

TEST_F(Rules, RetreatRefundsHalfAndGoesQuietAfterItsText) {
    At(w, "B2") = Tile{"N", "Karel", "Beru\x9Aka", 3, false};
    EXPECT_TRUE(Apply(w, Event("retreat", "B2", "", 3)).empty());
    EXPECT_EQ(w.actionText, "Prodej 3 jednotek z B2. Ziskals za ne 12ml nektaru.");
    EXPECT_EQ(w.players[1].nectar, 512);
    EXPECT_EQ(At(w, "B2").armyCount, 0);
    EXPECT_EQ(At(w, "B2").armyType, "Beru\x9Aka");
    EXPECT_EQ(w.players[1].moves, 15);

    At(w, "B2") = Tile{"N", "Karel", "\x8Av\xE1\x62", 1, false};
    Apply(w, Event("retreat", "B2", "", 1));
    EXPECT_EQ(w.players[1].nectar, 520);

    w.players[1].nectar = 2147483647;
    At(w, "B2").armyCount = 5;
    EXPECT_TRUE(Apply(w, Event("retreat", "B2", "", 2)).empty());
    EXPECT_EQ(w.players[1].nectar, 2147483647);
    EXPECT_EQ(At(w, "B2").armyCount, 3);

    w.actionText = "previous";
    EXPECT_EQ(Apply(w, Event("retreat", "Q77", "", 2)).size(), 1u);
    EXPECT_EQ(w.actionText, "previous");
}

TEST_F(Rules, BuyConvertAndTrade) {
    ReplayEvent buy = Event("buy", "C4", "", 4);
    buy.armyType = "Vosi\xE8ka";
    EXPECT_TRUE(Apply(w, buy).empty());
    EXPECT_EQ(w.actionText, "Nakup 4 jednotek typu Vosi\xE8ka na C4. Cena 48ml nektaru.\r\nAkce stala 1 tah.");
    EXPECT_EQ(w.players[1].nectar, 452);
    EXPECT_EQ(w.players[1].moves, 14);
    EXPECT_EQ(At(w, "C4").armyCount, 16);
    EXPECT_EQ(At(w, "C4").armyType, "Vosi\xE8ka");
    buy.armyType = "Beruska";
    Apply(w, buy);
    EXPECT_EQ(w.players[1].nectar, 452);
    EXPECT_NE(w.actionText.find("Cena 0ml"), std::string::npos);
    buy.place = "A99";
    EXPECT_EQ(Apply(w, buy).size(), 1u);
    EXPECT_NE(w.actionText.find("na C4"), std::string::npos);

    At(w, "C4").terrain = "B";
    w.players[1].nectarPerHour = 7;
    EXPECT_TRUE(Apply(w, Event("convert_gnd", "C4", "N")).empty());
    EXPECT_EQ(w.actionText, "Pretvoreni zeme na C4 na N\r\nAkce stala 1 tah a 36ml nektaru.");
    EXPECT_EQ(w.players[1].nectarPerHour, 12);
    EXPECT_EQ(w.players[1].nectar, 416);
    EXPECT_EQ(At(w, "C4").terrain, "N");
    Apply(w, Event("convert_gnd", "C4", "X"));
    EXPECT_EQ(w.players[1].nectarPerHour, 0);
    EXPECT_EQ(w.players[1].nectar, 416);

    EXPECT_TRUE(Apply(w, Event("trade", "Karel", "Jana", 100)).empty());
    EXPECT_EQ(w.actionText, "Poslani surovin:Karel -> Jana");
    EXPECT_EQ(w.players[1].nectar, 316);
    EXPECT_EQ(w.players[2].nectar, 600);
    Apply(w, Event("trade", "Nobody", "Jana", 5));
    EXPECT_EQ(w.players[0].nectar, -5);
    EXPECT_EQ(w.players[2].nectar, 605);
}

TEST_F(Rules, HostileValuesReportOrSkipButNeverCrash) {
    for (const char* field : {"", "A", "\xFF" "0", "A-1", "A99999", "a0", "A1e3"}) {
        Apply(w, Attack(field, "B0", 32767, true, 32767));
        Apply(w, Attack("C4", field, -32768, false, -32768));
        Apply(w, Event("move", field, "C4", 32767));
        Apply(w, Event("retreat", field, "", -32768));
        Apply(w, Event("convert_gnd", field, "Q"));
        ReplayEvent buy = Event("buy", field, "", 32767);
        buy.armyType = "\x8Av\xE1\x62";
        Apply(w, buy);
    }
    EXPECT_EQ(w.players.size(), 3u);
}

}  // namespace
}  // namespace trelvin
