// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/KeyedCollection.h"
#include "model/CArmy.h"
#include "model/Side.h"

#include <string_view>
#include <vector>

namespace vorhaven {

/// One stack of armies in a battle: its own copies of army records, and the values that hold for the whole
/// stack.
class CStackAtt {
public:
    // The highest value among the armies.
    Long StackChaos;
    Long StackMorale;
    Long StackLeadership;
    Long StackFear;
    Long StackSiege;
    /// Of the defending stack also what its city gives.
    Long StackFortify;
    // The sums over the armies.
    Long StackPoison;
    Long StackDisease;
    Long StackCurse;
    /// Strength that every army of the stack gains.
    Bounded<-3, 5> TotalStackBonus;

    /// Stores a copy of an army, under a key unless the key is empty, and returns the copy. Its properties
    /// are written anew, so a blank record's hits and strengths become 1. It comes without the blacksmith's
    /// and weaponsmaster's marks (its values have them already) and without anything that belongs to one
    /// battle. Raises error 457 when the key is taken.
    CArmy& Add(const CArmy& army, std::string_view sKey);

    /// The army at a 1-based position or with a key; raises error 5 when there is none.
    [[nodiscard]] CArmy& Item(Long position) { return armies_.Item(position); }
    [[nodiscard]] CArmy& Item(std::string_view key) { return armies_.Item(key); }

    [[nodiscard]] Long Count() const { return armies_.Count(); }

    /// Removes the army at a 1-based position or with a key; raises error 5 when there is none.
    void Remove(Long position);
    void Remove(std::string_view key);

    /// Makes this a new, empty stack; its storage is kept.
    void Clear();

    /// Makes this a new stack with copies of another's armies, in their order, as Add without keys makes
    /// them. A stack that is filled again with no more armies than before allocates nothing.
    void CopyFrom(const CStackAtt& master);

    /// Finds the stack's own highest values and sums, and gives banding armies their strength. The sums and
    /// the banding add to what is there, so it is called once for a filled stack. `fortification`: what the
    /// city gives to a defending stack, 0 to 3; an attacking stack ignores it. Raises error 6 when a sum does
    /// not fit.
    void CountSelfPowers(Side side, Long fortification);

    /// The strength that banding gives an army of this stack, by the bands that CountSelfPowers has counted:
    /// the size of the first army of its name that bands, or the number of its fellows if that is larger.
    [[nodiscard]] Long BandingBonus(const CArmy& army) const;

    /// Writes the six highest values back as they are: the place where a rule on a stack's own values would
    /// act.
    void EvalSelfPowers();

    /// The armies in order; the last one fights first.
    [[nodiscard]] auto begin() { return armies_.begin(); }
    [[nodiscard]] auto end() { return armies_.end(); }
    [[nodiscard]] auto begin() const { return armies_.begin(); }
    [[nodiscard]] auto end() const { return armies_.end(); }

private:
    /// The armies of one name that band.
    struct Band {
        InternedText Name;
        /// The power's size of the first one.
        Long Value;
        Long Count;
    };

    void BlankPowers();
    void AddRegularPowers(const CArmy& army);
    void AddToBand(const CArmy& army);

    KeyedCollection<CArmy> armies_;
    /// What CountSelfPowers has counted, in the order of the first armies.
    std::vector<Band> bands_;
};

} // namespace vorhaven
