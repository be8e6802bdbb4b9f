// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"

namespace vorhaven::MBattleCalc {
namespace {

bool IsPoisonEligible(const CArmy& army) {
    return army.Poison == 0 && !army.Blessed && !army.Poisoned;
}

bool IsDiseaseEligible(const CArmy& army) {
    return army.Disease == 0 && !army.Blessed && !army.Diseased;
}

bool IsCurseEligible(const CArmy& army) {
    return army.Curse == 0 && (army.Blessed || army.HasMedal >= 1);
}

void Poison(CArmy& army) {
    army.TotalStrength = army.TotalStrength - 1;
    army.Poisoned = true;
}

void Infect(CArmy& army) {
    army.Hits = army.Hits - 1;
    army.Diseased = true;
}

void Curse(CArmy& army) {
    if (army.Blessed) {
        army.Blessed = false;
        army.TotalStrength = army.TotalStrength - 1;
    }
    if (army.HasMedal > 0)
        army.HasMedal = 0;
}

/// Tests every eligible army of a stack, four chances in 99 for each point of the enemy's power.
template <class Eligible, class Effect>
void StrikeStack(Long power, CStackAtt& victims, Eligible isEligible, Effect strike) {
    if (power == 0)
        return;
    for (CArmy& army : victims)
        if (isEligible(army) && RandomPercentNum() < power * 4)
            strike(army);
}

} // namespace

void CheckIfPoisoned(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfPoisoned"};
    StrikeStack(defendFront.StackPoison, attackFront, IsPoisonEligible, Poison);
    StrikeStack(attackFront.StackPoison, defendFront, IsPoisonEligible, Poison);
}

void CheckIfDiseased(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfDiseased"};
    StrikeStack(defendFront.StackDisease, attackFront, IsDiseaseEligible, Infect);
    StrikeStack(attackFront.StackDisease, defendFront, IsDiseaseEligible, Infect);
}

void CheckIfCursed(CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::CheckIfCursed"};
    StrikeStack(defendFront.StackCurse, attackFront, IsCurseEligible, Curse);
    StrikeStack(attackFront.StackCurse, defendFront, IsCurseEligible, Curse);
}

} // namespace vorhaven::MBattleCalc
