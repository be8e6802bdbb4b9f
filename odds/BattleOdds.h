// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Chance.h"
#include "engine/Stacks.h"
#include "odds/Budget.h"
#include "odds/Slaying.h"

#include <optional>
#include <vector>

/// The exact odds of a battle: the flow of the rules, summed over instead of rolled.
namespace vorhaven::Odds {

/// Losses of one side on average.
struct Losses {
    double Armies = 0.0;
    /// Production turns of the slain armies.
    double Turns = 0.0;
};

/// What a battle costs one side. Averages are over the battles that end in the given way, and there is none
/// where no battle does.
struct SideOdds {
    /// The chance that the battle ends and has cost exactly k armies, for k from 0 to all that take part.
    std::vector<double> ChanceOfLosing;
    /// Over all battles that end.
    std::optional<Losses> Overall;
    std::optional<Losses> IfAttackerWins;
    std::optional<Losses> IfDefenderWins;
};

/// The odds of a battle. The three chances add up to 1.
struct BattleOdds {
    /// The attacker's chance of winning.
    double Won = 0.0;
    double Lost = 0.0;
    /// The chance of a duel that no round can ever decide.
    double Endless = 0.0;
    SideOdds Attackers;
    SideOdds Defenders;
    /// Who slays whom: of each attacker, with each defender, both in order of fighting. Where every battle
    /// ends, the sums over an army's enemies are what it loses and slays on average.
    std::vector<std::vector<Slaying>> Slayings{};

    [[nodiscard]] Chance AttackerWins() const { return {Won, Lost + Endless}; }
    [[nodiscard]] Chance DefenderWins() const { return {Lost, Won + Endless}; }
    [[nodiscard]] Chance NeverEnds() const { return {Endless, Won + Lost}; }
};

/// Each army's chance of surviving, in order of fighting; a battle without end counts neither for nor
/// against.
[[nodiscard]] std::vector<Chance> SurvivalOf(const SideOdds& side);

/// The exact odds of the battle that the engine would fight, each die's faces being equally likely. `dice`:
/// faces of the combat die. `cityLevel`: 0 none, 1 village, 2 castle, 3 citadel. Draws nothing and touches no
/// state but its own, so it may be called while a run is under way.
///
/// Returns nothing when the battle has more outcomes than the budget covers. Raises what the engine may raise
/// in such a battle: error 5 when a side has no army to send, error 6 when a sum does not fit, error 9 for a
/// unit outside the catalogue.
[[nodiscard]] std::optional<BattleOdds> OddsOf(const MBattleCalc::BattleStacks& stacks,
                                               const MBattleCalc::Flyers& flyers, Long dice, Long cityLevel,
                                               Budget& budget);

} // namespace vorhaven::Odds
