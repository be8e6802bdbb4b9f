// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace vorhaven::Odds {

/// The chances that of an attacker and a defender the one slays the other, over all battles, those without
/// end too.
struct Slaying {
    double ByAttacker = 0.0;
    double ByDefender = 0.0;
};

} // namespace vorhaven::Odds
