// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Stacks.h"
#include "odds/BattleOdds.h"
#include "ui/setup/Setup.h"
#include "ui/setup/Units.h"

#include <functional>
#include <optional>
#include <string>

// What a set-up is as a battle.
namespace vorhaven {

/// Whether both sides have an army to send: in the attackers' first stack and among all defenders there is a
/// line that is more than "None".
[[nodiscard]] bool HasArmies(const Setup& setup, const Units& units);

/// The lines, from 0, whose armies take part in the battle, in the order in which they fight: attackers from
/// the last line of each stack up, as far as no empty stack hides the others, defenders from the last line
/// up. Empty where the attackers' first stack is.
[[nodiscard]] std::vector<std::size_t> LinesInOrderOfFighting(const Setup& setup, Side side,
                                                              const Units& units);

/// The values with which a line's hero fights: those that were entered, or else those with which its editor
/// begins; nothing for a line that is no hero.
[[nodiscard]] std::optional<HeroValues> HeroOf(const SetupLine& line, const Units& units);

/// Whether two lines are the same army to a battle: of one unit, in the same health, as heroes with the same
/// values.
[[nodiscard]] bool IsSameArmy(const SetupLine& a, const SetupLine& b, const Units& units);

/// Whether two set-ups are the same battle: the same armies in the same order and health, heroes of the same
/// values, the same terrain, city and dice.
[[nodiscard]] bool IsSameBattle(const Setup& a, const Setup& b, const Units& units);

/// The most battles whose losses add up to a count whatever they are: no side loses more than all its armies
/// that fight, and all their production turns, in each.
[[nodiscard]] Long MostBattles(const Setup& setup, const Units& units);

/// Answers what an army list asks while it is filled from a set-up.
class AssemblyHost final : public ArmyListHost {
public:
    Long NumArmyTypes;
    std::string DefenderTerrain;
    /// Gives the hero of the line that is being added its values.
    std::function<void(CArmy&)> OnHero;

    [[nodiscard]] Long NumArmies() const override { return NumArmyTypes; }
    [[nodiscard]] const std::string& Terrain() const override { return DefenderTerrain; }
    void EditHero(CArmy& hero) override { OnHero(hero); }
};

/// The stacks that a set-up sends to battle, its heroes having the values of HeroOf. Raises error 6 when the
/// strength of an army does not fit.
[[nodiscard]] MBattleCalc::BattleStacks StacksOf(const Setup& setup, const Units& units);

/// The exact odds of a set-up; nothing when it has more outcomes than the budget covers. Raises what StacksOf
/// and Odds::OddsOf raise.
[[nodiscard]] std::optional<Odds::BattleOdds> OddsOf(const Setup& setup, const Units& units,
                                                     Odds::Budget& budget);

} // namespace vorhaven
