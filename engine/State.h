// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/MBattleCalc.h"

#include <array>
#include <vector>

// What the engine keeps from one procedure to the next. Only the engine's own sources include this.
namespace vorhaven::MBattleCalc {

/// The window that started the run.
inline BattleHost* Host = nullptr;

/// Faces of the ordinary combat die.
inline Long CombatDice;

/// The master stacks, built once a run; no battle changes them. AttackStacks[0] is attacking stack 1.
inline CStackAtt DefendStack;
inline std::array<CStackAtt, MaxStacks> AttackStacks;

/// How many attacking stacks take part, and how many of them the current battle has sent to the front.
inline Long NumAttackStacks;
inline Long NextAttackStack;

/// The stacks now fighting: copies of master stacks. A duel is between the last army of each.
inline CStackAtt AttackFront;
inline CStackAtt DefendFront;

/// By catalogue number: the unit's movement type is to fly. The catalogue's texts are read once a run.
inline std::vector<bool> FliesByCatalogue;

} // namespace vorhaven::MBattleCalc
