// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Stacks.h"
#include "odds/StateTable.h"

#include <vector>

namespace vorhaven::Odds {

/// An army that waits for its turn to fight.
struct Entrant {
    /// Its powers, which no battle changes.
    CArmy Army;
    /// The states in which it may come to the front, whatever poison, disease and curse have done to it;
    /// their chances add up to 1. StartHits is 0 in all of them: it comes with the hits that it would regain.
    std::vector<State> States{};
    /// It opens a later attacking stack, which heals the defender in front.
    bool LeadsNewStack = false;
    /// A further attacking stack waits behind its own.
    bool StackBehind = false;
};

/// The armies of both sides in their order of fighting.
struct Lineup {
    std::vector<Entrant> Attackers;
    std::vector<Entrant> Defenders;
};

/// Evaluates the stacks as the engine does before a battle and lines their armies up. Raises error 5 when a
/// side has no army to send, error 6 when a sum does not fit.
[[nodiscard]] Lineup LineUp(const MBattleCalc::BattleStacks& stacks, Long cityLevel);

} // namespace vorhaven::Odds
