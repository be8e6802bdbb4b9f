// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CAttackArmies.h"
#include "model/Catalogue.h"
#include "ui/controls/Controls.h"
#include "ui/hero/HeroValues.h"
#include "ui/setup/HealthArray.h"

#include <optional>
#include <string>
#include <vector>

namespace vorhaven {

/// The catalogue's units under the numbers that pickers and lists give them: an army type's number is its
/// row, the hero types follow the army types, and the last number is that of "None", no army at all.
class Units {
public:
    /// `provider` must outlive the units.
    explicit Units(const CatalogueProvider& provider);

    [[nodiscard]] const Table& Armies() const { return *armies_; }
    [[nodiscard]] const Table& Heroes() const { return *heroes_; }
    [[nodiscard]] Long NumArmies() const { return armies_->RowCount(); }
    [[nodiscard]] Long NumHeroes() const { return heroes_->RowCount(); }

    [[nodiscard]] bool IsArmy(Long unit) const { return unit < NumArmies(); }
    [[nodiscard]] bool IsHero(Long unit) const { return !IsArmy(unit) && !IsNone(unit); }
    [[nodiscard]] bool IsNone(Long unit) const { return unit >= NumArmies() + NumHeroes(); }

    /// All units in the order of the pickers, "None" last.
    [[nodiscard]] std::vector<ListEntry> Entries() const;

    [[nodiscard]] std::string Name(Long unit) const;

    /// What a picker shows beside a unit's name: strength, hits, turns, terrain bonus and power, each empty
    /// where the unit has none.
    [[nodiscard]] std::vector<std::string> Details(Long unit) const;

    /// What an army list is given for a unit in some health.
    [[nodiscard]] ArmyEntry EntryOf(Long unit, const HealthRow& health) const;

    /// Whether the army type of a catalogue row is undead.
    [[nodiscard]] bool CheckIfUndead(Long row) const;

    /// The values that a hero's editor begins with; nothing for other units.
    [[nodiscard]] std::optional<HeroValues> UntouchedHero(Long unit) const;

private:
    /// A hero's row in its table.
    [[nodiscard]] Long HeroRow(Long unit) const { return unit - NumArmies(); }

    const CatalogueProvider* provider_;
    const Table* armies_;
    const Table* heroes_;
};

} // namespace vorhaven
