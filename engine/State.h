// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/MBattleCalc.h"
#include "engine/Stacks.h"

// What the engine keeps from one procedure to the next. Only the engine's own sources include this.
namespace vorhaven::MBattleCalc {

/// The window that started the run; none when no run is under way.
inline BattleHost* Host = nullptr;

/// Faces of the ordinary combat die.
inline Long CombatDice;

/// The master stacks, built once a run; no battle changes them.
inline BattleStacks Masters;

/// How many attacking stacks the current battle has sent to the front.
inline Long NextAttackStack;

/// The stacks now fighting: copies of master stacks. A duel is between the last army of each.
inline CStackAtt AttackFront;
inline CStackAtt DefendFront;

/// The units that fly, read once a run.
inline Flyers FliesByNature;

} // namespace vorhaven::MBattleCalc
