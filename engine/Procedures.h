// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Dice.h"
#include "engine/MBattleCalc.h"
#include "engine/Rules.h"

// The engine's procedures as they call each other and as the tests call them, by source file.
namespace vorhaven::MBattleCalc {

/// The outcome of a battle after a duel.
enum class Victor : std::int32_t { Defender = 0, Attacker = 1, Undecided = 2 };

// Fronts.cpp

/// Builds the five master stacks from the host's lists; a line without an army is skipped. The one procedure
/// without the common error report: an error would leave it silently.
void BuildBattleStacks();
/// Makes the attacking front a fresh copy of the next attacking stack. Returns false, and leaves the front
/// empty, when there is none.
bool SendToAttackFront();
/// Makes the defending front a fresh copy of the defending stack.
void SendToDefendFront();
/// Remembers the current hits of every army of a stack as its start hits.
void CacheStartHits(CStackAtt& stack);
/// Who has won, given the sizes of the fronts. Sends the next attacking stack, always to AttackFront, when
/// the attacking front is wiped out; the front defender then gets its start hits back.
[[nodiscard]] Victor CheckIfVictor(Long attackCount, Long defendCount, CStackAtt& defendFront);

// StackEffects.cpp

/// Evaluates each front by itself, the defending one with what its city gives.
void EvalStacksSelfEffect(Long cityLevel);
/// Poison, disease and curse, then the stack bonuses that the fronts leave each other.
void EvalStacksMutualEffect();
void ApplyMutualPowers(CStackAtt& attackFront, CStackAtt& defendFront);
/// Adds the stack's bonus to the strength of each of its armies.
void ApplyAdjustedPower(CStackAtt& stack);
/// Limits a stack bonus as TotalStackBonus is limited.
[[nodiscard]] Long TotalStackFilter(Long value);

// Afflictions.cpp

/// Each front's poison (disease, curse) strikes the other's armies, the defender's first.
void CheckIfPoisoned(CStackAtt& attackFront, CStackAtt& defendFront);
void CheckIfDiseased(CStackAtt& attackFront, CStackAtt& defendFront);
void CheckIfCursed(CStackAtt& attackFront, CStackAtt& defendFront);

// Duel.cpp

/// Reads from the catalogue which units fly, so that no text is compared inside a round.
void CacheFlyers();
/// Fights one battle. NextAttackStack says which attacking stack comes next once the front is wiped out: it
/// is sent to AttackFront, and from there also to an `attackFront` that is another stack. Errors: 5 when a
/// front is empty at the start.
[[nodiscard]] Victor Fight(CStackAtt& attackFront, CStackAtt& defendFront, Long battle);
/// Fights two armies until one is slain, special attacks first.
void UnitvsUnit(CStackAtt& attackFront, Long attackIndex, CStackAtt& defendFront, Long defendIndex,
                Long battle);
/// One round: both roll, the attacker first; who alone misses loses.
[[nodiscard]] Loser WhoLosesPoint(const CArmy& attacker, const CArmy& defender);
/// The hit points that a lost round costs: 1, and the winner's trample where the loser does not fly.
[[nodiscard]] Long DamagePerHit(Long attackIndex, Long defendIndex, CStackAtt& attackFront,
                                CStackAtt& defendFront, Loser loser);

// SpecialAttacks.cpp: the attacks that open a duel. A result of true means that one of the two is slain.

void ResolveAcid(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront);
void ResolveLightning(Long attackIndex, Long defendIndex, CStackAtt& attackFront, CStackAtt& defendFront);
[[nodiscard]] bool ResolveAssass(Long attackIndex, Long defendIndex, CStackAtt& attackFront,
                                 CStackAtt& defendFront, Long battle);
[[nodiscard]] bool ResolveMissle(Long attackIndex, Long defendIndex, CStackAtt& attackFront,
                                 CStackAtt& defendFront, Long battle);

// Results.cpp

/// Books a slain army and takes it from its front.
void RemoveAttacker(CStackAtt& stack, Long index, Long turns, Long battle);
void RemoveDefender(CStackAtt& stack, Long index, Long turns, Long battle);
/// After every hundredth part of the run: the progress bar, its text, and pending events.
void ShowProgress(Long numBattles, Long battle);
/// The quick results: win percentage and the four averages. Raises error 11 for no battles.
void DisplayResults(Long numBattles);

} // namespace vorhaven::MBattleCalc
