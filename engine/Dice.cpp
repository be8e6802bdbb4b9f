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

UniformSource* currentSource = nullptr;

float Draw() {
    if (currentSource == nullptr) [[unlikely]]
        currentSource = &ProcessGenerator();
    return currentSource->Draw();
}

/// The largest whole number that is not above a value. Only a die with a negative number of faces needs more
/// than the plain conversion, and a call to std::floor costs as much as a draw.
Long Floor(double value) {
    if (value < 0.0) [[unlikely]]
        value = std::floor(value);
    return static_cast<std::int32_t>(value);
}

Long Roll(Long faces) {
    return Floor(static_cast<double>(Draw()) * faces.Value() + 1.0);
}

} // namespace

std::uint64_t SystemTimer() {
#if defined(CLOCK_MONOTONIC_COARSE) && !defined(VORHAVEN_PORTABLE)
    std::timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U + static_cast<std::uint64_t>(now.tv_nsec);
#else
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::nanoseconds{now}.count());
#endif
}

UniformSource& ProcessGenerator() {
    static TimedGenerator generator = [] {
        std::random_device entropy;
        const std::uint64_t upper = entropy();
        return TimedGenerator{upper << 32U | entropy()};
    }();
    return generator;
}

void DrawFrom(UniformSource& source) {
    currentSource = &source;
}

Long CombatDiceRoll(Long faces) {
    return Roll(faces != 0 ? faces : CombatDice);
}

Long RandomPercentNum() {
    return Floor(static_cast<double>(Draw()) * PercentFaces);
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
