// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/Changes.h"

#include "base/Conversion.h"
#include "model/Terrain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <tuple>

namespace vorhaven {
namespace {

/// Odds that differ by less are the same but for rounding.
constexpr double SameOdds = 1e-12;

struct ConditionChange {
    const char* Text;
    bool (*CanBe)(const HealthRow&);
    void (*Make)(HealthRow&);
};

constexpr ConditionChange Bless{
    "Bless", [](const HealthRow& row) { return !row.Blessed && !row.Diseased && !row.Poisoned; },
    [](HealthRow& row) { row.Blessed = true; }};
constexpr ConditionChange Flying{"Flying", [](const HealthRow& row) { return !row.Flying; },
                                 [](HealthRow& row) { row.Flying = true; }};

constexpr std::array ConditionChanges{
    Bless,
    ConditionChange{"One medal more", [](const HealthRow& row) { return row.Medals < MostMedals; },
                    [](HealthRow& row) { ++row.Medals; }},
    ConditionChange{"Blacksmith", [](const HealthRow& row) { return !row.Blacksmith; },
                    [](HealthRow& row) { row.Blacksmith = true; }},
    ConditionChange{"Weaponsmaster", [](const HealthRow& row) { return !row.Weaponsmaster; },
                    [](HealthRow& row) { row.Weaponsmaster = true; }},
    Flying};

/// Lists the possible changes of a set-up.
class Lister {
public:
    Lister(const Setup& setup, const Units& units)
        : setup_(&setup), units_(&units), attackers_(LinesInOrderOfFighting(setup, Side::Attacker, units)) {
        std::ranges::sort(attackers_);
    }

    std::vector<SingleChange> List() {
        ListBlessingOfAll();
        for (const std::size_t line : attackers_)
            ListConditions(line);
        ListArmies();
        ListPlaces();
        return std::move(changes_);
    }

private:
    Setup& Add(ChangeKind kind, std::string text) {
        changes_.push_back({kind, std::move(text), {}, *setup_, changes_.size()});
        return changes_.back().After;
    }

    static void Change(SetupLine& line, const ConditionChange& change) {
        change.Make(line.Health);
        if (AsteriskEligible(line.Text))
            line.Text += ConditionMark;
    }

    void ListBlessingOfAll() {
        Setup blessed = *setup_;
        std::size_t lines = 0;
        for (const std::size_t line : attackers_) {
            SetupLine& one = blessed.Sides.Attacker[line];
            if (one.Health.Blessed)
                continue;
            if (!Bless.CanBe(one.Health))
                return;
            Change(one, Bless);
            ++lines;
        }
        if (lines > 1)
            Add(ChangeKind::Condition, "Bless all attackers") = std::move(blessed);
    }

    void ListConditions(std::size_t line) {
        const SetupLine& army = setup_->Sides.Attacker[line];
        const bool fliesByNature = flyers_(army.Unit);
        const auto like = std::ranges::find_if(attackers_, [&](std::size_t other) {
            return IsSameArmy(setup_->Sides.Attacker[other], army, *units_);
        });
        for (std::size_t i = 0; i < ConditionChanges.size(); ++i) {
            const ConditionChange& change = ConditionChanges.at(i);
            if (!change.CanBe(army.Health) || (change.Make == Flying.Make && fliesByNature))
                continue;
            Setup& after =
                Add(ChangeKind::Condition, std::string(change.Text) + ": " + units_->Name(army.Unit) +
                                               " (line " + std::to_string(line + 1) + ")");
            Change(after.Sides.Attacker[line], change);
            // Beyond the numbers of all single changes.
            changes_.back().Likeness = (*like + 1) * 1000 + i;
        }
    }

    void ListArmies() {
        const std::size_t line = setup_->Sides.Attacker.size();
        if (line >= MaxLines)
            return;
        for (Long unit = 0; units_->IsArmy(unit); ++unit) {
            Setup after = *setup_;
            after.Sides.Attacker.push_back({unit, units_->Name(unit)});
            if (std::ranges::count(LinesInOrderOfFighting(after, Side::Attacker, *units_), line) == 0)
                return;
            const Long turns = units_->EntryOf(unit, {}).Turns;
            Add(ChangeKind::OneMoreArmy, "One more army: " + units_->Name(unit) + ", " + ToText(turns) +
                                             (turns == 1 ? " turn" : " turns")) = std::move(after);
            changes_.back().Tooltip = "Line " + std::to_string(line % LinesPerStack + 1) + " of stack " +
                                      std::to_string(line / LinesPerStack + 1);
        }
    }

    void ListPlaces() {
        if (!setup_->IsTerrainLocked)
            for (const char* terrain : Terrains::All)
                if (terrain != setup_->Terrain)
                    Add(ChangeKind::Place, std::string("Terrain: ") + terrain).ChooseTerrain(terrain);
        if (setup_->Terrain == Terrains::City && setup_->CityLevel < SizeOf(CityLevels)) {
            const std::string_view level = CityLevels.at(setup_->CityLevel.Index());
            ++Add(ChangeKind::Place, "City level: " + std::string(level.substr(0, level.find(" ("))))
                  .CityLevel;
        }
    }

    const Setup* setup_;
    const Units* units_;
    MBattleCalc::Flyers flyers_{units_->Armies(), units_->Heroes()};
    /// The lines that take part, from the top.
    std::vector<std::size_t> attackers_;
    std::vector<SingleChange> changes_;
};

} // namespace

std::vector<SingleChange> PossibleChanges(const Setup& setup, const Units& units) {
    return Lister{setup, units}.List();
}

ChangesStudy::ChangesStudy(const Setup& setup, const Units& units)
    : Study(setup, units), possible_(PossibleChanges(setup, units)) {}

Progress ChangesStudy::HowFar() const {
    return {static_cast<std::int64_t>(next_), std::ssize(possible_)};
}

bool ChangesStudy::DoNext() {
    if (next_ == possible_.size()) {
        Sort();
        return false;
    }
    const SingleChange& change = possible_[next_++];
    const std::optional<Prospect> outcome = Try(change.After);
    if (!outcome)
        return true;
    const bool isToldAlready = std::ranges::any_of(tried_, [&](const TriedChange& tried) {
        return tried.Change.Likeness == change.Likeness &&
               std::abs(tried.Outcome.Wins() - outcome->Wins()) < SameOdds &&
               std::abs(tried.Outcome.OwnTurnsLost - outcome->OwnTurnsLost) < SameOdds;
    });
    if (!isToldAlready)
        tried_.push_back({change, *outcome, outcome->Wins() - ProspectOf(*AsItIs()).Wins()});
    return true;
}

void ChangesStudy::Sort() {
    const auto rank = [](const TriedChange& tried) {
        // Gains that differ by rounding errors alone are equal.
        return std::tuple{-std::round(tried.Gain / SameOdds), tried.Outcome.OwnTurnsLost};
    };
    // Of equals the first tried stays the first.
    std::vector<TriedChange> sorted;
    for (TriedChange& tried : tried_)
        sorted.insert(std::ranges::upper_bound(sorted, rank(tried), {}, rank), std::move(tried));
    tried_ = std::move(sorted);
}

} // namespace vorhaven
