// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"

namespace vorhaven::MBattleCalc {
namespace {

/// Tests every eligible army of a stack.
template <class Rule>
void StrikeStack(const CStackAtt& striker, CStackAtt& victims) {
    const Long power = Rule::PowerOf(striker);
    if (power == 0)
        return;
    for (CArmy& army : victims)
        if (Rule::IsEligible(army) && RandomPercentNum() < AfflictionChance(power))
            Rule::Afflict(army);
}

} // namespace

void CheckIfPoisoned(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfPoisoned"};
    StrikeStack<PoisonRule>(defendFront, attackFront);
    StrikeStack<PoisonRule>(attackFront, defendFront);
}

void CheckIfDiseased(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfDiseased"};
    StrikeStack<DiseaseRule>(defendFront, attackFront);
    StrikeStack<DiseaseRule>(attackFront, defendFront);
}

void CheckIfCursed(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfCursed"};
    StrikeStack<CurseRule>(defendFront, attackFront);
    StrikeStack<CurseRule>(attackFront, defendFront);
}

} // namespace vorhaven::MBattleCalc
