// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Dice.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <random>

// The choice of generator and clock.
namespace {

using namespace vorhaven;

std::uint64_t FixedTimer() {
    return 0;
}

std::uint64_t FineTimer() {
    return static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
}

void DrawWith(benchmark::State& state, MBattleCalc::Timer timer) {
    MBattleCalc::TimedGenerator generator{1, timer};
    MBattleCalc::UniformSource& source = generator;
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(source.Draw());
}
BENCHMARK_CAPTURE(DrawWith, no_clock, FixedTimer);
BENCHMARK_CAPTURE(DrawWith, coarse_clock, MBattleCalc::SystemTimer);
BENCHMARK_CAPTURE(DrawWith, fine_clock, FineTimer);

void DrawWithMersenneTwister(benchmark::State& state) {
    std::mt19937_64 generator{1};
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(generator() ^ MBattleCalc::SystemTimer());
}
BENCHMARK(DrawWithMersenneTwister);

} // namespace
