// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/DiceOdds.h"

namespace vorhaven::Odds {
namespace {

using MBattleCalc::MedalFaces;

DiceOdds::Roll RollOf(Long faces, Long strength) {
    if (faces <= strength)
        return {0.0, 1.0};
    const double hit = static_cast<double>(strength.Value()) / faces.Value();
    return {1.0 - hit, hit};
}

} // namespace

DiceOdds::DiceOdds(Long dice) {
    for (std::int32_t medals = 0; medals < SizeOf(rolls_); ++medals)
        for (std::int32_t strength = 1; strength < SizeOf(rolls_[0]); ++strength) {
            Roll& roll = rolls_[static_cast<std::size_t>(medals)][static_cast<std::size_t>(strength)];
            roll = RollOf(dice, strength);
            if (MedalFaces(medals) == 0)
                continue;
            const auto [miss, hit] = RollOf(MedalFaces(medals), strength);
            roll = {roll[0] * miss, roll[1] + roll[0] * hit};
        }
}

} // namespace vorhaven::Odds
