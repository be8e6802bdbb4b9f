// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/Setup.h"

#include "base/Conversion.h"

#include <algorithm>

namespace vorhaven {

bool Setup::IsSameBattle(const Setup& other) const {
    const auto isSameArmy = [](const SetupLine& a, const SetupLine& b) {
        return a.Entry.Datum == b.Entry.Datum && a.Health == b.Health;
    };
    for (std::size_t side = 0; side < Sides.size(); ++side)
        if (!std::ranges::equal(Sides[side], other.Sides[side], isSameArmy))
            return false;
    return Terrain == other.Terrain && CityLevel == other.CityLevel &&
           ToLong(CombatDice) == ToLong(other.CombatDice);
}

} // namespace vorhaven
