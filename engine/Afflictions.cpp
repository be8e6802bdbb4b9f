// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"

namespace vorhaven::MBattleCalc {
namespace {

/// Tests every eligible army of a stack.
template <Long CStackAtt::* Power, bool (*IsEligible)(const CArmy&), void (*Afflict)(CArmy&)>
void StrikeStack(const CStackAtt& striker, CStackAtt& victims) {
    const Long power = striker.*Power;
    if (power == 0)
        return;
    for (CArmy& army : victims)
        if (IsEligible(army) && RandomPercentNum() < AfflictionChance(power))
            Afflict(army);
}

} // namespace

void CheckIfPoisoned(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfPoisoned"};
    StrikeStack<&CStackAtt::StackPoison, IsPoisonEligible, Poison>(defendFront, attackFront);
    StrikeStack<&CStackAtt::StackPoison, IsPoisonEligible, Poison>(attackFront, defendFront);
}

void CheckIfDiseased(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfDiseased"};
    StrikeStack<&CStackAtt::StackDisease, IsDiseaseEligible, Disease>(defendFront, attackFront);
    StrikeStack<&CStackAtt::StackDisease, IsDiseaseEligible, Disease>(attackFront, defendFront);
}

void CheckIfCursed(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfCursed"};
    StrikeStack<&CStackAtt::StackCurse, IsCurseEligible, Curse>(defendFront, attackFront);
    StrikeStack<&CStackAtt::StackCurse, IsCurseEligible, Curse>(attackFront, defendFront);
}

} // namespace vorhaven::MBattleCalc
