// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Dice.h"
#include "engine/MBattleCalc.h"
#include "odds/BattleOdds.h"
#include "tests/TestHost.h"

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

/// 32 against 32 with every special attack and stack power, medals, and all three afflictions on both sides.
Lists EverySpecial() {
    const std::string stack =
        "Strength 5 Hits 3 Missle 3;Strength 6 Hits 2 Acid 3;Strength 5 Hits 4 Trample 2;"
        "Strength 7 Hits 3 Assass 3 Medals 1;Strength 6 Hits 3 Lightning 3;"
        "Strength 5 Hits 2 Poison 2 Leader 2;Strength 6 Hits 4 Disease 2 Warding 1;"
        "Strength 4 Hits 3 Curse 2 Medals 2";
    return {
        stack + '/' + stack + '/' + stack + '/' + stack,
        stack + ";Strength 5 Hits 3 IsFlying Blessed;" + stack + ";Strength 6 Hits 3 Missle 1 Medals 3;" +
            stack +
            ";Strength 6 Hits 2 Fortify 1 Banding 1 Size 1;Strength 4 Hits 4 Chaos 1 Acid 1;"
            "Strength 7 Hits 2 Fear 1;Strength 5 Hits 3 Siege 1;Strength 5 Hits 4 Morale 1;Strength 6 Hits 3",
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
    test::TestHost host;
    const auto [attackers, defenders, cityLevel] = lists();
    // Clang 14 does not let a lambda see a structured binding.
    const Long city = cityLevel;
    host.Bring(attackers, defenders);
    MBattleCalc::BattleStacks stacks;
    const MBattleCalc::Flyers flyers{host.Armies(), host.Heroes()};
    const std::function<bool()> goOn = [end = Clock::now() + std::chrono::hours{1}] {
        return Clock::now() < end;
    };
    constexpr std::int32_t battles = 1'000;
    double battle = std::numeric_limits<double>::max();
    double odds = battle;
    double won = 0.0;
    for ([[maybe_unused]] auto iteration : state) {
        battle =
            std::min(battle, SecondsOf([&] { MBattleCalc::Add(host, battles, 20, false, city); }) / battles);
        const double seconds = SecondsOf([&] {
            stacks.Build(host.AttackArmies(), host.DefendArmies());
            won = Odds::OddsOf(stacks, flyers, 20, city, goOn)->Won;
        });
        odds = std::min(odds, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["won"] = won;
    state.counters["ns_per_battle"] = battle * 1e9;
    state.counters["ns_odds"] = odds * 1e9;
    state.counters["ratio"] = odds / battle;
}
BENCHMARK_CAPTURE(OddsAgainstABattle, ordinary_8_v_8, Ordinary)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OddsAgainstABattle, every_special_32_v_32, EverySpecial)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

} // namespace
