// The attack: outcome carried into fields and players, headquarters capture, cost and modes.
#include <gtest/gtest.h>

#include <tuple>

#include "support/world_builder.h"

namespace trelvin {
namespace {

using namespace testing;

ReplayEvent Attack(const std::string& from, const std::string& to, std::int16_t amount, bool success,
                   std::int16_t survivors) {
    ReplayEvent e = Event("attack", from, to, amount);
    e.success = success;
    e.survivors = survivors;
    return e;
}

class Combat : public ::testing::Test {
protected:
    // 10 x 10 grass; Karel (les) attacks from C4 with 12 "Beruška".
    Combat() : w(MakeWorld(10, 10, std::string(100, 'N'))) {
        AddPlayer(w, "Karel", "les", "A0");
        AddPlayer(w, "Jana", "louka", "J9");
        At(w, "C4") = Tile{"N", "Karel", "Beru\x9Aka", 12, false};
    }
    Player& karel() { return w.players[1]; }
    Player& jana() { return w.players[2]; }
    WorldState w;
};

TEST_F(Combat, SuccessfulAttackOnFreeLand) {
    EXPECT_TRUE(Apply(w, Attack("C4", "D5", 12, true, 9)).empty());
    EXPECT_EQ(w.actionText,
              "Utok z C4 (Karel) na D5 (volne uzemi) s 12 jednotkami.\r\n"
              "Utok se zdaril prezilo 9 jednotek\r\nAkce stala 7 tah(u).");
    EXPECT_EQ(At(w, "D5").owner, "Karel");
    EXPECT_EQ(At(w, "D5").armyCount, 9);
    EXPECT_EQ(At(w, "D5").armyType, "Beru\x9Aka");
    EXPECT_EQ(At(w, "C4").armyCount, 0);
    EXPECT_EQ(At(w, "C4").armyType, "");
    EXPECT_EQ(At(w, "C4").owner, "Karel");
    EXPECT_EQ(karel().territory, 2);
    EXPECT_EQ(karel().nectarPerHour, 24);
    EXPECT_EQ(karel().moves, 8);
    EXPECT_EQ(w.players[0].territory, 0);  // a free field has no defender

    // Units left behind keep their type; yields follow the target's terrain.
    At(w, "C4").armyCount = 5;
    At(w, "C4").armyType = "Hovado";
    At(w, "C5").terrain = "B";
    Apply(w, Attack("C4", "C5", 2, true, 1));
    EXPECT_EQ(At(w, "C4").armyType, "Hovado");
    EXPECT_EQ(At(w, "C4").armyCount, 3);
    EXPECT_EQ(karel().nectarPerHour, 31);
    EXPECT_EQ(karel().moves, 3);
}

TEST_F(Combat, CapturedHeadquartersFreesAllLandOfEveryHolder) {
    At(w, "D5") = Tile{"B", "Jana", "Kom\xE1r", 3, false};
    At(w, "E5") = Tile{"N", "Jana", "Kom\xE1r", 4, false};
    At(w, "F5") = Tile{"S", "Jana", "", 0, false};
    jana().hqField = "D5";
    jana().nectarPerHour = 24;
    jana().territory = 3;
    AddPlayer(w, "Twin", "louka", "H0").hqField = "D5";
    EXPECT_TRUE(Apply(w, Attack("C4", "D5", 12, true, 9)).empty());
    EXPECT_EQ(w.actionText,
              "Utok z C4 (Karel) na D5 (Jana) s 12 jednotkami.\r\nUtok se zdaril prezilo 9 jednotek\r\n"
              "Dobyto veleni hrace Jana\r\nDobyto veleni hrace Twin\r\nAkce stala 7 tah(u).");
    EXPECT_FALSE(jana().playing);
    EXPECT_FALSE(w.players[3].playing);
    EXPECT_EQ(jana().territory, 2);
    EXPECT_EQ(jana().nectarPerHour, 17);
    EXPECT_EQ(jana().nectar, 500);
    for (const char* freed : {"E5", "F5", "J9", "H0"}) {
        EXPECT_EQ(At(w, freed).owner, "") << freed;
        EXPECT_EQ(At(w, freed).armyCount, 0) << freed;
    }
    EXPECT_EQ(At(w, "E5").armyType, "Kom\xE1r");
    EXPECT_EQ(At(w, "F5").terrain, "S");
    EXPECT_EQ(At(w, "D5").owner, "Karel");
    EXPECT_EQ(At(w, "D5").armyCount, 9);
    EXPECT_EQ(karel().nectarPerHour, 19);

    // Taken again after Jana fell: she is named again and her new land is freed.
    At(w, "G7") = Tile{"N", "Jana", "Hovado", 2, false};
    At(w, "D5").owner = "Jana";
    At(w, "C4").armyCount = 4;
    Apply(w, Attack("C4", "D5", 1, true, 1));
    EXPECT_NE(w.actionText.find("\r\nDobyto veleni hrace Jana\r\n"), std::string::npos);
    EXPECT_EQ(At(w, "G7").owner, "");
}

TEST_F(Combat, FailedAttackLeavesOnlyTheSurvivors) {
    At(w, "D4") = Tile{"N", "Jana", "Hovado", 5, false};
    EXPECT_TRUE(Apply(w, Attack("C4", "D4", 10, false, 3)).empty());
    EXPECT_EQ(w.actionText,
              "Utok z C4 (Karel) na D4 (Jana) s 10 jednotkami.\r\nUtok se nezdaril prezilo 3 jednotek\r\n"
              "Akce stala 5 tah(u).");
    EXPECT_EQ(At(w, "C4").armyCount, 2);
    EXPECT_EQ(At(w, "C4").armyType, "Beru\x9Aka");  // a failed attack never clears the source
    EXPECT_EQ(At(w, "D4").armyCount, 3);
    EXPECT_EQ(At(w, "D4").armyType, "Hovado");
    EXPECT_EQ(At(w, "D4").owner, "Jana");
    EXPECT_EQ(karel().territory, 1);
    EXPECT_EQ(jana().territory, 1);

    Apply(w, Attack("C4", "D4", 2, false, 0));
    EXPECT_EQ(At(w, "C4").armyCount, 0);
    EXPECT_EQ(At(w, "C4").armyType, "Beru\x9Aka");
    EXPECT_EQ(At(w, "D4").armyCount, 0);
    EXPECT_EQ(At(w, "D4").armyType, "");
    EXPECT_EQ(At(w, "D4").owner, "Jana");
}

TEST_F(Combat, CostGrowsWithDistanceAndIsLowerOnRock) {
    // From C4: dx, dy = 1,0 / 1,1 / 2,1 / 2,2 / 3,0 / 3,4 / 0,1.
    const std::tuple<const char*, int, int> costs[] = {
        {"D4", 5, 4}, {"D5", 7, 5}, {"E5", 11, 8}, {"E6", 14, 11},
        {"F4", 15, 12}, {"F8", 25, 20}, {"C3", 5, 4},
    };
    for (const auto& [target, normal, rock] : costs) {
        for (const char* terrain : {"N", "B", "X", "Q", "S"}) {
            At(w, target).terrain = terrain;
            At(w, target).owner.clear();
            const int expected = std::string(terrain) == "S" ? rock : normal;
            karel().moves = 100;
            EXPECT_TRUE(Apply(w, Attack("C4", target, 0, false, 0)).empty());
            EXPECT_EQ(karel().moves, 100 - expected) << target << terrain;
            EXPECT_TRUE(w.actionText.ends_with("\r\nAkce stala " + std::to_string(expected) + " tah(u)."))
                << target << terrain;
        }
    }
    // Too far for 16-bit squares: the attack is free. Moves may go below zero.
    WorldState wide = MakeWorld(60, 60, std::string(3600, 'N'));
    AddPlayer(wide, "Karel", "les", "A0").moves = 3;
    Apply(wide, Attack("A0", "A40", 0, false, 0));
    EXPECT_TRUE(wide.actionText.ends_with("Akce stala 0 tah(u)."));
    Apply(wide, Attack("A0", "B1", 0, false, 0));
    EXPECT_EQ(wide.players[1].moves, -4);
}

TEST_F(Combat, ForgedAttackKeepsItsCostLineButRockDoesNot) {
    karel().moves = -32765;
    auto texts = Apply(w, Attack("C4", "D5", 1, true, 1));
    EXPECT_EQ(texts, std::vector<std::string>{kForgeryMessage});
    EXPECT_EQ(karel().moves, -32765);
    EXPECT_EQ(At(w, "D5").owner, "Karel");
    EXPECT_TRUE(w.actionText.ends_with("prezilo 1 jednotek\r\nAkce stala 7 tah(u)."));

    At(w, "E5").terrain = "S";
    texts = Apply(w, Attack("D5", "E5", 1, true, 1));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_TRUE(texts[0].starts_with(kExecuteErrorPrefix));
    EXPECT_EQ(karel().moves, -32765);
    EXPECT_TRUE(w.actionText.ends_with("prezilo 1 jednotek"));
    EXPECT_EQ(At(w, "E5").owner, "Karel");  // the steps before the cost stay

    // Before the cost the attack is in stop mode: territory past 255 skips the rest.
    karel().moves = 15;
    karel().territory = 255;
    w.actionText = "before";
    texts = Apply(w, Attack("E5", "F5", 1, true, 1));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_TRUE(texts[0].starts_with(kExecuteErrorPrefix));
    EXPECT_EQ(At(w, "F5").owner, "");
    EXPECT_EQ(karel().moves, 15);
    EXPECT_TRUE(w.actionText.ends_with("prezilo 1 jednotek"));

    // A defender without territory cannot lose a field: neither its territory nor income moves.
    karel().territory = 1;
    At(w, "F5").owner = "Jana";
    jana().territory = 0;
    texts = Apply(w, Attack("E5", "F5", 1, true, 1));
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(jana().nectarPerHour, 12);
    EXPECT_EQ(At(w, "F5").owner, "Jana");
}

}  // namespace
}  // namespace trelvin
