// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Dice.h"
#include "engine/MBattleCalc.h"
#include "ui/results/frmMoreResults.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numeric>
#include <random>

namespace vorhaven::test {
namespace {

using MBattleCalc::BattleResults;
namespace ResultColumn = MBattleCalc::ResultColumn;

/// Two random sides that can both be beaten, and the turns of their armies in the order in which they fall.
class RandomBattle final : public MBattleCalc::BattleHost, public ArmyListHost, public Desktop {
public:
    explicit RandomBattle(std::mt19937& random) : random_(random) {
        const int stacks = Between(1, MaxStacks);
        for (int stack = 0; stack < stacks; ++stack)
            AddStack(attackers_, stack * LinesPerStack, Between(1, LinesPerStack), Falling[0]);
        AddStack(defenders_, 0, Between(1, MaxLines), Falling[1]);
    }

    /// From 15 faces on every strength misses at times.
    void Run(Long battles) {
        MBattleCalc::TimedGenerator dice{random_(), [] { return std::uint64_t{0}; }};
        MBattleCalc::DrawFrom(dice);
        MBattleCalc::Add(*this, battles, Between(15, 40), false, Between(0, 3));
        MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator());
    }

    std::array<std::vector<Long>, 2> Falling;

    [[nodiscard]] const CAttackArmies& AttackArmies() const override { return attackers_; }
    [[nodiscard]] const CAttackArmies& DefendArmies() const override { return defenders_; }
    [[nodiscard]] const Table& Armies() const override { return units_; }
    [[nodiscard]] const Table& Heroes() const override { return units_; }
    void ShowBusy(bool /*busy*/) override {}
    void ShowProgressBar() override {}
    void ShowProgress(Long /*percent*/) override {}
    void ShowProgressText(const std::string& /*text*/) override {}
    void ProcessEvents() override {}
    void ShowWinPercent(const std::string& /*text*/) override {}
    void ShowAverage(Long /*column*/, const std::string& /*text*/) override {}
    void ShowStats(CStackAtt& /*attackers*/, CStackAtt& /*defenders*/) override {}
    [[nodiscard]] Long NumArmies() const override { return 2; }
    [[nodiscard]] const std::string& Terrain() const override { return terrain_; }
    void EditHero(CArmy& /*hero*/) override {}
    [[nodiscard]] Size ScreenSize() const override { return {1000, 800}; }
    void ShowMessage(const std::string& /*prompt*/) override {}

private:
    int Between(int lowest, int highest) { return std::uniform_int_distribution{lowest, highest}(random_); }

    /// The last army of a stack falls first.
    void AddStack(CAttackArmies& list, int firstLine, int count, std::vector<Long>& falling) {
        const auto begin = static_cast<std::ptrdiff_t>(falling.size());
        for (int line = firstLine; line < firstLine + count; ++line) {
            AddArmy(list, line);
            falling.insert(falling.begin() + begin, list.Item(list.Count()).Turns);
        }
    }

    void AddArmy(CAttackArmies& list, int line) {
        ArmyEntry entry;
        entry.Name = "Army " + std::to_string(Between(1, 3));
        entry.UnitID = Between(0, 1);
        entry.StartStrength = Between(1, 12);
        entry.Hits = Between(1, 4);
        entry.Turns = Between(0, 1'000'000);
        entry.HasMedal = Between(0, 4);
        entry.IsBlessed = Between(0, 3) == 0;
        entry.IsFlying = Between(0, 3) == 0;
        CArmy& army = *list.Add(entry, LineKey(line));
        army.PowerValue = Between(1, 3);
        for (const auto power :
             {&CArmy::Chaos, &CArmy::Morale, &CArmy::Fear, &CArmy::Siege, &CArmy::Fortify, &CArmy::Poison,
              &CArmy::Disease, &CArmy::Assass, &CArmy::Missle, &CArmy::Trample, &CArmy::Curse,
              &CArmy::Banding, &CArmy::Acid, &CArmy::Lightning, &CArmy::Warding, &CArmy::Leadership})
            if (Between(0, 7) == 0)
                army.*power = Between(1, 6);
    }

    std::mt19937& random_;
    CAttackArmies attackers_{*this}, defenders_{*this};
    Table units_{{std::vector<Cell>(24, std::string{"fly"}), std::vector<Cell>(24, std::string{"walk"})}};
    std::string terrain_ = "field";
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

/// A chart's columns are the shares of the battles by losses, and what those losses cost.
void ExpectChart(const Chart& chart, const std::vector<Long>& falling, std::int32_t column, Long battles) {
    std::vector<int> counts(MaxLines + 1);
    for (Long battle = 1; battle <= battles; ++battle)
        ++counts.at(BattleResults(battle, column).Index());
    Long turns = 0;
    for (std::size_t slain = 0; slain < counts.size(); ++slain) {
        const auto& values = chart.Rows().at(slain).Values;
        EXPECT_NEAR(values[0].Value(), 100.0 * counts[slain] / battles.Value(), 0.5) << slain;
        EXPECT_EQ(values[1], counts[slain] > 0 ? turns : Long{}) << slain;
        if (slain < falling.size())
            turns += falling[slain];
    }
}

TEST(SoakTest, RandomBattlesKeepTheirInvariants) {
    std::mt19937 random{2026};
    constexpr std::int32_t battles = 40;
    for (int repeat = 0; repeat < 2000 && !HasFailure(); ++repeat) {
        SCOPED_TRACE(repeat);
        RandomBattle sides{random};
        sides.Run(battles);
        for (Long battle = 1; battle <= battles; ++battle)
            ExpectPossible(sides, battle);
        frmMoreResults results{sides, [] { return Long{battles}; }};
        results.Form_Load();
        ExpectChart(results.mscAttMore, sides.Falling[0], ResultColumn::AttackersSlain, battles);
        ExpectChart(results.mscDefMore, sides.Falling[1], ResultColumn::DefendersSlain, battles);
    }
}

} // namespace
} // namespace vorhaven::test
