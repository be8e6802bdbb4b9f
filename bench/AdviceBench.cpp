// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/CpuTime.h"
#include "catalogue/CsvCatalogue.h"
#include "model/Terrain.h"
#include "ui/advice/Changes.h"
#include "ui/advice/FewestArmies.h"
#include "ui/advice/Orders.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <set>

// What advice costs, as a ratio to the odds of the same battle, over random picks from the built-in
// catalogue.
namespace {

using namespace vorhaven;

/// 8 against 8 in a castle, of army types without conditions.
Setup RandomBattle(const Units& units, std::mt19937& random) {
    Setup setup;
    for (const Side side : BothSides)
        for (std::int32_t line = 0; line < LinesPerStack; ++line) {
            const Long unit = static_cast<std::int32_t>(random() % units.NumArmies().Index());
            setup.Sides[side].push_back({unit, units.Name(unit)});
        }
    setup.ChooseTerrain(Terrains::City);
    setup.CityLevel = 2;
    setup.CombatDice = 20;
    return setup;
}

/// How many attackers differ.
std::size_t Kinds(const Setup& setup) {
    std::set<std::int32_t> units;
    for (const SetupLine& line : setup.Sides.Attacker)
        units.insert(line.Unit.Value());
    return units.size();
}

void Finish(Study& study) {
    while (!study.IsDone() && !study.HasGivenUp())
        study.GoOn(100'000);
}

/// The least time of a study over the least time of the odds, by turns.
double RatioOf(const auto& makeStudy, const Setup& setup, const Units& units) {
    const MBattleCalc::BattleStacks stacks = StacksOf(setup, units);
    const MBattleCalc::Flyers flyers{units.Armies(), units.Heroes()};
    bench::Least odds;
    bench::Least studied;
    for (int turn = 0; turn < 3; ++turn) {
        for (int repeat = 0; repeat < 10; ++repeat)
            odds.Take(bench::SecondsOf([&] {
                Odds::Budget budget{Study::StepsOfABattle};
                benchmark::DoNotOptimize(
                    Odds::OddsOf(stacks, flyers, setup.CombatDice, setup.CityLevel, budget));
            }));
        studied.Take(bench::SecondsOf([&] {
            auto study = makeStudy(setup, units);
            Finish(study);
        }));
    }
    return studied.Value() / odds.Value();
}

/// Ratios over battles in which at least so many attackers differ.
void Advice(benchmark::State& state, const auto& makeStudy, std::size_t leastKinds) {
    const CsvCatalogue catalogue = CsvCatalogue::BuiltIn();
    const Units units{catalogue};
    std::mt19937 random{18};
    std::vector<double> ratios;
    for ([[maybe_unused]] auto iteration : state) {
        Setup setup;
        do
            setup = RandomBattle(units, random);
        while (Kinds(setup) < leastKinds);
        ratios.push_back(RatioOf(makeStudy, setup, units));
    }
    std::ranges::sort(ratios);
    state.counters["median"] = ratios[ratios.size() / 2];
    state.counters["least"] = ratios.front();
    state.counters["most"] = ratios.back();
}

constexpr auto Orders = [](const Setup& setup, const Units& units) { return OrdersStudy{setup, units, 0}; };
constexpr auto Changes = [](const Setup& setup, const Units& units) { return ChangesStudy{setup, units}; };
constexpr auto Parts = [](const Setup& setup, const Units& units) { return FewestArmiesStudy{setup, units}; };

BENCHMARK_CAPTURE(Advice, all_orders_of_random_picks, Orders, 0)->Iterations(100);
BENCHMARK_CAPTURE(Advice, all_orders_where_all_differ, Orders, 8)->Iterations(100);
BENCHMARK_CAPTURE(Advice, single_changes, Changes, 0)->Iterations(100);
BENCHMARK_CAPTURE(Advice, all_parts, Parts, 0)->Iterations(100);

} // namespace
