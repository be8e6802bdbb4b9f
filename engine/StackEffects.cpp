// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"
#include "engine/State.h"

namespace vorhaven::MBattleCalc {
namespace {

/// A value as a property of a bounded type would hold it.
template <class Limits>
Long Limited(Long value) {
    Limits limited;
    limited = value;
    return limited;
}

/// What is left of a stack's power against the opposing power of the enemy, -1 to 5.
Long Remaining(Long own, Long opposing) {
    return PowerFilter(PowerFilter(own) - PowerFilter(opposing));
}

void ApplyBonus(CStackAtt& own, const CStackAtt& enemy) {
    own.TotalStackBonus = StackBonus(own, enemy);
    ApplyAdjustedPower(own);
}

} // namespace

Long StackBonus(const CStackAtt& own, const CStackAtt& enemy) {
    const Long lead = Remaining(own.StackLeadership, enemy.StackChaos);
    const Long mor = Remaining(own.StackMorale, enemy.StackFear);
    const Long fort = Remaining(own.StackFortify, enemy.StackSiege);
    return TotalStackFilter(mor + lead + fort);
}

void EvalStacksSelfEffect(Long cityLevel) {
    const Trap trap{"MBattleCalc::EvalStacksSelfEffect"};
    AttackFront.CountSelfPowers(Side::Attacker, cityLevel);
    DefendFront.CountSelfPowers(Side::Defender, cityLevel);
    AttackFront.EvalSelfPowers();
    DefendFront.EvalSelfPowers();
}

void EvalStacksMutualEffect() {
    const Trap trap{"MBattleCalc::EvalStacksMutualEffect"};
    CheckIfPoisoned(AttackFront, DefendFront);
    CheckIfDiseased(AttackFront, DefendFront);
    CheckIfCursed(AttackFront, DefendFront);
    ApplyMutualPowers(AttackFront, DefendFront);
}

void ApplyMutualPowers(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::ApplyMutualPowers"};
    ApplyBonus(attackFront, defendFront);
    ApplyBonus(defendFront, attackFront);
}

void ApplyAdjustedPower(CStackAtt& stack) {
    const Trap trap{"MBattleCalc::ApplyAdjustedPower"};
    for (CArmy& army : stack)
        AddBonus(army, stack.TotalStackBonus);
}

Long PowerFilter(Long value) {
    return Limited<Bounded<-1, 5>>(value);
}

Long TotalStackFilter(Long value) {
    return Limited<decltype(CStackAtt::TotalStackBonus)>(value);
}

} // namespace vorhaven::MBattleCalc
