// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"
#include "engine/State.h"
#include "odds/BattleOdds.h"
#include "odds/OrderSearch.h"
#include "tests/support/Dice.h"
#include "tests/support/Errors.h"
#include "tests/support/RandomArmies.h"
#include "tests/support/StackEffectSolver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>

namespace vorhaven::test {
namespace {

using Odds::BattleOdds;
using Odds::Losses;
using Odds::SideOdds;

std::optional<BattleOdds> OddsOf(const TestHost& host, Long die, Long city, Odds::Budget& budget) {
    MBattleCalc::BattleStacks stacks;
    stacks.Build(host.AttackArmies(), host.DefendArmies());
    return Odds::OddsOf(stacks, MBattleCalc::Flyers{host.Armies(), host.Heroes()}, die, city, budget);
}

std::optional<BattleOdds> OddsOf(const TestHost& host, Long die, Long city = 0) {
    Odds::Budget budget{100'000'000};
    return OddsOf(host, die, city, budget);
}

/// A battle told as attackers, defenders, die, city level.
struct Battle {
    std::string Attackers, Defenders;
    int Die = 20, City = 0;
};

BattleOdds OddsOf(const Battle& battle) {
    TestHost host;
    host.Bring(battle.Attackers, battle.Defenders);
    return OddsOf(host, battle.Die, battle.City).value();
}

void ExpectRelative(double actual, double expected) {
    EXPECT_NEAR(actual, expected, 1e-9 * std::abs(expected));
}

/// Averages over the rows of a winner (0 or 1), or over all (2).
void ExpectLosses(const std::optional<Losses>& losses, const std::map<Row, double>& rows, std::size_t side,
                  int winner) {
    double sum = 0.0, armies = 0.0, turns = 0.0;
    for (const auto& [row, p] : rows)
        if (winner == 2 || row[0] == winner) {
            sum += p;
            armies += p * row[2 * side + 1];
            turns += p * row[2 * side + 2];
        }
    ASSERT_EQ(losses.has_value(), sum > 0.0);
    if (losses) {
        ExpectRelative(losses->Armies, armies / sum);
        ExpectRelative(losses->Turns, turns / sum);
    }
}

void ExpectSolved(const Battle& battle) {
    SCOPED_TRACE(testing::Message() << battle.Attackers << ':' << battle.Defenders << ':' << battle.Die << ':'
                                    << battle.City);
    const BattleOdds odds = OddsOf(battle);
    EvaluatedBattle solved{battle.Attackers, battle.Defenders, battle.Die, battle.City};
    const auto& rows = solved.Odds;
    double won = 0.0;
    std::array<std::map<std::size_t, double>, 2> slain;
    for (const auto& [row, p] : rows) {
        won += row[0] * p;
        slain[0][static_cast<std::size_t>(row[1])] += p;
        slain[1][static_cast<std::size_t>(row[3])] += p;
    }
    ExpectRelative(odds.Won, won);
    EXPECT_NEAR(odds.Won + odds.Lost + odds.Endless, 1.0, 1e-11);
    for (const std::size_t side : {0U, 1U}) {
        const SideOdds& told = side == 0 ? odds.Attackers : odds.Defenders;
        for (std::size_t k = 0; k < told.ChanceOfLosing.size(); ++k)
            EXPECT_NEAR(told.ChanceOfLosing[k], slain[side][k], 1e-11) << side << ' ' << k;
        ExpectLosses(told.Overall, rows, side, 2);
        ExpectLosses(told.IfAttackerWins, rows, side, 1);
        ExpectLosses(told.IfDefenderWins, rows, side, 0);
    }
    std::array<double, 2> slayings{};
    for (std::size_t i = 0; i < odds.Slayings.size(); ++i)
        for (std::size_t j = 0; j < odds.Slayings[i].size(); ++j) {
            const auto& [byAttacker, byDefender] = odds.Slayings[i][j];
            EXPECT_NEAR(byAttacker, (solved.Slayings[{0, i, j}]), 1e-11) << i << ' ' << j;
            EXPECT_NEAR(byDefender, (solved.Slayings[{1, i, j}]), 1e-11) << i << ' ' << j;
            slayings[0] += byDefender;
            slayings[1] += byAttacker;
        }
    for (const std::size_t side : {0U, 1U}) {
        const SideOdds& told = side == 0 ? odds.Attackers : odds.Defenders;
        EXPECT_NEAR(slayings[side], told.Overall.value().Armies, 1e-11);
        double survives = 0.0;
        for (std::size_t army = 0; army + 1 < told.ChanceOfLosing.size(); ++army) {
            survives += slain[side][army];
            EXPECT_NEAR(SurvivalOf(told)[army].For, survives, 1e-11) << side << ' ' << army;
            EXPECT_NEAR(SurvivalOf(told)[army].Against, 1.0 - survives, 1e-11) << side << ' ' << army;
        }
    }
}

const std::vector<Battle> Stories{
    // A disease takes a hit that a new stack gives back no more, and later stacks are not diseased
    {"Disease 9 Strength 4 Turns 3/Strength 5;Strength 3/Strength 6", "Strength 6 Hits 4;Strength 5 Hits 1"},
    {"Strength 5 Hits 3/Strength 4 Hits 2", "Disease 7 Hits 2;Strength 6 Hits 3"},
    // Medals cursed away, a blessing with a strength, and several afflictions at once
    {"Curse 8;Medals 2 Hits 2/Medals 3", "Medals 4 Strength 5 Hits 3;Blessed Medals 1 Curse 4;Medals 3"},
    {"Poison 5 Disease 6 Curse 7;Medals 2 Hits 3", "Poison 3 Strength 1 Hits 1;Medals 3 Hits 2 Strength 4",
     22},
    {"Poison 30;Blessed Hits 2", "Poison 3 Disease 2 Curse 9;Poisoned Strength 3;Diseased Hits 2", 22},
    // Shots go from duel to duel and across stacks, and a volley uses up undecided rounds
    {"Missle 40 Strength 8 Hits 3", "Hits 2;Missle 3 Strength 6;Hits 4;Missle 50;Hits 2 Strength 9"},
    {"Hits 2;Missle 2/Missle 1;Hits 3", "Missle 4 Hits 3;Missle 5 Strength 7"},
    // Strengths above the die
    {"Strength 14 Hits 2;Strength 12 Medals 1", "Strength 5 Hits 2;Strength 8 Medals 2 Hits 3;Strength 9",
     10},
    // Bonuses, banding, city and flyers
    {"Leader 4 Siege 1;Morale 2 Hits 3 Trample 1;Banding 1 Size 1;Banding 1 Size 3;Banding 1",
     "Fortify 1 IsFlying Hits 4;Chaos 2 Hits 3;Fear 1 Unit 1 Hits 2;Trample 2 Hits 2", 24, 3},
    {"Chaos 9 Leader 9 Strength 2;Fear 9 Morale 9 Strength 14",
     "Banding 1 Size 4 Strength 12;Siege 9 Strength 1", 18}};

TEST(BattleOddsTest, AgreeWithTheSolver) {
    for (const Battle& battle : Stories)
        ExpectSolved(battle);
}

std::string RandomStack(std::mt19937& random, std::size_t armies, int& afflictions) {
    const auto upTo = [&random](unsigned n) { return static_cast<int>(random() % (n + 1)); };
    std::ostringstream stack;
    for (const char* separator = ""; armies > 0; --armies, separator = ";") {
        stack << separator << "Strength " << 1 + upTo(13);
        stack << " Hits " << 1 + upTo(3);
        stack << " Turns " << upTo(9) << RandomPowers(random, afflictions);
        if (upTo(4) == 0)
            stack << (upTo(1) == 0 ? " Blessed" : " IsFlying");
    }
    return stack.str();
}

TEST(BattleOddsTest, AgreeWithTheSolverOnRandomBattles) {
    std::mt19937 random{17};
    for (int repeat = 0; repeat < 500; ++repeat) {
        int afflictions = 2;
        const std::size_t armies = 1 + random() % 3;
        Battle battle{RandomStack(random, armies, afflictions),
                      RandomStack(random, 1 + random() % 3, afflictions),
                      15 + static_cast<int>(random() % 12), static_cast<int>(random() % 4)};
        for (auto later = random() % 3; later > 0; --later)
            battle.Attackers += '/' + RandomStack(random, 1 + random() % 2, afflictions);
        ExpectSolved(battle);
    }
}

TEST(BattleOddsTest, AreCalledCertainWhereNoOtherEndIsPossible) {
    std::mt19937 random{3};
    std::map<std::string, int> told;
    for (int repeat = 0; repeat < 3000 && !HasFailure(); ++repeat) {
        int afflictions = 1;
        const auto stackOf = [&](std::size_t armies, unsigned strength, const std::string& hits) {
            std::string stack;
            while (armies-- > 0)
                stack += (stack.empty() ? "" : ";") + RandomStack(random, 1, afflictions) + " Hits " + hits +
                         " Strength " + std::to_string(strength + random() % 3);
            return stack;
        };
        Battle battle{stackOf(1 + random() % 2, 1, "1"), stackOf(1 + random() % 3, 12, "4"),
                      13 + static_cast<int>(random() % 4)};
        if (random() % 2 == 0)
            std::swap(battle.Attackers, battle.Defenders);
        std::array<bool, 2> canWin{};
        for (const auto& [row, p] : EvaluatedBattle{battle.Attackers, battle.Defenders, battle.Die, 0}.Odds)
            if (p > 0.0)
                canWin.at(static_cast<std::size_t>(row[0])) = true;
        const BattleOdds odds = OddsOf(battle);
        const std::array texts{PercentText(odds.DefenderWins()), PercentText(odds.AttackerWins())};
        for (const std::size_t winner : {0U, 1U}) {
            const std::string& text = texts.at(winner);
            EXPECT_EQ(text == "0.0%", !canWin.at(winner))
                << text << ' ' << battle.Attackers << ':' << battle.Defenders;
            EXPECT_EQ(text == "100.0%", !canWin.at(1 - winner))
                << text << ' ' << battle.Attackers << ':' << battle.Defenders;
            ++told[text];
        }
    }
    for (const char* text : {"100.0%", "> 99.9%"})
        EXPECT_GE(told[text], 400) << text;

    // A chance of some 1e-450: no number holds it.
    std::string strong = "Strength 14 Hits 4 Medals 4";
    for (int army = 1; army < MaxLines; ++army)
        strong += ";Strength 14 Hits 4 Medals 4";
    const BattleOdds odds = OddsOf(Battle{"Strength 1 Hits 1", strong, 15});
    EXPECT_EQ(PercentText(odds.AttackerWins()) + " " + PercentText(odds.DefenderWins()), "< 0.1% > 99.9%");
}

TEST(BattleOddsTest, RaiseWhatTheEngineRaises) {
    const auto errorOf = [](const std::string& attackers, const std::string& defenders) {
        return ErrorOf([&] { return OddsOf(Battle{attackers, defenders}); });
    };
    TestHost host;
    EXPECT_EQ(ErrorOf([&] { return OddsOf(host, 20); }), 5);
    host.BringDefender();
    EXPECT_EQ(ErrorOf([&] { return OddsOf(host, 20); }), 5);
    host.BringAttacker(8);
    EXPECT_EQ(ErrorOf([&] { return OddsOf(host, 20); }), 5) << "the first stack is empty";
    host.BringAttacker(0);
    host.BringAttacker(24);
    EXPECT_EQ(OddsOf(host, 20)->Attackers.ChanceOfLosing.size(), 3U)
        << "the empty third stack hides the fourth";
    EXPECT_EQ(errorOf("Poison 2147483647;Poison 1", ""), 6);
    EXPECT_EQ(errorOf("Poison 2147483647", ""), 6);
    EXPECT_EQ(errorOf("Poison 2147483647", "Poison 1"), 0);
    EXPECT_EQ(errorOf("Acid 2147483647", "Warding -1"), 6);
    EXPECT_EQ(errorOf("Assass 300000000", ""), 6);
    EXPECT_EQ(errorOf("Assass 1 Missle 2147483647", "Missle -1"), 6) << "of shots that are used up";
    EXPECT_EQ(errorOf("Trample 1", "Unit 8"), 9);
    EXPECT_EQ(errorOf("Trample 1 Assass 10", "Unit 8"), 0) << "never asked";
}

/// Dozens of typed missiles, whose shots left are all different.
void BringArchers(TestHost& host) {
    for (int line = 0; line < MaxLines; ++line) {
        host.BringAttacker(line, "Strength 5 Hits 4 Missle " + std::to_string(3000 + 997 * line));
        host.BringDefender("Strength 5 Hits 4 Missle " + std::to_string(2500 + 1009 * line));
    }
}

TEST(BattleOddsTest, TakeNoMoreStepsNorStatesThanTheirBudgetHas) {
    TestHost host;
    host.Bring("Missle 3;", "Hits 2");
    for (const auto& [steps, left] : {std::pair{6, 1}, {5, 0}, {4, 0}}) {
        Odds::Budget budget{steps};
        EXPECT_EQ(OddsOf(host, 20, 0, budget).has_value(), steps >= 5)
            << "two duels of rounds, and a volley of three shots in the second";
        EXPECT_EQ(budget.Left(), left);
    }
    TestHost archers;
    BringArchers(archers);
    Odds::Budget budget{10'000};
    EXPECT_FALSE(OddsOf(archers, 10'000, 0, budget));
    EXPECT_EQ(budget.Taken(), 10'000);
    TestHost volley;
    volley.Bring("Missle 2147483647 Strength 1", ";Strength 1");
    EXPECT_FALSE(OddsOf(volley, 2'000'000'000)) << "more states than memory is given to";
    TestHost waiting;
    waiting.Bring(";", "");
    for (int line = 1; line < MaxLines; ++line)
        waiting.BringDefender("Strength 5 Missle 5000");
    EXPECT_FALSE(OddsOf(waiting, 10'000)) << "all defenders together";
}

/// The engine's own duels, counted. By Bernstein's inequality a right engine leaves the bound of z standard
/// errors and z*z/3 with a chance below 2 exp(-z*z/2).
TEST(BattleOddsTest, TellWhoSlaysWhomAsOftenAsTheEngineLetsItHappen) {
    using namespace MBattleCalc;
    constexpr int battles = 10'000;
    constexpr double z = 4.5;
    TestHost host;
    host.Bring("Missle 2 Assass 4 Strength 7 Medals 2;Acid 4 Hits 3;Poison 3/Lightning 6 Trample 1 Hits 2",
               "Missle 1 Lightning 2 Hits 4;Assass 3 Disease 4 Hits 4;Missle 2 Hits 3 Strength 12");
    const SeededDice dice{20240229};
    MBattleCalc::Add(host, 1, 20, false, 1);
    std::map<std::array<std::size_t, 3>, int> counts;
    for (int battle = 0; battle < battles; ++battle) {
        NextAttackStack = 0;
        SendToAttackFront();
        SendToDefendFront();
        EvalStacksSelfEffect(1);
        EvalStacksMutualEffect();
        CacheStartHits(DefendFront);
        std::array<std::size_t, 2> slain{};
        do {
            const Long defenders = DefendFront.Count();
            UnitvsUnit(AttackFront, AttackFront.Count(), DefendFront, defenders, 1);
            const std::size_t victim = DefendFront.Count() < defenders ? 1 : 0;
            ++counts[{victim, slain[0], slain[1]}];
            ++slain.at(victim);
        } while (CheckIfVictor(AttackFront.Count(), DefendFront.Count(), DefendFront) == Victor::Undecided);
    }
    const auto slayings = OddsOf(host, 20, 1)->Slayings;
    for (std::size_t i = 0; i < slayings.size(); ++i)
        for (std::size_t j = 0; j < slayings[i].size(); ++j)
            for (const std::size_t victim : {0U, 1U}) {
                const double p = victim == 1 ? slayings[i][j].ByAttacker : slayings[i][j].ByDefender;
                EXPECT_NEAR((counts[{victim, i, j}]), battles * p,
                            z * std::sqrt(battles * p * (1.0 - p)) + z * z / 3.0)
                    << victim << ' ' << i << ' ' << j;
            }
}

TEST(OrderSearchTest, LeavesWhatTheOrderChangesInAnArmyToOthers) {
    const auto isImpossible = [](const std::string& attackers, std::size_t stack) {
        TestHost host;
        host.Bring(attackers, "Hits 2");
        MBattleCalc::BattleStacks stacks;
        stacks.Build(host.AttackArmies(), host.DefendArmies());
        const MBattleCalc::Flyers flyers{host.Armies(), host.Heroes()};
        Odds::OrderSearch search{stacks, stack, {0, 1}, flyers, 20, 0};
        Odds::Budget budget{1'000'000};
        while (!search.IsDone() && !search.IsImpossible())
            search.GoOn(budget);
        return search.IsImpossible();
    };
    const std::string bands = "Name a Banding 1 Size 1;Name a Banding 1 Size 3";
    EXPECT_TRUE(isImpossible(bands, 0));
    EXPECT_FALSE(isImpossible("Strength 3/" + bands, 1)) << "later stacks do not band together";
    EXPECT_TRUE(isImpossible("Poison 2000000000;Poison -1900000000", 0))
        << "no sum may be too large on its way";
}

TEST(BattleOddsTest, LeaveARunThatIsUnderWayAlone) {
    const auto run = [](bool withOdds) {
        TestHost host;
        host.Bring("Hits 3 Trample 1;Strength 7/Hits 2", "Fortify 1 Hits 4;Disease 5 Medals 2");
        if (withOdds)
            host.OnEvents = [] { OddsOf(Battle{"Strength 3/Hits 2/;", "Hits 3;Poison 7;Trample 2", 30, 3}); };
        const SeededDice dice{5};
        MBattleCalc::Add(host, 300, 20, false, 1);
        std::vector<Row> rows;
        for (Long battle = 1; battle <= 300; ++battle)
            rows.push_back(RowOf(battle));
        return rows;
    };
    EXPECT_EQ(run(true), run(false));
}

} // namespace
} // namespace vorhaven::test
