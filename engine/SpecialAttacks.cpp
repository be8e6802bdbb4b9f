#include "engine/Procedures.h"

namespace vorhaven::MBattleCalc {
namespace {

/// Whether a striker's ability takes effect on its target: it must stand above the target's warding, and what
/// is left after the target's own ability and warding is the force, ten chances in 99 each.
bool Strikes(Long striker, Long target, Long targetWarding) {
    if (striker <= targetWarding)
        return false;
    const Long force = striker - (target + targetWarding);
    return RandomPercentNum() < force * 10;
}

Long Half(Long value) {
    return value.Value() / 2;
}

/// Whether `assassin`, whose ability is the higher, slays its target. The attempt is used up in any case, and
/// so is the target's own.
bool Assassinates(CArmy& assassin, CArmy& target) {
    if (target.Assass > 0)
        target.UsedSpecial = true;
    const bool slain = !assassin.UsedSpecial && Strikes(assassin.Assass, target.Assass, target.Warding);
    assassin.UsedSpecial = true;
    return slain;
}

/// Whether `shooter`, which has `advantage` missiles more, hits its target. `targetLoses` is the round that
/// hits.
bool Shoots(CArmy& shooter, Long advantage, const CArmy& attacker, const CArmy& defender, Loser targetLoses) {
    if (shooter.UsedSpecial)
        return false;
    if (shooter.MissleShotsLeft == 0)
        shooter.MissleShotsLeft = advantage;
    for (Long shot = 1; shot <= shooter.MissleShotsLeft; shot += 1) {
        if (WhoLosesPoint(attacker, defender) != targetLoses)
            continue;
        shooter.MissleShotsLeft = shooter.MissleShotsLeft - shot;
        if (shooter.MissleShotsLeft == 0)
            shooter.UsedSpecial = true;
        return true;
    }
    shooter.UsedSpecial = true;
    return false;
}

} // namespace

void ResolveAcid(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::ResolveAcid"};
    CArmy& attacker = attackFront.Item(attackIndex);
    CArmy& defender = defendFront.Item(defendIndex);
    if (defender.Acid > attacker.Acid && Strikes(defender.Acid, attacker.Acid, attacker.Warding))
        attacker.TotalStrength = Half(attacker.TotalStrength);
    else if (attacker.Acid > defender.Acid && Strikes(attacker.Acid, defender.Acid, defender.Warding))
        defender.TotalStrength = Half(defender.TotalStrength);
}

void ResolveLightning(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::ResolveLightning"};
    CArmy& attacker = attackFront.Item(attackIndex);
    CArmy& defender = defendFront.Item(defendIndex);
    if (defender.Lightning > attacker.Lightning &&
        Strikes(defender.Lightning, attacker.Lightning, attacker.Warding))
        attacker.Hits = Half(attacker.Hits);
    else if (attacker.Lightning > defender.Lightning &&
             Strikes(attacker.Lightning, defender.Lightning, defender.Warding))
        defender.Hits = Half(defender.Hits);
}

bool ResolveAssass(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront,
                   Long battle) {
    const Trap trap{"MBattleCalc::ResolveAssass"};
    CArmy& attacker = attackFront.Item(attackIndex);
    CArmy& defender = defendFront.Item(defendIndex);
    if (attacker.Assass == defender.Assass) {
        if (attacker.Assass > 0) {
            attacker.UsedSpecial = true;
            defender.UsedSpecial = true;
        }
        return false;
    }
    if (defender.Assass > attacker.Assass) {
        if (!Assassinates(defender, attacker))
            return false;
        RemoveAttacker(attackFront, attackIndex, attacker.Turns, battle);
        return true;
    }
    if (!Assassinates(attacker, defender))
        return false;
    RemoveDefender(defendFront, defendIndex, defender.Turns, battle);
    return true;
}

bool ResolveMissle(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront,
                   Long battle) {
    const Trap trap{"MBattleCalc::ResolveMissle"};
    CArmy& attacker = attackFront.Item(attackIndex);
    CArmy& defender = defendFront.Item(defendIndex);
    if (attacker.Missle == defender.Missle)
        return false;
    if (defender.Missle > attacker.Missle) {
        if (!Shoots(defender, defender.Missle - attacker.Missle, attacker, defender, Loser::Attacker))
            return false;
        RemoveAttacker(attackFront, attackIndex, attacker.Turns, battle);
        return true;
    }
    if (!Shoots(attacker, attacker.Missle - defender.Missle, attacker, defender, Loser::Defender))
        return false;
    RemoveDefender(defendFront, defendIndex, defender.Turns, battle);
    return true;
}

} // namespace vorhaven::MBattleCalc
