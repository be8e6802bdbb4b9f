// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"
#include "engine/State.h"

namespace vorhaven::MBattleCalc {

void CacheFlyers() {
    const Trap trap{"MBattleCalc::CacheFlyers"};
    FliesByNature = Flyers{Host->Armies(), Host->Heroes()};
}

Victor Fight(CStackAtt& attackFront, CStackAtt& defendFront, Long battle) {
    const Trap trap{"MBattleCalc::Fight"};
    Victor victor = Victor::Undecided;
    while (victor == Victor::Undecided) {
        UnitvsUnit(attackFront, attackFront.Count(), defendFront, defendFront.Count(), battle);
        victor = CheckIfVictor(attackFront.Count(), defendFront.Count(), defendFront);
        // The stack that was sent is in AttackFront; another front takes it over from there.
        if (victor == Victor::Undecided && attackFront.Count() == 0)
            attackFront.CopyFrom(AttackFront);
    }
    return victor;
}

void UnitvsUnit(CStackAtt& attackFront, Long attackIndex, CStackAtt& defendFront, Long defendIndex,
                Long battle) {
    const Trap trap{"MBattleCalc::UnitvsUnit"};
    ResolveAcid(attackIndex, defendIndex, attackFront, defendFront);
    ResolveLightning(attackIndex, defendIndex, attackFront, defendFront);
    if (ResolveAssass(attackIndex, defendIndex, attackFront, defendFront, battle) ||
        ResolveMissle(attackIndex, defendIndex, attackFront, defendFront, battle))
        return;

    CArmy& attacker = attackFront.Item(attackIndex);
    CArmy& defender = defendFront.Item(defendIndex);
    const std::int32_t damageToAttacker =
        DamagePerHit(attackIndex, defendIndex, attackFront, defendFront, Loser::Attacker).Value();
    const std::int32_t damageToDefender =
        DamagePerHit(attackIndex, defendIndex, attackFront, defendFront, Loser::Defender).Value();
    std::int32_t attackerLeft = attacker.Hits.Value();
    std::int32_t defenderLeft = defender.Hits.Value();
    // Who loses a round is unpredictable, so the damage is computed: a branch would be mispredicted.
    while (attackerLeft > 0 && defenderLeft > 0) {
        const Loser loser = WhoLosesPoint(attacker, defender);
        attackerLeft -= damageToAttacker * static_cast<std::int32_t>(loser == Loser::Attacker);
        defenderLeft -= damageToDefender * static_cast<std::int32_t>(loser == Loser::Defender);
    }
    // Hits never reach zero: the survivor keeps what is left to it, the other is removed.
    if (defenderLeft <= 0) {
        attacker.Hits = attackerLeft;
        RemoveDefender(defendFront, defendIndex, defender.Turns, battle);
    } else {
        defender.Hits = defenderLeft;
        RemoveAttacker(attackFront, attackIndex, attacker.Turns, battle);
    }
}

Loser WhoLosesPoint(const CArmy& attacker, const CArmy& defender) {
    const Long attackRoll = GetCombatRoll(attacker.HasMedal);
    const Long defendRoll = GetCombatRoll(defender.HasMedal);
    return LoserOf(ScoresHit(attackRoll, attacker.TotalStrength),
                   ScoresHit(defendRoll, defender.TotalStrength));
}

Long DamagePerHit(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront,
                  Loser loser) {
    const Trap trap{"MBattleCalc::DamagePerHit"};
    if (loser == Loser::Nobody)
        return 1;
    if (loser != Loser::Defender && loser != Loser::Attacker)
        return 0;
    const CArmy& attacker = attackFront.Item(attackIndex);
    const CArmy& defender = defendFront.Item(defendIndex);
    return loser == Loser::Defender ? DamageTo(defender, attacker, FliesByNature)
                                    : DamageTo(attacker, defender, FliesByNature);
}

} // namespace vorhaven::MBattleCalc
