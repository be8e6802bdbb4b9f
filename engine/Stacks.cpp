// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Stacks.h"

#include "base/Conversion.h"

namespace vorhaven::MBattleCalc {
namespace {

/// Fills attacking stack `number` (from 0) with the records of its eight lines.
void FillAttackStack(CStackAtt& stack, const CAttackArmies& attackers, std::int32_t number) {
    for (std::int32_t line = number * LinesPerStack; line < (number + 1) * LinesPerStack; ++line) {
        const std::string key = LineKey(line);
        if (const CArmy* army = attackers.Find(key))
            stack.Add(*army, key);
    }
}

} // namespace

void BattleStacks::Build(const CAttackArmies& attackers, const CAttackArmies& defenders) {
    BuildDefendStack(defenders);
    BuildAttackStacks(attackers);
}

void BattleStacks::BuildDefendStack(const CAttackArmies& defenders) {
    DefendStack.Clear();
    Long position = 0;
    for (const CArmy& army : defenders) {
        ++position;
        DefendStack.Add(army, LineKey(position));
    }
}

void BattleStacks::BuildAttackStacks(const CAttackArmies& attackers) {
    NumAttackStacks = 0;
    for (CStackAtt& stack : AttackStacks)
        stack.Clear();
    // The stacks that take part are the leading ones that hold armies: an empty stack hides those behind it.
    for (std::int32_t number = 0; number < SizeOf(AttackStacks); ++number) {
        CStackAtt& stack = AttackStacks[static_cast<std::size_t>(number)];
        FillAttackStack(stack, attackers, number);
        if (stack.Count() > 0)
            NumAttackStacks = number + 1;
        else if (number > 0)
            return;
    }
}

Flyers::Flyers(const Table& armies, const Table& heroes) {
    const auto note = [this](const Table& units, Long movementColumn) {
        for (Long row = 0; row < units.RowCount(); ++row)
            flies_.push_back(ToLower(CellText(units(row, movementColumn))) == "fly");
    };
    note(armies, ArmyColumn::Movement);
    note(heroes, HeroColumn::Movement);
}

} // namespace vorhaven::MBattleCalc
