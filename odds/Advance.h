// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "odds/Budget.h"
#include "odds/DiceOdds.h"
#include "odds/Lineup.h"
#include "odds/Slaying.h"

#include <vector>

namespace vorhaven::Odds {

/// The states of the defender in front when an attacker comes, by defender in order of fighting.
using Fronts = std::vector<StateTable>;

/// Gives the defender in front its start hits back, as an attacker that leads a new stack does.
void Heal(Fronts& fronts, const Entrant& leader);

/// A battle from an attacker's coming to the front until it falls or has slain all defenders. Only the two
/// armies in front are ever touched, and after a duel one of them is fresh: what came before is in the state
/// of the other.
class Advance {
public:
    /// The arguments but `dice` must outlive the advances.
    Advance(const std::vector<Entrant>& defenders, const MBattleCalc::Flyers& flyers, Long dice,
            Budget& budget)
        : defenders_(&defenders), flyers_(&flyers), dice_(dice), budget_(&budget) {}

    /// The fronts at the beginning of a battle: the first defender is fresh.
    [[nodiscard]] Fronts AtFirst(const Entrant& attacker) const;

    struct Outcome {
        /// The chance that the attacker slays all defenders, and that one of its duels never ends.
        double Won = 0.0;
        double Endless = 0.0;
        /// By defender in order of fighting.
        std::vector<Slaying> Slayings;
    };

    /// Sends an attacker against the fronts, which become those that it leaves behind when it falls. Throws
    /// TooManyOutcomes when the budget does not cover it; raises what the engine may raise in a duel.
    Outcome Send(const Entrant& attacker, Fronts& fronts);

    /// What the duels of an attacker with one defender, of whom one is fresh, leave of both.
    struct Meeting {
        const PerSide<StateTable>& Survivors;
        double Endless;
    };
    /// The states of the attacker, and of the defender, as survivors of their last duels.
    Meeting Meet(const Entrant& attacker, std::size_t defender, const StateTable& attackers,
                 const StateTable& front);

private:
    const std::vector<Entrant>* defenders_;
    const MBattleCalc::Flyers* flyers_;
    DiceOdds dice_;
    Budget* budget_;
    /// The attacker as survivor of its last duel, and both as survivors of the present one.
    StateTable attackers_;
    PerSide<StateTable> survivors_;
};

} // namespace vorhaven::Odds
