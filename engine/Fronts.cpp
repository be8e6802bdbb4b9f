// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"
#include "engine/State.h"

namespace vorhaven::MBattleCalc {

void BuildBattleStacks() {
    try {
        Masters.Build(Host->AttackArmies(), Host->DefendArmies());
    } catch (const RunTimeError&) { // NOLINT(bugprone-empty-catch)
        // No list makes Build raise an error: it looks for a line's army before it takes it, and each key is
        // new to its stack. If one ever did, what is built so far would fight.
    }
}

bool SendToAttackFront() {
    const Trap trap{"MBattleCalc::SendToAttackFront"};
    if (NextAttackStack >= Masters.NumAttackStacks) {
        AttackFront.Clear();
        return false;
    }
    AttackFront.CopyFrom(Masters.AttackStacks[NextAttackStack.Index()]);
    ++NextAttackStack;
    return true;
}

void SendToDefendFront() {
    const Trap trap{"MBattleCalc::SendToDefendFront"};
    DefendFront.CopyFrom(Masters.DefendStack);
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
