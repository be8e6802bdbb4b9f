// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/BattleHost.h"
#include "engine/BattleResults.h"

/// The combat engine: fights the same battle many times and reports what came of it. Its state belongs to the
/// module; there is one run at a time.
namespace vorhaven::MBattleCalc {

/// The results of the last run; an aborted run leaves zeros for the battles that were not fought.
inline ResultsTable BattleResults;

/// Set to end the run before its next battle; cleared by the run that it ends.
inline bool AbortRequested = false;

/// Fights `numBattles` battles between the host's two lists, keeps the host informed, and shows the quick
/// results. `dice`: faces of the combat die. `viewStats`: show the stack statistics in battle 1. `cityLevel`:
/// 0 none, 1 village, 2 castle, 3 citadel. A battle in which neither side can ever lose a point does not end:
/// no limit is set and no event is processed inside a battle. Raises error 5 when a side has no army to send,
/// error 6 when a sum does not fit, error 7 when the results do not fit into memory, error 9 for a negative
/// number of battles or a unit outside the catalogue, error 11 for no battles.
void Add(BattleHost& host, Long numBattles, Long dice, bool viewStats, Long cityLevel);

/// Limits a stack value, raw or reduced by the enemy's, to -1..5.
[[nodiscard]] Long PowerFilter(Long value);

} // namespace vorhaven::MBattleCalc
