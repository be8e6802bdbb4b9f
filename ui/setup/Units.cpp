// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/Units.h"

#include "base/Conversion.h"

namespace vorhaven {
namespace {

/// Strength, hits and terrain bonus of a unit, with room for turns and power.
std::vector<std::string> CommonDetails(const Table& units, Long row, Long strength, Long hits, Long terrain,
                                       Long bonus) {
    std::vector<std::string> details{"strength " + CellText(units(row, strength)),
                                     "hits " + CellText(units(row, hits)), "", "", ""};
    if (const Long size = CellNumber(units(row, bonus)); size != 0)
        details[3] = CellText(units(row, terrain)) + (size > 0 ? " +" : " ") + ToText(size);
    return details;
}

} // namespace

Units::Units(const CatalogueProvider& provider)
    : provider_(&provider), armies_(&provider.GetTable(CatalogueProvider::Selector::Armies)),
      heroes_(&provider.GetTable(CatalogueProvider::Selector::Heroes)) {}

std::vector<ListEntry> Units::Entries() const {
    std::vector<ListEntry> entries;
    for (Long row = 0; row < NumArmies(); ++row)
        entries.push_back(
            {CellText(Armies()(row, ArmyColumn::Name)), CellNumber(Armies()(row, ArmyColumn::Identifier))});
    for (Long row = 0; row < NumHeroes(); ++row)
        entries.push_back({CellText(Heroes()(row, HeroColumn::Name)),
                           NumArmies() + CellNumber(Heroes()(row, HeroColumn::Identifier))});
    entries.push_back({NoArmy, NumArmies() + NumHeroes()});
    return entries;
}

std::string Units::Name(Long unit) const {
    if (IsArmy(unit))
        return CellText(Armies()(unit, ArmyColumn::Name));
    return IsHero(unit) ? CellText(Heroes()(HeroRow(unit), HeroColumn::Name)) : NoArmy;
}

std::vector<std::string> Units::Details(Long unit) const {
    if (IsHero(unit))
        return CommonDetails(Heroes(), HeroRow(unit), HeroColumn::Strength, HeroColumn::Hits,
                             HeroColumn::BonusTerrain, HeroColumn::BonusSize);
    if (!IsArmy(unit))
        return {};
    auto details = CommonDetails(Armies(), unit, ArmyColumn::Strength, ArmyColumn::Hits,
                                 ArmyColumn::BonusTerrain, ArmyColumn::BonusSize);
    details[2] = "turns " + CellText(Armies()(unit, ArmyColumn::Turns));
    if (const Long size = CellNumber(Armies()(unit, ArmyColumn::PowerSize)); size != 0)
        details[4] = provider_->PowerName(ToShort(CellNumber(Armies()(unit, ArmyColumn::PowerCode)))) + ' ' +
                     ToText(size);
    return details;
}

ArmyEntry Units::EntryOf(Long unit, const HealthRow& health) const {
    ArmyEntry entry;
    entry.Name = Name(unit);
    if (IsArmy(unit)) {
        entry.UnitID = CellNumber(Armies()(unit, ArmyColumn::Identifier));
        entry.StartStrength = CellNumber(Armies()(unit, ArmyColumn::Strength));
        entry.Hits = CellNumber(Armies()(unit, ArmyColumn::Hits));
        entry.Turns = CellNumber(Armies()(unit, ArmyColumn::Turns));
        entry.CBName = CellText(Armies()(unit, ArmyColumn::BonusTerrain));
        entry.CBValue = CellNumber(Armies()(unit, ArmyColumn::BonusSize));
        entry.PowerType = CellNumber(Armies()(unit, ArmyColumn::PowerCode));
        entry.PowerValue = CellNumber(Armies()(unit, ArmyColumn::PowerSize));
        entry.IsUndead = CheckIfUndead(unit);
    } else if (IsHero(unit)) {
        const Long row = HeroRow(unit);
        entry.UnitID = unit;
        entry.StartStrength = CellNumber(Heroes()(row, HeroColumn::Strength));
        entry.Hits = CellNumber(Heroes()(row, HeroColumn::Hits));
        entry.CBName = CellText(Heroes()(row, HeroColumn::BonusTerrain));
        entry.CBValue = CellNumber(Heroes()(row, HeroColumn::BonusSize));
        // A code that gives no power: a hero's powers come from its editor.
        entry.PowerType = 1;
        entry.PowerValue = 1;
    }
    entry.IsBlessed = health.Blessed;
    entry.IsDiseased = health.Diseased;
    entry.IsPoisoned = health.Poisoned;
    entry.HasMedal = health.Medals;
    entry.IsBlacksmith = health.Blacksmith;
    entry.IsWeaponsmaster = health.Weaponsmaster;
    entry.IsFlying = health.Flying;
    return entry;
}

bool Units::CheckIfUndead(Long row) const {
    // Reports know this procedure under the main window's name.
    const Trap trap{"frmBrawlpad::CheckIfUndead"};
    const auto isUndead = [&](Long column) {
        return ToTrimmedLower(CellText(Armies()(row, column))) == "undead";
    };
    return isUndead(ArmyColumn::FirstTrait) || isUndead(ArmyColumn::SecondTrait);
}

std::optional<HeroValues> Units::UntouchedHero(Long unit) const {
    if (!IsHero(unit))
        return std::nullopt;
    CArmy record;
    record.StartStrength = CellNumber(Heroes()(HeroRow(unit), HeroColumn::Strength));
    record.Hits = CellNumber(Heroes()(HeroRow(unit), HeroColumn::Hits));
    return HeroValues::AtFirst(record);
}

} // namespace vorhaven
