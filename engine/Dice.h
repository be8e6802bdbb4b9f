// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"

#include <cstdint>

namespace vorhaven::MBattleCalc {

/// Bits of a uniform value: the finest even steps of [0, 1) that single precision can hold.
inline constexpr int UniformBits = 24;

/// Where the engine's chance comes from.
class UniformSource {
public:
    UniformSource() = default;
    virtual ~UniformSource() = default;
    UniformSource(const UniformSource&) = delete;
    UniformSource& operator=(const UniformSource&) = delete;

    /// One draw: re-seeds from the system timer, then takes the next uniform value in [0, 1), counted in
    /// units of 2^-UniformBits.
    [[nodiscard]] virtual std::uint32_t Draw() = 0;
};

/// A timer's reading; only its change from draw to draw matters.
using Timer = std::uint64_t (*)();

/// The system timer, in nanoseconds, at the resolution of the kernel's tick where there is such a clock: the
/// cheapest there is (bench/ compares them).
[[nodiscard]] std::uint64_t SystemTimer();

/// Uniform values by the SplitMix64 generator (Steele, Lea and Flood, "Fast splittable pseudorandom number
/// generators", 2014). A re-seed mixes a timer's reading into the state and so never restarts the sequence.
class SplitMix64 {
public:
    explicit SplitMix64(std::uint64_t seed) : state_(seed) {}

    /// Re-seeds and takes the next uniform value, the upper bits of the generator's output.
    [[nodiscard]] std::uint32_t Draw(std::uint64_t reading) {
        state_ = (state_ ^ reading) + 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        // The generator's last step, z ^ (z >> 31), leaves the upper bits as they are.
        return static_cast<std::uint32_t>(z >> (64 - UniformBits));
    }

private:
    std::uint64_t state_;
};

/// The generator over a timer of one's choice.
class TimedGenerator final : public UniformSource {
public:
    explicit TimedGenerator(std::uint64_t seed, Timer timer = SystemTimer) : values_(seed), timer_(timer) {}

    [[nodiscard]] std::uint32_t Draw() override { return values_.Draw(timer_()); }

private:
    SplitMix64 values_;
    Timer timer_;
};

/// The generator of this process, seeded once from the operating system's entropy.
[[nodiscard]] UniformSource& ProcessGenerator();

/// Makes all dice draw from `source` from now on, which must stay alive as long. The process's own generator
/// is in use until the first call.
void DrawFrom(UniformSource& source);

// None of the dice can fail, so none of them traps errors; they are the inner loop of every battle.

/// One roll of a die: 1 to `faces`; 0 faces mean the run's combat die.
[[nodiscard]] Long CombatDiceRoll(Long faces);

/// One percentage draw: 0 to 98, so that a test `draw < p` succeeds p times in 99.
[[nodiscard]] Long RandomPercentNum();

/// A combat roll, the better (lower) of the combat die and the medals' die: 30, 26, 22 or 18 faces for 1 to 4
/// medals, no second die for any other number.
[[nodiscard]] Long GetCombatRoll(Long medals);

} // namespace vorhaven::MBattleCalc
