// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Rules.h"
#include "engine/Stacks.h"
#include "odds/Budget.h"
#include "odds/DiceOdds.h"
#include "odds/StateTable.h"

namespace vorhaven::Odds {

/// The duels of an attacker with a defender, whatever condition the two are in. The survivors' states and the
/// chance of a duel without end add up over the duels.
class DuelOdds {
public:
    /// The arguments must outlive the duels. Raises error 6 when the force of a special attack does not fit.
    DuelOdds(const CArmy& attacker, const CArmy& defender, const DiceOdds& dice,
             const MBattleCalc::Flyers& flyers, PerSide<StateTable>& survivors, Budget& budget);

    /// The duel between two states, which comes with the product of their chances. Throws TooManyOutcomes
    /// when the budget does not cover it.
    void Fight(const PerSide<State>& fighters) { Acid(fighters); }

    [[nodiscard]] double Endless() const { return endless_; }

private:
    // The stages of a duel, each of which goes on to the next.
    void Acid(PerSide<State> fighters);
    void Lightning(PerSide<State> fighters);
    void Assassins(PerSide<State> fighters);
    void Volley(PerSide<State> fighters);
    void Rounds(const PerSide<State>& fighters);

    [[nodiscard]] double RoundChance(const PerSide<State>& fighters, MBattleCalc::Loser loser) const;
    /// Slays the other army with a chance.
    void Win(Side side, const PerSide<State>& fighters, double chance);

    PerSide<const CArmy*> armies_;
    const DiceOdds* dice_;
    const MBattleCalc::Flyers* flyers_;
    PerSide<StateTable>* survivors_;
    Budget* budget_;
    MBattleCalc::Strike acid_;
    MBattleCalc::Strike lightning_;
    MBattleCalc::Strike assass_;
    double endless_ = 0.0;
};

} // namespace vorhaven::Odds
