// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Rules.h"
#include "odds/StateTable.h"

#include <array>

namespace vorhaven::Odds {

/// The chances of combat rolls, by medals and strength.
class DiceOdds {
public:
    /// `dice`: faces of the combat die.
    explicit DiceOdds(Long dice);

    /// The chances that a roll misses and hits, at index 0 and 1.
    using Roll = std::array<double, 2>;
    [[nodiscard]] const Roll& Of(const Condition& fighter) const {
        return rolls_[fighter.Medals][fighter.Strength];
    }

private:
    std::array<std::array<Roll, decltype(CArmy::TotalStrength)::Max + 1>, MBattleCalc::FacesByMedals.size()>
        rolls_{};
};

} // namespace vorhaven::Odds
