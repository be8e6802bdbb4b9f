// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Dice.h"

#include "engine/Rules.h"
#include "engine/State.h"

#include <chrono>
#include <cmath>
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
    [[nodiscard]] float Draw() override { return values_.Draw(ReadTimer()); }

private:
    SplitMix64 values_{Entropy()};
};

/// Seeded once, at the program's start: a generator that is made at its first use would be asked for at every
/// draw.
SystemGenerator process;

/// What is drawn from instead of the process's generator, in tests; null otherwise.
UniformSource* replacement = nullptr;

float Draw() {
    if (replacement != nullptr) [[unlikely]]
        return replacement->Draw();
    // Called directly: a call through the interface costs as much as the generator itself.
    return process.Draw();
}

Long Roll(Long faces) {
    const double value = static_cast<double>(Draw()) * faces.Value() + 1.0;
    // The largest whole number that is not above the value. Only a die with a negative number of faces needs
    // more than the plain conversion, and a call to std::floor costs as much as a draw.
    return static_cast<std::int32_t>(faces < 0 ? std::floor(value) : value);
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
    return Roll(faces != 0 ? faces : CombatDice);
}

Long RandomPercentNum() {
    return static_cast<std::int32_t>(static_cast<double>(Draw()) * PercentFaces);
}

Long GetCombatRoll(Long medals) {
    const Long roll = CombatDiceRoll(0);
    const Long medalFaces = MedalFaces(medals);
    if (medalFaces == 0)
        return roll;
    const Long second = CombatDiceRoll(medalFaces);
    return second < roll ? second : roll;
}

} // namespace vorhaven::MBattleCalc
