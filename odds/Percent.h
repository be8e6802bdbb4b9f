// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Rules.h"

#include <algorithm>

namespace vorhaven::Odds {

/// The chance that a percentage draw is below a number.
[[nodiscard]] inline double PercentChance(Long below) {
    return std::clamp(below.Value(), 0, MBattleCalc::PercentFaces) /
           static_cast<double>(MBattleCalc::PercentFaces);
}

} // namespace vorhaven::Odds
