// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"

namespace vorhaven::MBattleCalc {
namespace {

bool Lands(Long force) {
    return RandomPercentNum() < StrikeChance(force);
}

/// Whether `shooter`, which has `advantage` missiles more, hits its target. `targetLoses` is the round that
/// hits.
bool Shoots(CArmy& shooter, Long advantage, const CArmy& attacker, const CArmy& defender, Loser targetLoses) {
    const auto keep = [&shooter](Quiver left) {
        shooter.MissleShotsLeft = left.ShotsLeft;
        shooter.UsedSpecial = left.UsedUp;
    };
    const Long shots = ShotsOf(shooter.MissleShotsLeft, advantage);
    for (Long shot = 1; shot <= shots; ++shot) {
        if (WhoLosesPoint(attacker, defender) != targetLoses)
            continue;
        keep(AfterHit(shots, shot));
        return true;
    }
    keep(AfterMisses(shots));
    return false;
}

} // namespace

void ResolveAcid(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::ResolveAcid"};
    CArmy& attacker = attackFront.Item(attackIndex);
    CArmy& defender = defendFront.Item(defendIndex);
    const Strike strike = StrikeBy<&CArmy::Acid>(attacker, defender);
    if (!strike.IsTried || !Lands(strike.Force))
        return;
    CArmy& victim = strike.Victim == Side::Attacker ? attacker : defender;
    victim.TotalStrength = Half(victim.TotalStrength);
}

void ResolveLightning(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront) {
    const Trap trap{"MBattleCalc::ResolveLightning"};
    CArmy& attacker = attackFront.Item(attackIndex);
    CArmy& defender = defendFront.Item(defendIndex);
    const Strike strike = StrikeBy<&CArmy::Lightning>(attacker, defender);
    if (!strike.IsTried || !Lands(strike.Force))
        return;
    CArmy& victim = strike.Victim == Side::Attacker ? attacker : defender;
    victim.Hits = Half(victim.Hits);
}

bool ResolveAssass(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront,
                   Long battle) {
    const Trap trap{"MBattleCalc::ResolveAssass"};
    CArmy& attacker = attackFront.Item(attackIndex);
    CArmy& defender = defendFront.Item(defendIndex);
    // Most duels are between armies that are no assassins: this is the shortest way past.
    if (attacker.Assass == 0 && defender.Assass == 0)
        return false;
    const Strike strike = StrikeBy<&CArmy::Assass>(attacker, defender);
    const bool slain =
        IsCarriedOut(strike, {attacker.UsedSpecial, defender.UsedSpecial}) && Lands(strike.Force);
    if (SpendsAttempt(attacker.Assass, defender.Assass))
        attacker.UsedSpecial = true;
    if (SpendsAttempt(defender.Assass, attacker.Assass))
        defender.UsedSpecial = true;
    if (!slain)
        return false;
    if (strike.Victim == Side::Attacker)
        RemoveAttacker(attackFront, attackIndex, attacker.Turns, battle);
    else
        RemoveDefender(defendFront, defendIndex, defender.Turns, battle);
    return true;
}

bool ResolveMissle(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront,
                   Long battle) {
    const Trap trap{"MBattleCalc::ResolveMissle"};
    CArmy& attacker = attackFront.Item(attackIndex);
    CArmy& defender = defendFront.Item(defendIndex);
    const Volley volley =
        VolleyBetween(attacker.Missle, defender.Missle, {attacker.UsedSpecial, defender.UsedSpecial});
    if (!volley.IsShot)
        return false;
    if (volley.Shooter == Side::Defender) {
        if (!Shoots(defender, volley.Advantage, attacker, defender, Loser::Attacker))
            return false;
        RemoveAttacker(attackFront, attackIndex, attacker.Turns, battle);
        return true;
    }
    if (!Shoots(attacker, volley.Advantage, attacker, defender, Loser::Defender))
        return false;
    RemoveDefender(defendFront, defendIndex, defender.Turns, battle);
    return true;
}

} // namespace vorhaven::MBattleCalc
