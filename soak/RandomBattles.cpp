// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Dice.h"
#include "engine/MBattleCalc.h"
#include "soak/Soak.h"
#include "tests/support/TestHost.h"
#include "ui/results/Strength.h"

#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <random>

namespace vorhaven::soak {
namespace {

using namespace test;
using MBattleCalc::BattleResults;
namespace ResultColumn = MBattleCalc::ResultColumn;

/// Two random sides that can both be beaten, and the turns of their armies in the order in which they fall.
class RandomBattle final {
public:
    explicit RandomBattle(std::mt19937& random) : random_(random) {
        for (int stacks = Between(1, MaxStacks); stacks > 0; --stacks)
            AddStack(Falling[0], &QuietHost::AddAttacker,
                     stacks > 1 ? LinesPerStack : Between(1, LinesPerStack));
        AddStack(Falling[1], &QuietHost::AddDefender, Between(1, MaxLines));
        host_.OnStats = [this](CStackAtt& attack, CStackAtt& defend) {
            ExpectExplained(attack);
            ExpectExplained(defend);
        };
    }

    /// From 15 faces on every strength misses at times.
    void Run(Long battles) {
        MBattleCalc::TimedGenerator dice{random_(), [] { return std::uint64_t{0}; }};
        MBattleCalc::DrawFrom(dice);
        MBattleCalc::Add(host_, battles, Between(15, 40), true, Between(0, 3));
        MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator());
    }

    std::array<std::vector<Long>, 2> Falling;

private:
    int Between(int lowest, int highest) { return std::uniform_int_distribution{lowest, highest}(random_); }

    /// The last army of a stack falls first.
    void AddStack(std::vector<Long>& falling, CArmy& (QuietHost::*add)(const ArmyEntry&), int count) {
        const auto begin = static_cast<std::ptrdiff_t>(falling.size());
        for (; count > 0; --count) {
            ArmyEntry entry = Plain(Between(1, 15), Between(1, 4), Between(0, 1'000'000));
            entry.Name = "Army " + std::to_string(Between(1, 3));
            entry.UnitID = Between(0, 1);
            entry.CBName = Between(0, 1) == 0 ? "field" : "hills";
            entry.CBValue = Between(-3, 5);
            entry.PowerValue = Between(1, 3);
            entry.HasMedal = Between(0, 4);
            for (const auto condition : {&ArmyEntry::IsBlessed, &ArmyEntry::IsPoisoned,
                                         &ArmyEntry::IsBlacksmith, &ArmyEntry::IsFlying})
                entry.*condition = Between(0, 3) == 0;
            CArmy& army = (host_.*add)(entry);
            for (const auto power :
                 {&CArmy::Chaos, &CArmy::Morale, &CArmy::Fear, &CArmy::Siege, &CArmy::Fortify, &CArmy::Poison,
                  &CArmy::Disease, &CArmy::Assass, &CArmy::Missle, &CArmy::Trample, &CArmy::Curse,
                  &CArmy::Banding, &CArmy::Acid, &CArmy::Lightning, &CArmy::Warding, &CArmy::Leadership})
                if (Between(0, 7) == 0)
                    army.*power = Between(1, 6);
            falling.insert(falling.begin() + begin, entry.Turns);
        }
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
