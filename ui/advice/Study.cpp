// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/Study.h"

#include <algorithm>
#include <functional>
#include <new>
#include <utility>

namespace vorhaven {
namespace {

/// What it takes to line up a battle's armies, beside the steps of its odds.
constexpr std::int64_t StepsToLineUp = 500;

} // namespace

Prospect ProspectOf(const Odds::BattleOdds& odds) {
    return {odds.AttackerWins(), odds.Attackers.Overall.value_or(Odds::Losses{}).Turns};
}

Study::Study(Setup setup, const Units& units)
    : setup_(std::move(setup)), units_(&units), flyers_(units.Armies(), units.Heroes()) {}

std::int64_t Study::GoOn(std::int64_t steps) {
    const std::int64_t before = taken_;
    while (state_ == State::UnderWay && taken_ < before + steps)
        state_ = DoPiece();
    return taken_ - before;
}

Study::State Study::DoPiece() {
    try {
        if (!asItIs_) {
            asItIs_ = OddsOf(setup_);
            return State::UnderWay;
        }
        if (!DoNext())
            return State::Done;
        return taken_ < StepsInAll ? State::UnderWay : State::GivenUp;
    } catch (const Odds::TooManyOutcomes&) {
        return State::GivenUp;
    } catch (const RunTimeError&) {
        return State::GivenUp;
    } catch (const std::bad_alloc&) {
        return State::GivenUp;
    }
}

Odds::BattleOdds Study::OddsOf(const Setup& setup) {
    Odds::Budget budget{StepsOfABattle};
    const std::optional<Odds::BattleOdds> odds =
        Odds::OddsOf(StacksOf(setup, *units_), flyers_, setup.CombatDice, setup.CityLevel, budget);
    Take(budget.Taken() + StepsToLineUp);
    if (!odds)
        throw Odds::TooManyOutcomes{};
    return *odds;
}

std::optional<Prospect> Study::Try(const Setup& setup) {
    if (LinesInOrderOfFighting(setup, Side::Attacker, *units_).empty())
        return Prospect{{0.0, 1.0}, 0.0};
    if (LinesInOrderOfFighting(setup, Side::Defender, *units_).empty())
        return Prospect{{1.0, 0.0}, 0.0};
    try {
        return ProspectOf(OddsOf(setup));
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

Setup Without(Setup setup, Side side, const std::vector<std::size_t>& lines) {
    std::vector<std::size_t> fromTheLast = lines;
    std::ranges::sort(fromTheLast, std::greater{});
    for (const std::size_t line : fromTheLast)
        setup.Sides[side].erase(setup.Sides[side].begin() + static_cast<std::ptrdiff_t>(line));
    setup.AdjustTerrain();
    return setup;
}

} // namespace vorhaven
