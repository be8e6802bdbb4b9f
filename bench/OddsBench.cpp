// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Dice.h"
#include "engine/MBattleCalc.h"
#include "odds/BattleOdds.h"
#include "tests/support/QuietHost.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>

namespace {

using namespace vorhaven;
using Clock = std::chrono::steady_clock;

struct Lists {
    std::string Attackers;
    std::string Defenders;
    Long City;
};

Lists Ordinary() {
    return {
        "Strength 4 Hits 2;Strength 5 Hits 2 Morale 1;Strength 5 Hits 2 Medals 1;Strength 6 Hits 2 Missle 2;"
        "Strength 6 Hits 2;Strength 7 Hits 2 Trample 1;Strength 5 Hits 3;Strength 7 Hits 3",
        "Strength 4 Hits 2 Missle 1;Strength 4 Hits 2 Fortify 1;Strength 5 Hits 2;Strength 6 Hits 2 IsFlying;"
        "Strength 6 Hits 2 Medals 1;Strength 5 Hits 3;Strength 7 Hits 2 Acid 2;Strength 7 Hits 3",
        2};
}

/// 32 against 32 with every special attack and stack power, medals, afflictions on both sides, and heroes
/// that have all special attacks at once. Near to even, so that the simulated battles are long.
Lists EverySpecial() {
    const std::string hero = "Strength 9 Hits 4 Missle 4 Acid 3 Assass 4 Lightning 3 Trample 1 Medals 1;";
    const std::string stack =
        "Strength 5 Hits 3 Missle 3;Strength 6 Hits 2 Acid 3;Strength 5 Hits 4 Trample 2;"
        "Strength 7 Hits 3 Assass 3 Medals 1;Strength 6 Hits 3 Lightning 3;"
        "Strength 5 Hits 2 Poison 2 Leader 2;Strength 6 Hits 4 Disease 2 Warding 1";
    const std::string last = hero +
                             "Strength 8 Hits 4 Missle 2;Strength 9 Hits 4 Warding 2;Strength 8 Hits 4 Acid "
                             "4;Strength 8 Hits 4 Medals 2;Strength 8 Hits 3;" +
                             "Strength 9 Hits 3 Lightning 2;Strength 8 Hits 4 Trample 1";
    return {hero + stack + '/' + last + '/' + last + '/' + last,
            hero + stack + ";Strength 5 Hits 3 IsFlying Blessed;" + hero + stack +
                ";Strength 6 Hits 3 Missle 1 Medals 3;" + stack +
                ";Strength 6 Hits 2 Fortify 1 Banding 1 Size 1;Strength 4 Hits 4 Chaos 1 Acid 1;"
                "Strength 7 Hits 2 Fear 1;Strength 5 Hits 3 Siege 1;Strength 5 Hits 4 Morale 1;"
                "Strength 6 Hits 3;Strength 4 Hits 3 Curse 2 Medals 2",
            3};
}

double SecondsOf(const auto& work) {
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// The cost of a battle's exact odds beside that of one simulated battle, measured by turns. The ratio is
/// that of the shortest times.
void OddsAgainstABattle(benchmark::State& state, Lists (*lists)()) {
    test::QuietHost host;
    const Lists armies = lists();
    host.Bring(armies.Attackers, armies.Defenders);
    MBattleCalc::BattleStacks stacks;
    const MBattleCalc::Flyers flyers{host.Armies(), host.Heroes()};
    constexpr std::int32_t battles = 1'000;
    double battle = std::numeric_limits<double>::max();
    double odds = battle;
    double won = 0.0;
    std::int64_t steps = 0;
    for ([[maybe_unused]] auto iteration : state) {
        battle = std::min(
            battle, SecondsOf([&] { MBattleCalc::Add(host, battles, 20, false, armies.City); }) / battles);
        const double seconds = SecondsOf([&] {
            stacks.Build(host.AttackArmies(), host.DefendArmies());
            Odds::Budget budget{10'000'000};
            won = Odds::OddsOf(stacks, flyers, 20, armies.City, budget)->Won;
            steps = budget.Taken();
        });
        odds = std::min(odds, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["won"] = won;
    state.counters["steps"] = static_cast<double>(steps);
    state.counters["ns_per_battle"] = battle * 1e9;
    state.counters["ns_odds"] = odds * 1e9;
    state.counters["ratio"] = odds / battle;
}
// A fixed number of iterations, since the odds are but a small part of one.
BENCHMARK_CAPTURE(OddsAgainstABattle, ordinary_8_v_8, Ordinary)
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OddsAgainstABattle, every_special_32_v_32, EverySpecial)
    ->UseManualTime()
    ->Iterations(100)
    ->Unit(benchmark::kMicrosecond);

} // namespace
