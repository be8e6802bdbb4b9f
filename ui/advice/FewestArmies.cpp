// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/FewestArmies.h"

#include <algorithm>
#include <iterator>
#include <ranges>

namespace vorhaven {
namespace {

/// Chances that differ by less are the same but for rounding.
constexpr double SameChance = 1e-12;

} // namespace

FewestArmiesStudy::FewestArmiesStudy(const Setup& setup, const Units& units)
    : Study(setup, units), lines_(LinesInOrderOfFighting(setup, Side::Attacker, units)) {
    std::ranges::sort(lines_);
    for (const std::size_t line : lines_) {
        const SetupLine& army = setup.Sides.Attacker[line];
        turns_[line] = units.EntryOf(army.Unit, army.Health).Turns;
    }
    if (ComparesAll())
        partsLeft_ = (std::uint64_t{1} << lines_.size()) - 1;
}

Progress FewestArmiesStudy::HowFar() const {
    if (ComparesAll()) {
        const std::int64_t all = (std::int64_t{1} << lines_.size()) - 1;
        return {all - static_cast<std::int64_t>(partsLeft_), all};
    }
    const Long all = TurnsOf(lines_);
    return {parts_.empty() ? all.Value() - TurnsOf(searched_.empty() ? lines_ : searched_).Value()
                           : all.Value(),
            all.Value()};
}

bool FewestArmiesStudy::DoNext() {
    if (best_.empty()) {
        NotePart({lines_, TurnsOf(lines_), ProspectOf(*AsItIs())});
        if (ComparesAll())
            --partsLeft_;
        else
            searched_ = lines_;
        return true;
    }
    if (ComparesAll() ? TryNextPart() : SearchOn())
        return true;
    KeepBest();
    return false;
}

bool FewestArmiesStudy::TryNextPart() {
    if (partsLeft_ == 0)
        return false;
    std::vector<std::size_t> sent;
    for (std::size_t i = 0; i < lines_.size(); ++i)
        if ((partsLeft_ >> i & 1U) != 0)
            sent.push_back(lines_[i]);
    TryPart(sent);
    --partsLeft_;
    return true;
}

/// Leaves one line more at home, of the best part found of each number of turns, from many turns to few.
bool FewestArmiesStudy::SearchOn() {
    if (nextOut_ < searched_.size() && searched_.size() > 1) {
        std::vector<std::size_t> sent = searched_;
        sent.erase(sent.begin() + static_cast<std::ptrdiff_t>(nextOut_++));
        TryPart(sent);
        return true;
    }
    auto here = best_.find(TurnsOf(searched_));
    // Who costs no turns may have left this place to another part.
    if (here->second.Sent == searched_) {
        if (here == best_.begin())
            return false;
        --here;
    }
    searched_ = here->second.Sent;
    nextOut_ = 0;
    return true;
}

void FewestArmiesStudy::TryPart(const std::vector<std::size_t>& sent) {
    std::vector<std::size_t> home;
    for (std::size_t line = 0; line < Studied().Sides.Attacker.size(); ++line)
        if (!GetUnits().IsNone(Studied().Sides.Attacker[line].Unit) &&
            !std::ranges::binary_search(sent, line))
            home.push_back(line);
    if (const std::optional<Prospect> outcome = Try(Without(Studied(), Side::Attacker, home)))
        NotePart({sent, TurnsOf(sent), *outcome});
}

void FewestArmiesStudy::NotePart(Part part) {
    const auto [known, isNew] = best_.try_emplace(part.Turns, part);
    if (isNew)
        return;
    const double gain = part.Outcome.Wins() - known->second.Outcome.Wins();
    if (gain > SameChance || (gain > -SameChance && part.Sent.size() < known->second.Sent.size()))
        known->second = std::move(part);
}

void FewestArmiesStudy::KeepBest() {
    double most = 0.0;
    for (const Part& part : best_ | std::views::values)
        if (part.Outcome.Wins() > most + SameChance) {
            most = part.Outcome.Wins();
            parts_.push_back(part);
        }
    if (parts_.empty() || parts_.back().Sent != lines_)
        parts_.push_back({lines_, TurnsOf(lines_), ProspectOf(*AsItIs())});
    std::ranges::reverse(parts_);
}

Long FewestArmiesStudy::TurnsOf(const std::vector<std::size_t>& sent) const {
    Long turns = 0;
    for (const std::size_t line : sent)
        turns += turns_.at(line);
    return turns;
}

} // namespace vorhaven
