// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CArmy.h"
#include "model/Catalogue.h"

#include <cstdint>
#include <limits>

// The numbers that a catalogue may hold: those that make a difference to the rules.
namespace vorhaven {

/// Whole numbers, with both ends.
struct Range {
    std::int32_t Lowest;
    std::int32_t Highest;

    [[nodiscard]] constexpr bool Holds(Long number) const { return number >= Lowest && number <= Highest; }
};

template <class Number>
inline constexpr Range RangeOf{std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max()};

inline constexpr Range AnyNumber = RangeOf<std::int32_t>;
/// The power names are looked up by 16 bits.
inline constexpr Range PowerCodes = RangeOf<std::int16_t>;

using Strength = decltype(CArmy::TotalStrength);
using Hits = decltype(CArmy::Hits);
inline constexpr Range Strengths{Strength::Min, Strength::Max};
inline constexpr Range HitPoints{Hits::Min, Hits::Max};
/// As much as takes the weakest army to the strongest one, or back.
inline constexpr Range Bonuses{Strength::Min - Strength::Max, Strength::Max - Strength::Min};
/// The rules set no limit; this one lets the losses of a great many battles be added up.
inline constexpr Range ProductionTurns{0, 99};

/// The sizes of a power; those of power 0, which is none, and of the codes that are no power too.
[[nodiscard]] constexpr Range SizesOf(PowerType power) {
    using enum PowerType;
    switch (power) {
    case Chaos:
    case Morale:
    case Fear:
    case Siege:
    case Fortify:
        return {0, 5}; // A stack's count as 5 at most.
    case Trample:
        return {0, Hits::Max - 1}; // It comes on top of the 1 hit that a round costs.
    case Banding:
        return {0, Bonuses.Highest};
    case Poison:
    case Disease:
    case Curse:
        return {0, 25}; // Here they are certain: 4 chances in 99 for each point.
    case Acid:
    case Lightning:
    case Assass:
    case Missle:
    case Warding:
        break; // The difference between two armies counts, so no size is like all above it.
    }
    return {0, power == PowerType{0} ? 0 : 99};
}

} // namespace vorhaven
