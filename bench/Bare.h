// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstdint>
#include <ctime>

// The yardstick of the engine's benchmarks: the same dice and duels without the engine. Nothing here shares
// code with the product, so that no change of the product moves it.
namespace vorhaven::bare {

/// SplitMix64, re-seeded from the coarse clock before every draw.
class Generator {
public:
    std::uint64_t Draw() {
        std::timespec now{};
        clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
        state_ = (state_ ^ (static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U +
                            static_cast<std::uint64_t>(now.tv_nsec))) +
                 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31U);
    }

    /// One roll of a die of 20 faces.
    std::int32_t Roll() { return static_cast<std::int32_t>((Draw() >> 40U) * 20U >> 24U) + 1; }

private:
    std::uint64_t state_ = 1;
};

/// A battle between sides of as many equal armies of strength 5, at most 32, without any power; returns the
/// number of defenders left. What such a battle costs at least.
inline int Fight(Generator& generator, int armies, int hits) {
    struct Army {
        std::int32_t Strength;
        std::int32_t Hits;
    };
    std::array<Army, 32> attack{};
    std::array<Army, 32> defend{};
    attack.fill({5, hits});
    defend.fill({5, hits});
    int attackers = armies;
    int defenders = armies;
    while (attackers > 0 && defenders > 0) {
        Army& attacker = attack[static_cast<std::size_t>(attackers - 1)];
        Army& defender = defend[static_cast<std::size_t>(defenders - 1)];
        while (attacker.Hits > 0 && defender.Hits > 0) {
            const bool attackerHits = generator.Roll() <= attacker.Strength;
            const bool defenderHits = generator.Roll() <= defender.Strength;
            attacker.Hits -= static_cast<std::int32_t>(defenderHits && !attackerHits);
            defender.Hits -= static_cast<std::int32_t>(attackerHits && !defenderHits);
        }
        if (attacker.Hits <= 0) {
            --attackers;
            // The next stack meets a rested defender.
            if (attackers % 8 == 0)
                defender.Hits = hits;
        } else {
            --defenders;
        }
    }
    return defenders;
}

} // namespace vorhaven::bare
