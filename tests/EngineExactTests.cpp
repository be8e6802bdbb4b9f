// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"
#include "tests/support/Dice.h"
#include "tests/support/StackEffectSolver.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vorhaven::test {
namespace {

using namespace MBattleCalc;

constexpr std::int32_t Battles = 200'000;

/// Two sides as TestHost::Bring reads them, the combat die and the city's level; together all the rules.
const struct Matchup {
    const char *Attackers, *Defenders;
    int Die, City;
    const char* Rules;
} Matchups[] = {
    // clang-format off
    {"Strength 6 Hits 2 Turns 5;Strength 8 Turns 2;Strength 4 Hits 3",
        "Strength 7 Hits 2 Turns 3;Strength 5 Hits 3 Turns 4", 24, 0, "rounds with a die of 24 faces"},
    {"Strength 5 Hits 2 Medals 1;Strength 3 Hits 2 Medals 2;Strength 4",
        "Strength 4 Hits 2 Medals 3;Strength 2 Hits 3 Medals 4", 20, 0, "medals"},
    {"Strength 9 Hits 3 Medals 4", "Strength 9 Hits 3", 10, 0, "medals' dice larger than the combat die"},
    {"Strength 7 Hits 4 Trample 2;Hits 3 IsFlying Strength 5;Hits 4 Strength 6",
        "Hits 4 Unit 1 Strength 6 Turns 2;Hits 4 Trample 1 Strength 7;Hits 3 Trample 2 IsFlying", 20, 0,
            "trample"},
    {"Strength 4 Hits 2/Strength 5;Strength 6 Turns 2/Strength 3", "Strength 6 Hits 4;Strength 5 Hits 3", 20,
        0, "each new stack heals the front defender"},
    {"Acid 3;Strength 8 Hits 2 Turns 2;Acid 7 Strength 7", "Acid 1 Warding 1 Hits 2;Strength 9 Hits 2;Acid 4",
        20, 0, "acid"},
    {"Lightning 3 Hits 3;Strength 8 Hits 4 Turns 2;Lightning 7 Strength 7",
        "Lightning 1 Warding 1 Hits 4;Strength 9 Hits 3;Lightning 4", 20, 0, "lightning"},
    {"Assass 3 Hits 2;Hits 2 Turns 2;Assass 5", "Assass 2 Hits 3;Warding 1 Hits 4;Assass 7", 20, 0,
        "assassins"},
    {"Missle 3 Hits 2;Hits 4 Turns 2;Missle 5", "Missle 2 Hits 3;Hits 4 Strength 12 Warding 9;Missle 2", 20,
        0, "missiles"},
    {"Missle 2 Assass 4 Strength 7 Medals 2;Acid 4 Hits 3/Lightning 6 Trample 1 Hits 2;Missle 3",
        "Missle 1 Lightning 2 Hits 4 Turns 3;Assass 3 Acid 1 Warding 1 Hits 4 Trample 1;Missle 2 Hits 3", 20,
            0, "all special attacks"},
    {"Leader 3 Morale 2 Siege 1 Poison 4 Disease 2 Curse 3 Hits 2;Medals 2 Banding 1 Size 1/Acid 6",
        "Curse 2 Chaos 1 Fear 3 Hits 2 Strength 8;Blessed Poison 7 Disease 4 Medals 3 Fortify 1 Turns 2", 22,
            2, "stack bonuses, afflictions and the city"},
    // clang-format on
};

/// Fights with a fixed seed and a timer that stands still.
void Fight(const Matchup& matchup, Long times) {
    TestHost host;
    host.Bring(matchup.Attackers, matchup.Defenders);
    const SeededDice dice{20240229};
    MBattleCalc::Add(host, times, matchup.Die, false, matchup.City);
}

/// Every result must come as often as its exact odds say. By Bernstein's inequality a right engine leaves the
/// bound of z standard errors and z*z/3 with a chance below 2 exp(-z*z/2), however rare the result is; for
/// the common ones, which are near to normal, z = 4.5 means less than 1 in 100,000.
void ExpectOdds(const std::map<Row, double>& odds) {
    std::map<Row, double> counts;
    for (Long battle = 1; battle <= Battles; ++battle)
        counts[RowOf(battle)] += 1.0;
    double sum = 0.0;
    for (const auto& [row, p] : odds) {
        const double bound = 4.5 * std::sqrt(Battles * p * (1.0 - p)) + 4.5 * 4.5 / 3.0;
        EXPECT_NEAR(counts[row], Battles * p, bound) << testing::PrintToString(row);
        sum += p;
    }
    EXPECT_NEAR(sum, 1.0, 1e-9);
    for (const auto& [row, count] : counts)
        EXPECT_TRUE(odds.contains(row)) << testing::PrintToString(row) << " cannot happen";
}

TEST(EngineOdds, BattlesEndAsTheRulesSay) {
    for (const Matchup& matchup : Matchups) {
        SCOPED_TRACE(matchup.Rules);
        Fight(matchup, Battles);
        ExpectOdds(EvaluatedBattle{matchup.Attackers, matchup.Defenders, matchup.Die, matchup.City}.Odds);
    }
}

/// The signature of the engine's chance: a hash (64-bit FNV-1a, the cells' bytes from the lowest on) of all
/// results of runs from a fixed seed and timer. It is a record of what the engine does, not a proof of it: a
/// change that is to leave the odds alone leaves it alone, and one that means to change a rule or the draws
/// sets it anew.
TEST(EngineOdds, KeepTheirSignature) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const Matchup& matchup : Matchups) {
        Fight(matchup, 2000);
        for (Long battle = 1; battle <= 2000; ++battle)
            for (const std::int32_t cell : RowOf(battle))
                for (unsigned shift = 0; shift < 32; shift += 8)
                    hash = (hash ^ (static_cast<std::uint32_t>(cell) >> shift & 0xFFU)) * 0x100000001B3U;
    }
    EXPECT_EQ(hash, 0x12A3EC34D7AB5D4AU);
}

} // namespace
} // namespace vorhaven::test
