// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/MBattleCalc.h"
#include "soak/Soak.h"
#include "tests/support/Dice.h"
#include "tests/support/RandomArmies.h"
#include "tests/support/TestHost.h"
#include "ui/results/Strength.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <random>
#include <sstream>

namespace vorhaven::soak {
namespace {

using namespace test;
using MBattleCalc::BattleResults;
namespace ResultColumn = MBattleCalc::ResultColumn;

/// Two random sides that can both be beaten, and the turns of their armies in the order in which they fall.
class RandomBattle final {
public:
    explicit RandomBattle(std::mt19937& random) : random_(random) {
        std::int32_t line = 0;
        for (int stacks = Between(1, MaxStacks); stacks > 0; --stacks)
            AddStack(Falling[0], stacks > 1 ? LinesPerStack : Between(1, LinesPerStack),
                     [&](const std::string& army) { return host_.BringAttacker(line++, army).Turns; });
        AddStack(Falling[1], Between(1, MaxLines),
                 [&](const std::string& army) { return host_.BringDefender(army).Turns; });
        host_.OnStats = [this](CStackAtt& attack, CStackAtt& defend) {
            ExpectExplained(attack);
            ExpectExplained(defend);
        };
    }

    /// From 15 faces on every strength misses at times.
    void Run(Long battles) {
        const SeededDice dice{random_()};
        MBattleCalc::Add(host_, battles, Between(15, 40), true, Between(0, 3));
    }

    std::array<std::vector<Long>, 2> Falling;

private:
    int Between(int lowest, int highest) { return std::uniform_int_distribution{lowest, highest}(random_); }

    std::string RandomArmy() {
        int afflictions = MaxLines;
        std::ostringstream army;
        army << "Base " << Between(1, 15) << " Hits " << Between(1, 4) << " Turns " << Between(0, 1'000'000)
             << RandomPowers(random_, afflictions) << (Between(0, 1) == 0 ? " field " : " hills ")
             << Between(-3, 5) << " Name Army" << Between(1, 3) << " Size " << Between(1, 3) << " Banding "
             << std::max(0, Between(-35, 5));
        for (const char* condition : {" blessed", " poisoned", " blacksmith", " flying"})
            army << (Between(0, 3) == 0 ? condition : "");
        return army.str();
    }

    /// The last army of a stack falls first. `bring` tells what an army costs.
    void AddStack(std::vector<Long>& falling, int count, const auto& bring) {
        const auto begin = static_cast<std::ptrdiff_t>(falling.size());
        for (; count > 0; --count)
            falling.insert(falling.begin() + begin, bring(RandomArmy()));
    }

    /// What is told of a strength adds up to it.
    void ExpectExplained(const CStackAtt& stack) const {
        for (const CArmy& army : stack) {
            const auto terms = ExplainStrength(army, stack, host_.Terrain());
            Long sum;
            for (const StrengthTerm& term : terms)
                sum += term.Amount;
            EXPECT_EQ(sum, army.TotalStrength);
            EXPECT_EQ(terms.front().Amount, army.StartStrength);
            EXPECT_NE(terms.back().Reason, Unexplained) << SumText(terms);
        }
    }

    std::mt19937& random_;
    TestHost host_;
};

/// Whether one battle's losses are those of its winner, and cost what the armies that fell cost.
void ExpectPossible(const RandomBattle& sides, Long battle) {
    const std::int32_t winner = BattleResults(battle, ResultColumn::Winner).Value();
    for (const std::size_t side : {0U, 1U}) {
        const auto& falling = sides.Falling[side];
        const auto column = static_cast<std::int32_t>(ResultColumn::AttackersSlain + 2 * side);
        const std::size_t slain = BattleResults(battle, column).Index();
        ASSERT_LE(slain, falling.size());
        const bool isBeaten = (winner == 0) == (side == 0);
        EXPECT_EQ(isBeaten, slain == falling.size()) << "one side is wiped out, the other is not";
        EXPECT_EQ(
            BattleResults(battle, column + 1),
            std::accumulate(falling.begin(), falling.begin() + static_cast<std::ptrdiff_t>(slain), Long{}));
    }
}

TEST(RandomBattles, KeepTheirInvariants) {
    Repeat([](unsigned seed) {
        std::mt19937 random{seed};
        constexpr std::int32_t battles = 40;
        RandomBattle sides{random};
        sides.Run(battles);
        for (Long battle = 1; battle <= battles; ++battle)
            ExpectPossible(sides, battle);
    });
}

} // namespace
} // namespace vorhaven::soak
