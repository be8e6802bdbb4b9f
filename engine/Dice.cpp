// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Dice.h"

#include "engine/Rules.h"
#include "engine/State.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <random>

namespace vorhaven::MBattleCalc {
namespace {

inline std::uint64_t ReadTimer() {
#if defined(CLOCK_MONOTONIC_COARSE) && !defined(VORHAVEN_PORTABLE)
    std::timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U + static_cast<std::uint64_t>(now.tv_nsec);
#else
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::nanoseconds{now}.count());
#endif
}

std::uint64_t Entropy() {
    std::random_device entropy;
    const std::uint64_t upper = entropy();
    return upper << 32U | entropy();
}

/// The generator of the process, whose timer is known to the compiler.
class SystemGenerator final : public UniformSource {
public:
    [[nodiscard]] std::uint32_t Draw() override { return values_.Draw(ReadTimer()); }

private:
    SplitMix64 values_{Entropy()};
};

/// Seeded once, at the program's start: a generator that is made at its first use would be asked for at every
/// draw.
SystemGenerator process;

/// What is drawn from instead of the process's generator, in tests; null otherwise.
UniformSource* replacement = nullptr;

std::uint32_t Draw() {
    if (replacement != nullptr) [[unlikely]]
        return replacement->Draw();
    // Called directly: a call through the interface costs as much as the generator itself.
    return process.Draw();
}

/// One draw times `faces`, rounded down: 0 to `faces` - 1. In integers, which has less latency than double
/// precision; the mispredicted branch at the end of a duel waits for it. Both give the same for all dice of
/// up to 2^28 faces.
std::int32_t DrawBelow(Long faces) {
    return static_cast<std::int32_t>(std::int64_t{Draw()} * faces.Value() >> UniformBits);
}

} // namespace

std::uint64_t SystemTimer() {
    return ReadTimer();
}

UniformSource& ProcessGenerator() {
    return process;
}

void DrawFrom(UniformSource& source) {
    replacement = &source == &process ? nullptr : &source;
}

Long CombatDiceRoll(Long faces) {
    return DrawBelow(faces != 0 ? faces : CombatDice) + 1;
}

Long RandomPercentNum() {
    return DrawBelow(PercentFaces);
}

Long GetCombatRoll(Long medals) {
    const Long roll = CombatDiceRoll(0);
    const Long medalFaces = MedalFaces(medals);
    if (medalFaces == 0)
        return roll;
    const Long second = CombatDiceRoll(medalFaces);
    // Not by a branch, which would be mispredicted: the lower roll is a matter of chance.
    return std::min(roll.Value(), second.Value());
}

} // namespace vorhaven::MBattleCalc
