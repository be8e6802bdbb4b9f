// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CAttackArmies.h"
#include "model/CStackAtt.h"
#include "model/Catalogue.h"

#include <array>
#include <vector>

namespace vorhaven::MBattleCalc {

/// The master stacks of a battle, copied from both sides' lists.
struct BattleStacks {
    CStackAtt DefendStack;
    /// AttackStacks[0] is attacking stack 1.
    std::array<CStackAtt, MaxStacks> AttackStacks;
    /// How many attacking stacks take part.
    Long NumAttackStacks;

    /// Makes the stacks anew. Attacking records are found by the LineKey of their line from 0; a line without
    /// an army is skipped. An error would leave what has been built until then.
    void Build(const CAttackArmies& attackers, const CAttackArmies& defenders);

private:
    void BuildDefendStack(const CAttackArmies& defenders);
    void BuildAttackStacks(const CAttackArmies& attackers);
};

/// Which units fly by their nature, read from the catalogue once so that no text is compared in a battle.
class Flyers {
public:
    /// Nobody flies, and no unit is known.
    Flyers() = default;
    /// Raises error 9 for a table without the movement column.
    Flyers(const Table& armies, const Table& heroes);

    /// Whether the unit of a catalogue number flies; raises error 9 for a number outside the catalogue.
    [[nodiscard]] bool operator()(Long unitID) const {
        if (unitID < 0 || unitID.Index() >= flies_.size())
            Raise(ErrorNumber::SubscriptOutOfRange);
        return flies_[unitID.Index()];
    }

private:
    std::vector<bool> flies_;
};

} // namespace vorhaven::MBattleCalc
