// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CStackAtt.h"
#include "model/Side.h"

#include <array>

// The numbers, conditions and effects of the rules, each in one place. Nothing here draws: the engine rolls
// what these functions say, and the exact odds sum over it. Who meets whom, and in what order, is not decided
// here.
namespace vorhaven::MBattleCalc {

/// A percentage draw takes one of this many values from 0 on, so a draw below p comes p times in 99.
inline constexpr std::int32_t PercentFaces = 99;

// Rounds

/// Who loses a round.
enum class Loser : std::int32_t { Defender = 0, Attacker = 1, Nobody = 2 };

/// The loser of a round by whether the attacker and the defender hit. At namespace scope, since a local table
/// of a constexpr function would be built anew in every round.
inline constexpr std::array<std::array<Loser, 2>, 2> LoserByHits{
    {{Loser::Nobody, Loser::Attacker}, {Loser::Defender, Loser::Nobody}}};

/// Who alone misses loses. A table, since a branch on chance would cost more than the two rolls.
[[nodiscard]] constexpr Loser LoserOf(bool attackerHits, bool defenderHits) {
    return LoserByHits[attackerHits ? 1 : 0][defenderHits ? 1 : 0];
}

/// Whether a roll hits: a strength is the number of faces that do.
[[nodiscard]] constexpr bool ScoresHit(Long roll, Long strength) {
    return roll <= strength;
}

inline constexpr std::array<std::int32_t, MostMedals + 1> FacesByMedals{0, 30, 26, 22, 18};

/// Faces of the second die that medals give, of which the lower roll counts; 0 for no second die.
[[nodiscard]] constexpr Long MedalFaces(Long medals) {
    return medals < 1 || medals > MostMedals ? 0 : FacesByMedals[medals.Index()];
}

/// The hit points that a lost round costs: 1, and the winner's trample where the loser does not fly.
/// `fliesByNature` says by catalogue number whether a unit flies; it is asked only when it matters.
[[nodiscard]] Long DamageTo(const CArmy& loser, const CArmy& winner, const auto& fliesByNature) {
    if (winner.Trample <= 0 || loser.IsFlying || fliesByNature(loser.UnitID))
        return 1;
    return winner.Trample + 1;
}

// Acid, lightning, assassins

/// An attempt of one of two duelling armies on the other, or none. A plain record, since the compiler keeps
/// one in registers, but not the value of a std::optional.
struct Strike {
    bool IsTried = false;
    Side Victim = Side::Attacker;
    /// What the striker's power exceeds the victim's own power and warding by.
    Long Force;
};

/// The attempt of a power that is the higher one; none against a warding that it does not exceed.
[[nodiscard]] inline Strike StrikeOn(Side victim, Long power, Long victimsPower, Long warding) {
    if (power <= warding)
        return {};
    return {true, victim, power - (victimsPower + warding)};
}

/// The attempt of the army whose power is the higher; none between equals. Raises error 6 when the force does
/// not fit.
template <Long CArmy::* Power>
[[nodiscard]] Strike StrikeBy(const CArmy& attacker, const CArmy& defender) {
    if (defender.*Power > attacker.*Power)
        return StrikeOn(Side::Attacker, defender.*Power, attacker.*Power, attacker.Warding);
    if (attacker.*Power > defender.*Power)
        return StrikeOn(Side::Defender, attacker.*Power, defender.*Power, defender.Warding);
    return {};
}

/// Percentage draws below this land a strike: ten chances in 99 for each point of its force.
[[nodiscard]] constexpr Long StrikeChance(Long force) {
    return force * 10;
}

/// What acid leaves of strength, and lightning of hits.
[[nodiscard]] constexpr Long Half(Long value) {
    return value.Value() / 2;
}

/// Whether an assassin strikes: its one special for the battle must not be used up. `usedSpecial`: of each
/// army whether its is, before this duel.
[[nodiscard]] constexpr bool IsCarriedOut(const Strike& strike, const PerSide<bool>& usedSpecial) {
    return strike.IsTried && !usedSpecial[Opponent(strike.Victim)];
}

/// Whether a duel uses up an army's one attempt to assassinate: the higher power tries, and whoever has the
/// power loses it.
[[nodiscard]] constexpr bool SpendsAttempt(Long own, Long enemy) {
    return own > enemy || own > 0;
}

// Missiles

/// A volley of one of two duelling armies, or none.
struct Volley {
    bool IsShot = false;
    Side Shooter = Side::Attacker;
    /// What its missiles exceed its target's by.
    Long Advantage;
};

/// The volley of the army with more missiles, unless its special is used up; none between equals. Raises
/// error 6 when the advantage does not fit, also where it is not used.
[[nodiscard]] inline Volley VolleyBetween(Long attackMissle, Long defendMissle,
                                          const PerSide<bool>& usedSpecial) {
    if (attackMissle == defendMissle)
        return {};
    if (attackMissle > defendMissle)
        return {!usedSpecial.Attacker, Side::Attacker, attackMissle - defendMissle};
    return {!usedSpecial.Defender, Side::Defender, defendMissle - attackMissle};
}

/// The shots of a volley: those left, or as many as the shooter has missiles more than its first target.
[[nodiscard]] constexpr Long ShotsOf(Long shotsLeft, Long advantage) {
    return shotsLeft == 0 ? advantage : shotsLeft;
}

/// What a volley leaves its shooter.
struct Quiver {
    Long ShotsLeft;
    /// No more shots for the rest of the battle.
    bool UsedUp = false;
};

/// After the shot that hit, counted from 1.
[[nodiscard]] constexpr Quiver AfterHit(Long shots, Long shot) {
    return {shots - shot, shots == shot};
}

[[nodiscard]] constexpr Quiver AfterMisses(Long shots) {
    return {shots, true};
}

// Afflictions

/// Percentage draws below this afflict an army: four chances in 99 for each point of the enemy's power.
[[nodiscard]] constexpr Long AfflictionChance(Long power) {
    return power * 4;
}

[[nodiscard]] inline bool IsPoisonEligible(const CArmy& army) {
    return army.Poison == 0 && !army.Blessed && !army.Poisoned;
}

[[nodiscard]] inline bool IsDiseaseEligible(const CArmy& army) {
    return army.Disease == 0 && !army.Blessed && !army.Diseased;
}

[[nodiscard]] inline bool IsCurseEligible(const CArmy& army) {
    return army.Curse == 0 && (army.Blessed || army.HasMedal >= 1);
}

inline void Poison(CArmy& army) {
    army.TotalStrength = army.TotalStrength - PoisonStrength;
    army.Poisoned = true;
}

inline void Disease(CArmy& army) {
    army.Hits = army.Hits - DiseaseHits;
    army.Diseased = true;
}

inline void Curse(CArmy& army) {
    if (army.Blessed) {
        army.Blessed = false;
        army.TotalStrength = army.TotalStrength - BlessingStrength;
    }
    if (army.HasMedal > 0)
        army.HasMedal = 0;
}

/// The bonus that an enemy stack leaves a stack, both with their own powers counted, within the limits of
/// TotalStackBonus.
[[nodiscard]] Long StackBonus(const CStackAtt& own, const CStackAtt& enemy);

inline void AddBonus(CArmy& army, Long bonus) {
    army.TotalStrength = army.TotalStrength + bonus;
}

} // namespace vorhaven::MBattleCalc
