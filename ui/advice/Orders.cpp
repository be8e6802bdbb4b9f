// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/Orders.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace vorhaven {
namespace {

/// Odds that differ by less are the same but for rounding.
constexpr double SameOdds = 1e-11;

/// What a difference from 1 must be at least to have eight digits that are right.
constexpr double SmallestDifference = 1e-7;

/// Whether one is as good as the other, both in wins and in turns lost.
bool IsAsGood(const Prospect& one, const Prospect& other) {
    return one.Wins() > other.Wins() - SameOdds && one.OwnTurnsLost < other.OwnTurnsLost + SameOdds;
}

std::size_t FirstLineOf(std::size_t stack) {
    return stack * LinesPerStack;
}

/// From the top, or back.
std::vector<std::size_t> InOrderOfFighting(std::vector<std::size_t> kinds) {
    std::ranges::reverse(kinds);
    return kinds;
}

} // namespace

Setup WithOrder(const Setup& setup, std::size_t stack, const Order& order) {
    Setup ordered = setup;
    for (std::size_t i = 0; i < order.Lines.size(); ++i)
        ordered.Sides.Attacker[FirstLineOf(stack) + i] = setup.Sides.Attacker[order.Lines[i]];
    return ordered;
}

OrdersStudy::OrdersStudy(const Setup& setup, const Units& units, std::size_t stack)
    : Study(setup, units), stack_(stack) {
    const std::vector<SetupLine>& attackers = setup.Sides.Attacker;
    for (std::size_t line = FirstLineOf(stack); line < std::min(attackers.size(), FirstLineOf(stack + 1));
         ++line)
        lines_.push_back(line);
    std::ranges::copy_if(lines_, std::back_inserter(armies_),
                         [&](std::size_t line) { return !units.IsNone(attackers[line].Unit); });
    for (const std::size_t line : armies_) {
        const auto same = std::ranges::find_if(
            armies_, [&](std::size_t other) { return IsSameArmy(attackers[other], attackers[line], units); });
        kinds_.push_back(static_cast<std::size_t>(same - armies_.begin()));
        // Each army takes one of the places so far, but may not pass its equals.
        orders_ = orders_ * std::ssize(kinds_) / std::ranges::count(kinds_, kinds_.back());
    }
    next_ = kinds_;
    std::ranges::sort(next_);
}

bool OrdersStudy::DoNext() {
    if (best_.empty()) {
        best_.push_back({lines_, ProspectOf(*AsItIs())});
        if (orders_ > 1)
            search_.emplace(StacksOf(Studied(), GetUnits()), stack_, InOrderOfFighting(kinds_), GetFlyers(),
                            Studied().CombatDice, Studied().CityLevel);
    }
    if (search_ ? SearchOn() : TryNextOrder())
        return true;
    std::ranges::sort(best_, std::greater{}, [](const Order& order) { return order.Outcome.Wins(); });
    return false;
}

bool OrdersStudy::SearchOn() {
    if (search_->IsImpossible()) {
        search_.reset();
        done_ = 0;
        return true;
    }
    if (search_->IsDone()) {
        for (const Odds::FoundOrder& found : search_->Best()) {
            const double lost = 1.0 - found.Won;
            const std::vector<std::size_t> kinds = InOrderOfFighting(found.Kinds);
            // Where hardly any battle is lost, a difference says too little about how many are.
            if (lost < SmallestDifference)
                Try(kinds);
            else if (kinds != kinds_)
                Note(kinds, {{found.Won, lost}, found.OwnTurnsLost});
        }
        return false;
    }
    Odds::Budget budget{StepsOfABattle};
    search_->GoOn(budget);
    Take(budget.Taken());
    done_ = search_->Compared();
    return true;
}

bool OrdersStudy::TryNextOrder() {
    Try(next_);
    ++done_;
    return std::ranges::next_permutation(next_).found;
}

void OrdersStudy::Try(const std::vector<std::size_t>& kinds) {
    if (kinds == kinds_)
        return;
    if (const auto outcome = Study::Try(WithOrder(Studied(), stack_, {LinesOf(kinds), {}})))
        Note(kinds, *outcome);
}

/// Keeps an order if no other is as good, instead of those that are not.
void OrdersStudy::Note(const std::vector<std::size_t>& kinds, const Prospect& outcome) {
    if (std::ranges::any_of(best_, [&](const Order& other) { return IsAsGood(other.Outcome, outcome); }))
        return;
    std::erase_if(best_, [&](const Order& other) { return IsAsGood(outcome, other.Outcome); });
    best_.push_back({LinesOf(kinds), outcome});
}

/// The stack's lines when its armies are of these kinds from the top; equal armies keep their order.
std::vector<std::size_t> OrdersStudy::LinesOf(const std::vector<std::size_t>& kinds) const {
    std::vector<bool> isPlaced(armies_.size());
    std::vector<std::size_t> lines = lines_;
    for (std::size_t place = 0; place < kinds.size(); ++place) {
        std::size_t army = kinds[place];
        while (isPlaced[army] || kinds_[army] != kinds[place])
            ++army;
        isPlaced[army] = true;
        lines[armies_[place] - lines_.front()] = armies_[army];
    }
    return lines;
}

BestOrdersStudy::BestOrdersStudy(const Setup& setup, const Units& units) : Study(setup, units), best_(setup) {
    const std::size_t attackers = LinesInOrderOfFighting(setup, Side::Attacker, units).size();
    for (const std::size_t line : LinesInOrderOfFighting(setup, Side::Attacker, units))
        stacks_ = std::max(stacks_, line / LinesPerStack + 1);
    hasOrders_ = attackers > stacks_;
}

Progress BestOrdersStudy::HowFar() const {
    return current_ ? current_->HowFar() : Progress{};
}

bool BestOrdersStudy::DoNext() {
    if (settled_ == stacks_)
        return false;
    if (!current_) {
        if (settled_ == 0 && stack_ == 0)
            outcome_ = ProspectOf(*AsItIs());
        current_ = std::make_unique<OrdersStudy>(best_, GetUnits(), stack_);
    }
    Take(current_->GoOn(1));
    if (current_->HasGivenUp())
        throw Odds::TooManyOutcomes{};
    if (!current_->IsDone())
        return true;
    const Order& winner = current_->Best().front();
    ++settled_;
    if (winner.Outcome.Wins() > outcome_.Wins() + SameOdds ||
        (IsAsGood(winner.Outcome, outcome_) && !IsAsGood(outcome_, winner.Outcome))) {
        best_ = WithOrder(best_, stack_, winner);
        outcome_ = winner.Outcome;
        settled_ = 1;
    }
    stack_ = (stack_ + 1) % stacks_;
    current_.reset();
    return true;
}

} // namespace vorhaven
