// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/LiveOdds.h"

#include "odds/Budget.h"

#include <new>
#include <string>

namespace vorhaven {
namespace {

/// How the heroes of a set-up count in its odds.
std::string HeroesInWords(const Setup& setup, const Units& units) {
    bool isAnyUntouched = false;
    bool isAnyEntered = false;
    for (const Side side : BothSides)
        for (const SetupLine& line : setup.Sides[side]) {
            isAnyUntouched = isAnyUntouched || (units.IsHero(line.Unit) && !line.Hero);
            isAnyEntered = isAnyEntered || line.Hero;
        }
    if (isAnyEntered)
        return isAnyUntouched ? "Heroes as last entered, others at their starting values"
                              : "Heroes as last entered";
    return isAnyUntouched ? "Heroes at their starting values" : "";
}

ListBox::Figure SurvivalFigure(const Chance& chance) {
    const std::string exact = PercentText(chance);
    return {PercentText(chance, 0), "Survives " + exact + " of battles", "survives " + exact};
}

std::optional<Chance> WinningOf(const std::optional<Odds::BattleOdds>& odds) {
    return odds ? std::optional{odds->AttackerWins()} : std::nullopt;
}

} // namespace

void LiveOdds::Show(const Setup& setup, const Units& units) {
    const std::string heroes = HeroesInWords(setup, units);
    if (!shown_ || !IsSameBattle(setup, *shown_, units) || heroes != HeroesInWords(*shown_, units))
        Compute(setup, units, heroes);
    panel_->ShowChange(WinningOf(before_), WinningOf(odds_));
}

void LiveOdds::Compute(const Setup& setup, const Units& units, const std::string& heroes) {
    shown_ = setup;
    odds_.reset();
    survival_ = {};
    std::string state = "Pick armies for both sides";
    if (HasArmies(setup, units)) {
        try {
            Odds::Budget budget{StepsWhileTyping};
            odds_ = OddsOf(setup, units, budget);
            state = odds_ ? heroes : "Too many outcomes for exact odds: press Attack for an estimate";
        } catch (const RunTimeError& error) {
            state = std::string("There are no odds of this battle: ") + Description(error.Number());
        } catch (const std::bad_alloc&) {
            state = "Not enough memory for exact odds: press Attack for an estimate";
        }
    }
    if (odds_)
        for (const Side side : BothSides) {
            const auto chances =
                Odds::SurvivalOf(side == Side::Attacker ? odds_->Attackers : odds_->Defenders);
            const auto lines = LinesInOrderOfFighting(setup, side, units);
            survival_[side].resize(setup.Sides[side].size());
            for (std::size_t army = 0; army < lines.size(); ++army)
                survival_[side][lines[army]] = SurvivalFigure(chances[army]);
        }
    panel_->Show(odds_, state);
}

} // namespace vorhaven
