// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/EngineTest.h"
#include "tests/support/Errors.h"

namespace vorhaven::test {
namespace {

using namespace MBattleCalc;

TEST_F(Engine, StacksGoByLineAndAnEmptyOneHidesThoseBehindIt) {
    const struct {
        std::vector<std::int32_t> lines;
        const char* draws;
        Row results;
    } cases[] = {
        // clang-format off
        {{0, 5},             "D D",       {0, 2, 7, 0, 0}},
        {{0, 7, 8},          "D D D",     {0, 3, 18, 0, 0}},
        {{0, 16, 24},        "D",         {0, 1, 1, 0, 0}},
        {{0, 8, 24},         "D D",       {0, 2, 10, 0, 0}},
        {{0, 8, 16, 24, 31}, "D D D D D", {0, 5, 84, 0, 0}},
        // clang-format on
    };
    for (const auto& test : cases) {
        host.Clear();
        host.BringDefender();
        for (const std::int32_t line : test.lines)
            Give(host.BringAttacker(line), "Turns " + std::to_string(line + 1));
        const Script script{test.draws};
        Add(host, 1, 20, false, 0);
        EXPECT_EQ(RowOf(1), test.results) << test.lines.size() << " attackers, each costing its line plus 1";
    }
}

TEST_F(Engine, SideWithoutAnArmyForTheFrontIsAnErrorOfTheDuel) {
    const struct {
        std::vector<std::int32_t> attackers;
        int defenders;
        const char* reason;
    } cases[] = {{{}, 1, "nobody attacks, and nobody is left from the run before"},
                 {{8}, 1, "the first stack is empty"},
                 {{0}, 0, "nobody defends"}};
    for (const auto& test : cases) {
        host.Clear();
        for (const std::int32_t line : test.attackers)
            host.BringAttacker(line);
        for (int defender = 0; defender < test.defenders; ++defender)
            host.BringDefender();
        EXPECT_THAT([this] { Add(host, 1, 20, false, 0); },
                    Raises(5, {"MBattleCalc::ResolveAcid", "MBattleCalc::UnitvsUnit", "MBattleCalc::Fight",
                               "MBattleCalc::Add"}))
            << test.reason;
    }
}

TEST_F(Engine, NewcomerHealsTheHitsOfTheFrontDefenderAlone) {
    CStackAtt* front = nullptr;
    host.OnStats = [&](CStackAtt&, CStackAtt& defenders) { (front = &defenders)->Item(1).Hits = 1; };
    // Disease strikes the defenders first, so 3 of 4 hits is what the front defender gets back; its halved
    // strength, its spent attempt and the shots that it lost stay.
    Fight("Disease 25 Acid 10/", "Hits 4;Hits 4 Assass 1 Missle 2",
          "98% 98% 98% 98% 1 6 1 6 20 5 1 6 1 6 20 5");
    EXPECT_EQ(Describe(*front), "10/1D 5/1D!");
    EXPECT_EQ(RowOf(1), (Row{0, 2, 2, 0, 0}));
    CStackAtt empty;
    EXPECT_EQ(CheckIfVictor(0, 0, empty), Victor::Attacker) << "a battle without survivors is won";
}

TEST_F(Engine, LaterStacksComeWithoutBonusBandingOrStrikes) {
    CStackAtt* front = nullptr;
    host.OnStats = [&](CStackAtt& attackers, CStackAtt&) { front = &attackers; };
    Fight("Morale 2/Morale 3 Banding 2 Size 2 Poison 25;Morale 3", "Fortify 1 Morale 1",
          "20 12 13 13 10 12 13 13 10 13");
    EXPECT_EQ(Describe(*front), "10/1 10/1");
}

TEST_F(Engine, AfflictionsTestTheEligibleAloneAndTheDefenderStrikesFirst) {
    const struct {
        void (*strike)(CStackAtt&, CStackAtt&);
        const char *attackers, *defenders, *struckAttackers, *struckDefenders;
    } cases[] = {
        // clang-format off
        {CheckIfPoisoned, ";Poison 1;Medals 1;Blessed;Poisoned;Diseased", "Strength 1", "4/3P 5/3 4/3P* 5/3B 5/3P 5/3D", "1/3P"},
        {CheckIfDiseased, ";Disease 1;Medals 1;Blessed;Diseased;Poisoned", "Hits 1", "5/2D 5/3 5/2D* 5/3B 5/3D 5/3P", "5/1D"},
        {CheckIfCursed, "Medals 2;Curse 1 Blessed;Blessed Medals 3;;Poisoned;Blessed", "Strength 1 Blessed", "5/3 5/3B 4/3 5/3 5/3P 5/3B", "1/3"},
        // clang-format on
    };
    for (const auto& test : cases) {
        CStackAtt attackers = StackOf(test.attackers), defenders = StackOf(test.defenders);
        attackers.StackPoison = attackers.StackDisease = attackers.StackCurse = 25;
        defenders.StackPoison = defenders.StackDisease = defenders.StackCurse = 2;
        const Script script{"7% 7% 8% 98%"};
        test.strike(attackers, defenders);
        EXPECT_EQ(Describe(attackers), test.struckAttackers);
        EXPECT_EQ(Describe(defenders), test.struckDefenders);
    }
}

TEST_F(Engine, PoisonStrikesBeforeDiseaseAndCurseAndABlessingHoldsUntilTheCurse) {
    const struct {
        const char *attacker, *draws, *seen;
    } cases[] = {{"Hits 2 Medals 1", "3% 7% 11% 20 1", "9/1PD"},
                 {"Blessed Strength 14 Medals 2", "11% 20 1", "13/1"}};
    for (const auto& test : cases) {
        std::string seen;
        host.OnStats = [&](CStackAtt& attackers, CStackAtt&) { seen = Describe(attackers); };
        Fight(test.attacker, "Poison 1 Disease 2 Curse 3", test.draws);
        EXPECT_EQ(seen, test.seen);
    }
}

TEST_F(Engine, StackBonusIsLimitedBeforeAndAfterTheEnemysPowersAndAsASum) {
    const struct {
        std::int32_t leadership, morale, fortification, chaos, fear, siege;
        /// What becomes of strengths 5 and 13.
        const char* seen;
        const char* reason;
    } cases[] = {
        // clang-format off
        {7,  0, 0, 0,  0, 0, "10/3 14/3", "5 at most"},
        {0,  0, 0, 3,  0, 0, "4/3 12/3",  "-1 at least"},
        {2,  0, 0, -4, 0, 0, "8/3 14/3",  "the enemy's -4 counts as -1"},
        {7,  0, 0, 3,  0, 0, "7/3 14/3",  "7 is limited before the enemy's 3 is taken off"},
        {9,  9, 9, 0,  0, 0, "10/3 14/3", "the sum is 5 at most"},
        {0,  0, 0, 5,  5, 5, "2/3 10/3",  "and -3 at least"},
        {0,  2, 0, 0,  1, 0, "6/3 14/3",  "fear opposes morale"},
        {0,  0, 3, 0,  0, 1, "7/3 14/3",  "siege opposes fortification"},
        {2,  3, 0, 0,  0, 9, "9/3 14/3",  "what is missing comes off the sum"},
        {-4, 0, 0, 0,  0, 0, "4/3 12/3",  "its own -4 counts as -1"},
        {0,  4, 0, 5,  0, 0, "8/3 14/3",  "chaos leaves morale alone"},
        {3,  0, 0, 0,  5, 0, "7/3 14/3",  "fear leaves leadership alone"},
        // clang-format on
    };
    for (const auto& test : cases)
        for (const bool attacks : {true, false}) {
            SCOPED_TRACE(test.reason);
            CStackAtt own = StackOf(";Strength 13"), enemy = StackOf("");
            own.StackLeadership = test.leadership;
            own.StackMorale = test.morale;
            own.StackFortify = test.fortification;
            enemy.StackChaos = test.chaos;
            enemy.StackFear = test.fear;
            enemy.StackSiege = test.siege;
            attacks ? ApplyMutualPowers(own, enemy) : ApplyMutualPowers(enemy, own);
            EXPECT_EQ(Describe(own), test.seen);
        }
    for (const auto& [value, power, bonus] : {std::array{-9, -1, -3}, {-1, -1, -1}, {5, 5, 5}, {6, 5, 5}}) {
        EXPECT_EQ(PowerFilter(value), power);
        EXPECT_EQ(TotalStackFilter(value), bonus);
    }
}

TEST_F(Engine, CityFortifiesTheDefendersWhereItIsStrongerThanTheirOwn) {
    for (const auto& [city, expected] : {std::pair{0, "11/1 11/1"}, {1, "11/1 11/1"}, {3, "11/1 13/1"}}) {
        std::string seen;
        host.OnStats = [&](CStackAtt& a, CStackAtt& d) { seen = Describe(a) + ' ' + Describe(d); };
        Fight("Fortify 1", "Fortify 1", "1 20", 1, city);
        EXPECT_EQ(seen, expected);
    }
}

} // namespace
} // namespace vorhaven::test
