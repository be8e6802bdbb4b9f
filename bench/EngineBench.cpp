// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Dice.h"
#include "engine/MBattleCalc.h"
#include "tests/support/QuietHost.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <new>
#include <random>

namespace {

using namespace vorhaven;
using Clock = std::chrono::steady_clock;

std::size_t allocations = 0;

std::uint64_t FixedTimer() {
    return 0;
}

std::uint64_t FineTimer() {
    return static_cast<std::uint64_t>(Clock::now().time_since_epoch().count());
}

/// The process's kind of generator, counting what is drawn from it.
class CountingGenerator final : public MBattleCalc::UniformSource {
public:
    [[nodiscard]] float Draw() override {
        ++Draws;
        return generator_.Draw();
    }
    std::int64_t Draws = 0;

private:
    MBattleCalc::TimedGenerator generator_{1};
};

void FillTwoHitArmies(test::QuietHost& host) {
    for (Long line = 0; line < LinesPerStack; ++line)
        for (CArmy* army : {&host.BringAttacker(line), &host.BringDefender()})
            test::Give(*army, "Strength 5 Hits 2");
}

double SecondsOf(const auto& work) {
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// The cost of 8 against 8 two-hit armies beside the bare cost of the draws that they make: as many rolls of
/// the same die, re-seed included. Both are measured by turns within each iteration, so the machine's noise
/// meets both.
void BattleAgainstItsDraws(benchmark::State& state, MBattleCalc::Timer timer) {
    test::QuietHost host;
    FillTwoHitArmies(host);
    const Long battles = static_cast<std::int32_t>(state.range(0));

    CountingGenerator counting;
    MBattleCalc::DrawFrom(counting);
    MBattleCalc::Add(host, battles, 20, false, 0);
    const double drawsPerBattle = static_cast<double>(counting.Draws) / battles.Value();

    MBattleCalc::TimedGenerator generator{1, timer};
    MBattleCalc::DrawFrom(generator);
    const auto drawsPerRun = counting.Draws;
    double battleSeconds = 0.0;
    double drawSeconds = 0.0;
    for ([[maybe_unused]] auto iteration : state) {
        const double seconds = SecondsOf([&] { MBattleCalc::Add(host, battles, 20, false, 0); });
        drawSeconds += SecondsOf([&] {
            for (std::int64_t draw = 0; draw < drawsPerRun; ++draw)
                benchmark::DoNotOptimize(MBattleCalc::CombatDiceRoll(0));
        });
        battleSeconds += seconds;
        state.SetIterationTime(seconds);
    }
    MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator());
    const double fought = static_cast<double>(state.iterations()) * battles.Value();
    state.counters["ns_per_battle"] = battleSeconds / fought * 1e9;
    state.counters["draws_per_battle"] = drawsPerBattle;
    state.counters["ns_per_draw"] = drawSeconds / (fought * drawsPerBattle) * 1e9;
    state.counters["ratio"] = battleSeconds / drawSeconds;
}
BENCHMARK_CAPTURE(BattleAgainstItsDraws, coarse_clock, MBattleCalc::SystemTimer)
    ->Arg(1'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BattleAgainstItsDraws, fine_clock, FineTimer)
    ->Arg(100'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// What a long run allocates beyond a run of a hundred battles: nothing.
void AllocationsOfALongRun(benchmark::State& state) {
    test::QuietHost host;
    FillTwoHitArmies(host);
    const auto allocationsOf = [&](std::int32_t battles) {
        const std::size_t before = allocations;
        MBattleCalc::Add(host, battles, 20, false, 0);
        return static_cast<double>(allocations - before);
    };
    allocationsOf(100);
    double extra = 0.0;
    // Both runs show their progress a hundred times, and results of a few digits.
    for ([[maybe_unused]] auto iteration : state)
        extra = allocationsOf(10'000) - allocationsOf(100);
    state.counters["allocations_in_9900_battles"] = extra;
}
BENCHMARK(AllocationsOfALongRun)->Iterations(3)->Unit(benchmark::kMillisecond);

// The choice of generator and clock.

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

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc{};
}

#if defined(__GNUC__) && !defined(__clang__)
// The compiler sees the allocation of the operator above inlined and takes the pair for a mismatch.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

BENCHMARK_MAIN();
