// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"
#include "engine/State.h"

namespace vorhaven::MBattleCalc {
namespace {

/// Fills attacking stack `number` (from 0) with the records of its eight lines.
void BuildAttackStack(std::int32_t number) {
    CStackAtt& stack = AttackStacks[static_cast<std::size_t>(number)];
    for (std::int32_t line = number * LinesPerStack; line < (number + 1) * LinesPerStack; ++line) {
        const std::string key = LineKey(line);
        try {
            stack.Add(Host->AttackArmies().Item(key), key);
        } catch (const RunTimeError& error) {
            if (error.Number() != ErrorNumber::InvalidCall)
                throw;
        }
    }
}

void BuildDefendStack() {
    DefendStack.Clear();
    Long position = 0;
    for (const CArmy& army : Host->DefendArmies()) {
        ++position;
        DefendStack.Add(army, LineKey(position));
    }
}

void BuildAttackStacks() {
    NumAttackStacks = 0;
    for (CStackAtt& stack : AttackStacks)
        stack.Clear();
    // The stacks that take part are the leading ones that hold armies: an empty stack hides those behind it.
    for (std::int32_t number = 0; number < SizeOf(AttackStacks); ++number) {
        BuildAttackStack(number);
        if (AttackStacks[static_cast<std::size_t>(number)].Count() > 0)
            NumAttackStacks = number + 1;
        else if (number > 0)
            return;
    }
}

} // namespace

void BuildBattleStacks() {
    try {
        BuildDefendStack();
        BuildAttackStacks();
    } catch (const RunTimeError&) {
        // What is built so far is what fights.
    }
}

bool SendToAttackFront() {
    const Trap trap{"MBattleCalc::SendToAttackFront"};
    if (NextAttackStack >= NumAttackStacks) {
        AttackFront.Clear();
        return false;
    }
    AttackFront.CopyFrom(AttackStacks[NextAttackStack.Index()]);
    ++NextAttackStack;
    return true;
}

void SendToDefendFront() {
    const Trap trap{"MBattleCalc::SendToDefendFront"};
    DefendFront.CopyFrom(DefendStack);
}

void CacheStartHits(CStackAtt& stack) {
    const Trap trap{"MBattleCalc::CacheStartHits"};
    for (CArmy& army : stack)
        army.SetStartHits();
}

Victor CheckIfVictor(Long attackCount, Long defendCount, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfVictor"};
    if (defendCount == 0)
        return Victor::Attacker;
    if (attackCount != 0)
        return Victor::Undecided;
    if (!SendToAttackFront())
        return Victor::Defender;
    defendFront.Item(defendCount).RestoreStartHits();
    return Victor::Undecided;
}

} // namespace vorhaven::MBattleCalc
