// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Rules.h"
#include "engine/Stacks.h"
#include "odds/StateTable.h"

#include <array>
#include <functional>

namespace vorhaven::Odds {

using MBattleCalc::Side;

/// One item for each side.
template <class Item>
struct PerSide {
    Item Attacker;
    Item Defender;

    [[nodiscard]] Item& operator[](Side side) { return side == Side::Attacker ? Attacker : Defender; }
    [[nodiscard]] const Item& operator[](Side side) const {
        return side == Side::Attacker ? Attacker : Defender;
    }
};

/// The chance that a percentage draw is below a number.
[[nodiscard]] double PercentChance(Long below);

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
    std::array<std::array<Roll, 15>, 5> rolls_{};
};

/// What may still be spent on the odds.
class Budget {
public:
    /// `goOn` must outlive the budget.
    explicit Budget(const std::function<bool()>& goOn) : goOn_(&goOn) {}

    /// Takes one step, a microsecond at most; returns false when no more may be taken.
    [[nodiscard]] bool Step() {
        constexpr unsigned stepsPerQuestion = 64;
        if (!exhausted_ && ++steps_ % stepsPerQuestion == 0)
            exhausted_ = !(*goOn_)();
        return !exhausted_;
    }
    void Exhaust() { exhausted_ = true; }
    [[nodiscard]] bool Exhausted() const { return exhausted_; }

private:
    const std::function<bool()>* goOn_;
    unsigned steps_ = 0;
    bool exhausted_ = false;
};

/// The duels of an attacker with a defender, whatever condition the two are in. The survivors' states and the
/// chance of a duel without end add up over the duels.
class DuelOdds {
public:
    /// The arguments must outlive the duels. Raises error 6 when the force of a special attack does not fit.
    DuelOdds(const CArmy& attacker, const CArmy& defender, const DiceOdds& dice,
             const MBattleCalc::Flyers& flyers, PerSide<StateTable>& survivors, Budget& budget);

    /// The duel between two states, which comes with the product of their chances. What the budget does not
    /// cover is left out.
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
