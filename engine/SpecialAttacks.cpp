// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"

#include <optional>

namespace vorhaven::MBattleCalc {
namespace {

/// The force of a striker's ability on its target: what exceeds the target's own ability and warding; nothing
/// unless the ability stands above the warding.
std::optional<Long> ForceOf(Long striker, Long target, Long targetWarding) {
    if (striker <= targetWarding)
        return std::nullopt;
    return striker - (target + targetWarding);
}

/// Draws whether a force takes effect: ten chances in 99 for each point of it.
bool TakesEffect(Long force) {
    return RandomPercentNum() < force * 10;
}

bool Strikes(Long striker, Long target, Long targetWarding) {
    const auto force = ForceOf(striker, target, targetWarding);
    return force && TakesEffect(*force);
}

Long Half(Long value) {
    return value.Value() / 2;
}

/// Whether `assassin`, whose ability is the higher, slays its target. The attempt is used up in any case, and
/// so is the target's own.
bool Assassinates(CArmy& assassin, CArmy& target) {
    if (target.Assass > 0)
        target.UsedSpecial = true;
    const auto force = ForceOf(assassin.Assass, target.Assass, target.Warding);
    const bool slain = force && !assassin.UsedSpecial && TakesEffect(*force);
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
    for (Long shot = 1; shot <= shooter.MissleShotsLeft; ++shot) {
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
