// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/Bare.h"
#include "bench/CpuTime.h"
#include "engine/Dice.h"
#include "engine/MBattleCalc.h"
#include "tests/support/QuietHost.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string>

namespace {

using namespace vorhaven;
using bench::Least;
using bench::SecondsOf;

std::size_t allocations = 0;

/// The process's kind of generator, counting what is drawn from it.
class CountingGenerator final : public MBattleCalc::UniformSource {
public:
    [[nodiscard]] std::uint32_t Draw() override {
        ++Draws;
        return generator_.Draw();
    }
    std::int64_t Draws = 0;

private:
    MBattleCalc::TimedGenerator generator_{1};
};

struct Lists {
    std::string Attackers;
    std::string Defenders;
    /// Armies a side and the hits of each, for armies that bare::Fight can fight; no armies for others.
    int Armies = 0;
    int Hits = 0;
};

/// A text, `count` times over, with a separator in between.
std::string Repeated(const std::string& text, int count, char separator) {
    std::string all = text;
    for (int i = 1; i < count; ++i)
        all += separator + text;
    return all;
}

Lists Plain(int armies, int hits) {
    const std::string army = "Strength 5 Hits " + std::to_string(hits);
    const std::string stack = Repeated(army, std::min(armies, LinesPerStack), ';');
    return {Repeated(stack, std::max(1, armies / LinesPerStack), '/'), Repeated(army, armies, ';'), armies,
            hits};
}

/// Every special attack, stack power and affliction on both sides, and armies of every number of medals.
Lists EverySpecial() {
    const std::string armies =
        "Strength 5 Hits 2 Missle 3 Medals 1;Strength 5 Hits 2 Acid 3 Chaos 1;"
        "Strength 5 Hits 2 Assass 2 Medals 2;Strength 5 Hits 2 Trample 1 Fear 1;"
        "Strength 5 Hits 2 Lightning 3 Morale 1;Strength 5 Hits 2 Poison 2 Leader 1 Medals 3;";
    return {armies + "Strength 5 Hits 2 Disease 2 Siege 1;Strength 5 Hits 2 Curse 2 Warding 1 Medals 4",
            armies + "Strength 5 Hits 2 Missle 1 Fortify 1;Strength 5 Hits 2 Acid 1 Warding 2 Medals 4"};
}

double DrawsPerBattle(test::QuietHost& host) {
    constexpr std::int32_t battles = 100'000;
    CountingGenerator counting;
    MBattleCalc::DrawFrom(counting);
    MBattleCalc::Add(host, battles, 20, false, 0);
    MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator());
    return static_cast<double>(counting.Draws) / battles;
}

/// A run of a thousand battles as the product fights it, beside bare draws and, where there are any,
/// the same bare duels. All are measured by turns, and the shortest time of each counts.
void Battle(benchmark::State& state, const Lists& lists) {
    test::QuietHost host;
    host.Bring(lists.Attackers, lists.Defenders);
    constexpr std::int32_t battles = 1'000;
    const double drawsPerBattle = DrawsPerBattle(host);
    constexpr std::int64_t draws = 100'000;
    bare::Generator generator;
    Least battle;
    Least draw;
    Least bareBattle;
    const auto drawBare = [&] {
        for (std::int64_t i = 0; i < draws; ++i)
            benchmark::DoNotOptimize(generator.Draw());
    };
    const auto fightBare = [&] {
        for (std::int32_t i = 0; i < battles; ++i)
            benchmark::DoNotOptimize(bare::Fight(generator, lists.Armies, lists.Hits));
    };
    for ([[maybe_unused]] auto iteration : state) {
        const double seconds = SecondsOf([&] { MBattleCalc::Add(host, battles, 20, false, 0); }) / battles;
        state.SetIterationTime(seconds);
        battle.Take(seconds);
        draw.Take(SecondsOf(drawBare) / draws);
        if (lists.Armies > 0)
            bareBattle.Take(SecondsOf(fightBare) / battles);
    }
    const double drawsOfBattle = drawsPerBattle * draw.Value();
    state.counters["draws"] = drawsPerBattle;
    state.counters["ns_battle"] = battle.Value() * 1e9;
    state.counters["ns_draw"] = draw.Value() * 1e9;
    state.counters["ratio"] = battle.Value() / drawsOfBattle;
    if (lists.Armies > 0)
        state.counters["floor"] = bareBattle.Value() / drawsOfBattle;
}
BENCHMARK_CAPTURE(Battle, two_hit_8_v_8, Plain(8, 2))->UseManualTime()->Iterations(400);
BENCHMARK_CAPTURE(Battle, every_special_8_v_8, EverySpecial())->UseManualTime()->Iterations(400);
BENCHMARK_CAPTURE(Battle, two_hit_32_v_32, Plain(32, 2))->UseManualTime()->Iterations(100);
BENCHMARK_CAPTURE(Battle, one_hit_1_v_1, Plain(1, 1))->UseManualTime()->Iterations(2'000);

/// The cost of a battle in a run of a million beside its cost in a thousand runs of a thousand.
void LongRun(benchmark::State& state) {
    test::QuietHost host;
    const Lists lists = Plain(8, 2);
    host.Bring(lists.Attackers, lists.Defenders);
    Least longRun;
    Least shortRuns;
    for ([[maybe_unused]] auto iteration : state) {
        const double seconds = SecondsOf([&] { MBattleCalc::Add(host, 1'000'000, 20, false, 0); });
        state.SetIterationTime(seconds);
        longRun.Take(seconds);
        shortRuns.Take(SecondsOf([&] {
            for (int run = 0; run < 1'000; ++run)
                MBattleCalc::Add(host, 1'000, 20, false, 0);
        }));
    }
    state.counters["ratio"] = longRun.Value() / shortRuns.Value();
}
BENCHMARK(LongRun)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

/// What a long run allocates beyond a run of a hundred battles: nothing.
void Allocations(benchmark::State& state) {
    test::QuietHost host;
    const Lists lists = Plain(8, 2);
    host.Bring(lists.Attackers, lists.Defenders);
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
    state.counters["per_battle"] = extra / 9'900;
}
BENCHMARK(Allocations)->Iterations(3)->Unit(benchmark::kMillisecond);

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
