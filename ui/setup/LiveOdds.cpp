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
        return isAnyUntouched ? "Heroes as last entered, the others with their editors' first values"
                              : "Heroes as last entered";
    return isAnyUntouched ? "Heroes with their editors' first values" : "";
}

} // namespace

void LiveOdds::Show(const Setup& setup, const Units& units) {
    const std::string heroes = HeroesInWords(setup, units);
    if (shown_ && IsSameBattle(setup, *shown_, units) && heroes == HeroesInWords(*shown_, units))
        return;
    shown_ = setup;
    if (!HasArmies(setup, units)) {
        panel_->Show(std::nullopt, "Pick armies for both sides");
        return;
    }
    try {
        Odds::Budget budget{StepsWhileTyping};
        const auto odds = OddsOf(setup, units, budget);
        panel_->Show(odds, odds ? heroes : "Too many outcomes for exact odds: press Attack for an estimate");
    } catch (const RunTimeError& error) {
        panel_->Show(std::nullopt,
                     std::string("There are no odds of this battle: ") + Description(error.Number()));
    } catch (const std::bad_alloc&) {
        panel_->Show(std::nullopt, "Not enough memory for exact odds: press Attack for an estimate");
    }
}

} // namespace vorhaven
