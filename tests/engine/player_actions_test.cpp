// Moves, sales, purchases, terrain conversions and trades, and hostile event values.
#include <gtest/gtest.h>

#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

class PlayerActions : public ::testing::Test {
protected:
    // 10 x 10 grass; Karel (les) has 12 "Beruška" on C4, Jana (louka) sits on J9.
    PlayerActions() : w(MakeWorld(10, 10, std::string(100, 'N'))) {
        AddPlayer(w, "Karel", "les", "A0");
        AddPlayer(w, "Jana", "louka", "J9");
        At(w, "C4") = Tile{"N", "Karel", "Beru\x9Aka", 12, false};
    }
    Player& karel() { return w.players[1]; }
    Player& jana() { return w.players[2]; }
    ReplayEvent Buy(const std::string& field, const std::string& type, std::int16_t amount) {
        ReplayEvent e = Event("buy", field, "", amount);
        e.armyType = type;
        return e;
    }
    WorldState w;
};

TEST_F(PlayerActions, MoveCarriesUnitsAndTheirType) {
    At(w, "D5") = Tile{"N", "Jana", "Hovado", 2, false};
    EXPECT_TRUE(Apply(w, Event("move", "C4", "D5", 5)).empty());
    EXPECT_EQ(w.actionText, "Pohyb 5 jednotek z C4 na D5\r\nAkce stala 2 tah(u).");
    EXPECT_EQ(At(w, "C4").armyCount, 7);
    EXPECT_EQ(At(w, "C4").armyType, "Beru\x9Aka");
    EXPECT_EQ(At(w, "D5").armyCount, 7);
    EXPECT_EQ(At(w, "D5").armyType, "Beru\x9Aka");
    EXPECT_EQ(At(w, "D5").owner, "Jana");  // nothing changes hands
    EXPECT_EQ(karel().moves, 13);
    EXPECT_EQ(jana().moves, 15);

    Apply(w, Event("move", "C4", "F8", 7));
    EXPECT_EQ(At(w, "C4").armyCount, 0);
    EXPECT_EQ(At(w, "C4").armyType, "");
    EXPECT_EQ(At(w, "F8").owner, "");
    EXPECT_EQ(w.actionText, "Pohyb 7 jednotek z C4 na F8\r\nAkce stala 10 tah(u).");
    EXPECT_EQ(karel().moves, 3);

    // A target off the map fails after the source lost its units; the rest is skipped.
    EXPECT_EQ(Apply(w, Event("move", "C4", "Z99", 1)).size(), 1u);
    EXPECT_EQ(At(w, "C4").armyCount, -1);
    EXPECT_EQ(karel().moves, 3);
}

TEST_F(PlayerActions, MoveCostsTwicePerStep) {
    // From C4: dx, dy = 1,0 / 0,1 / 1,1 / 2,1 / 2,2 / 3,0 / 3,4.
    const std::pair<const char*, int> costs[] = {{"D4", 2}, {"C5", 2}, {"B3", 2}, {"E5", 4},
                                                 {"A2", 5}, {"F4", 6}, {"F8", 10}};
    for (const auto& [target, cost] : costs) {
        karel().moves = 0;
        Apply(w, Event("move", "C4", target, 0));
        EXPECT_EQ(karel().moves, -cost) << target;
        EXPECT_TRUE(w.actionText.ends_with("Akce stala " + std::to_string(cost) + " tah(u).")) << target;
    }
    // The owner of the source pays, whoever owns the target.
    At(w, "A1") = Tile{"N", "", "Hovado", 3, false};
    jana().moves = 15;
    Apply(w, Event("move", "A1", "J9", 3));
    EXPECT_EQ(w.players[0].moves, -24);
    EXPECT_EQ(jana().moves, 15);
}

TEST_F(PlayerActions, RetreatRefundsHalfAndGoesQuietAfterItsText) {
    At(w, "B2") = Tile{"N", "Karel", "Beru\x9Aka", 3, false};
    EXPECT_TRUE(Apply(w, Event("retreat", "B2", "", 3)).empty());
    EXPECT_EQ(w.actionText, "Prodej 3 jednotek z B2. Ziskals za ne 12ml nektaru.");
    EXPECT_EQ(karel().nectar, 512);
    EXPECT_EQ(At(w, "B2").armyCount, 0);
    EXPECT_EQ(At(w, "B2").armyType, "Beru\x9Aka");
    EXPECT_EQ(karel().moves, 15);

    const std::tuple<const char*, int, int> refunds[] = {
        {"\x8Av\xE1\x62", 1, 8}, {"Kom\xE1r", 5, 5}, {"Beruska", 4, 0}, {"", 4, 0}, {"Hovado", -3, -15}};
    for (const auto& [type, amount, refund] : refunds) {
        At(w, "B2") = Tile{"N", "Karel", type, 10, false};
        karel().nectar = 100;
        EXPECT_TRUE(Apply(w, Event("retreat", "B2", "", static_cast<std::int16_t>(amount))).empty());
        EXPECT_EQ(karel().nectar, 100 + refund) << type;
        EXPECT_EQ(w.actionText, "Prodej " + std::to_string(amount) + " jednotek z B2. Ziskals za ne " +
                                    std::to_string(refund) + "ml nektaru.");
    }

    // Quiet after the text: an overflowing refund is skipped, the army still shrinks.
    At(w, "B2") = Tile{"N", "Karel", "\x8Av\xE1\x62", 5, false};
    karel().nectar = 2147483647;
    EXPECT_TRUE(Apply(w, Event("retreat", "B2", "", 2)).empty());
    EXPECT_EQ(karel().nectar, 2147483647);
    EXPECT_EQ(At(w, "B2").armyCount, 3);
    // ... and a count that would leave 16 bits is skipped silently too.
    At(w, "B2").armyCount = -32768;
    karel().nectar = 0;
    EXPECT_TRUE(Apply(w, Event("retreat", "B2", "", 2)).empty());
    EXPECT_EQ(karel().nectar, 17);
    EXPECT_EQ(At(w, "B2").armyCount, -32768);

    // The text step itself is in stop mode.
    w.actionText = "previous";
    const auto texts = Apply(w, Event("retreat", "Q77", "", 2));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_TRUE(texts[0].starts_with(kExecuteErrorPrefix));
    EXPECT_EQ(w.actionText, "previous");
}

TEST_F(PlayerActions, BuyChargesNectarAndOneMove) {
    At(w, "C3") = Tile{"N", "Karel", "Hovado", 2, false};
    EXPECT_TRUE(Apply(w, Buy("C3", "Vosi\xE8ka", 4)).empty());
    EXPECT_EQ(w.actionText,
              "Nakup 4 jednotek typu Vosi\xE8ka na C3. Cena 48ml nektaru.\r\nAkce stala 1 tah.");
    EXPECT_EQ(karel().nectar, 452);
    EXPECT_EQ(karel().moves, 14);
    EXPECT_EQ(At(w, "C3").armyCount, 6);
    EXPECT_EQ(At(w, "C3").armyType, "Vosi\xE8ka");

    EXPECT_TRUE(Apply(w, Buy("C3", "Beruska", 3)).empty());
    EXPECT_EQ(karel().nectar, 452);
    EXPECT_EQ(karel().moves, 13);
    EXPECT_EQ(At(w, "C3").armyType, "Beruska");
    EXPECT_EQ(w.actionText, "Nakup 3 jednotek typu Beruska na C3. Cena 0ml nektaru.\r\nAkce stala 1 tah.");

    Apply(w, Buy("C3", "\x8Av\xE1\x62", 100));  // nectar may go below zero
    EXPECT_EQ(karel().nectar, -1248);

    const std::string previous = w.actionText;
    const auto texts = Apply(w, Buy("A99", "Hovado", 1));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_TRUE(texts[0].starts_with(kExecuteErrorPrefix));
    EXPECT_EQ(w.actionText, previous);
    EXPECT_EQ(karel().moves, 12);
}

TEST_F(PlayerActions, ConvertChangesIncomeByTheDifferenceOfYields) {
    At(w, "C3") = Tile{"B", "Karel", "", 0, false};
    karel().nectarPerHour = 19;
    EXPECT_TRUE(Apply(w, Event("convert_gnd", "C3", "N")).empty());
    EXPECT_EQ(w.actionText, "Pretvoreni zeme na C3 na N\r\nAkce stala 1 tah a 36ml nektaru.");
    EXPECT_EQ(karel().nectarPerHour, 24);
    EXPECT_EQ(karel().nectar, 464);
    EXPECT_EQ(karel().moves, 14);
    EXPECT_EQ(At(w, "C3").terrain, "N");

    Apply(w, Event("convert_gnd", "C3", "N"));  // the same terrain still costs
    EXPECT_EQ(karel().nectarPerHour, 24);
    EXPECT_EQ(karel().nectar, 428);
    EXPECT_EQ(karel().moves, 13);

    const std::pair<const char*, int> others[] = {{"S", 15}, {"B", 21}, {"X", 0}, {"q", 0}};
    for (const auto& [terrain, cost] : others) {
        karel().nectar = 100;
        Apply(w, Event("convert_gnd", "C3", terrain));
        EXPECT_EQ(karel().nectar, 100 - cost) << terrain;
        EXPECT_EQ(w.actionText, std::string("Pretvoreni zeme na C3 na ") + terrain +
                                    "\r\nAkce stala 1 tah a " + std::to_string(cost) + "ml nektaru.");
    }
    EXPECT_EQ(karel().nectarPerHour, 12);
    EXPECT_EQ(At(w, "C3").terrain, "q");
}

TEST_F(PlayerActions, TradeMovesNectarBetweenNames) {
    EXPECT_TRUE(Apply(w, Event("trade", "Karel", "Jana", 100)).empty());
    EXPECT_EQ(w.actionText, "Poslani surovin:Karel -> Jana");
    EXPECT_EQ(karel().nectar, 400);
    EXPECT_EQ(jana().nectar, 600);
    EXPECT_EQ(karel().moves, 15);
    Apply(w, Event("trade", "Nobody", "Jana", 5));
    EXPECT_EQ(w.players[0].nectar, -5);
    EXPECT_EQ(jana().nectar, 605);

    jana().nectar = 2147483647;
    EXPECT_EQ(Apply(w, Event("trade", "Karel", "Jana", 1)).size(), 1u);
    EXPECT_EQ(karel().nectar, 399);  // the first step stays
}

TEST_F(PlayerActions, HostileValuesReportOrSkipButNeverCrash) {
    At(w, "B1") = Tile{"N", "Ghost", "??", 32767, false};
    for (const char* field : {"", "A", "\xFF" "0", "A-1", "A99999", "a0", "A1e3", "B1", "K9", "J10"}) {
        for (ReplayEvent e : {Event("move", field, "C4", 32767), Event("move", "B1", field, -32768),
                              Event("retreat", field, "", -32768), Event("convert_gnd", field, "Q"),
                              Event("attack", field, "B0", 32767), Event("attack", "B1", field, -32768),
                              Event("create_hq", field, "les"), Event("buy", field, "", 32767)}) {
            e.success = e.amount > 0;
            e.survivors = e.amount;
            e.armyType = "\x8Av\xE1\x62";
            for (const std::string& text : Apply(w, e))
                EXPECT_TRUE(text.starts_with(kExecuteErrorPrefix) || text == kForgeryMessage) << text;
        }
    }
    EXPECT_EQ(w.lastTileIndex(), 100);
}

}  // namespace
}  // namespace trelvin
