// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "ui/setup/frmBrawlpad.h"

#include <utility>

namespace vorhaven {
namespace {

constexpr const char* ListIsFull = "The list is full: delete an army to make room for another";

} // namespace

std::vector<std::string> frmBrawlpad::UnitDetails(Long datum) const {
    const auto tell = [](const Table& units, Long row, Long strength, Long hits, Long terrain, Long bonus) {
        std::vector<std::string> details{"strength " + CellText(units(row, strength)),
                                         "hits " + CellText(units(row, hits)), "", "", ""};
        if (const Long size = CellNumber(units(row, bonus)); size != 0)
            details[3] = CellText(units(row, terrain)) + (size > 0 ? " +" : " ") + ToText(size);
        return details;
    };
    if (datum >= NumArmies() + NumHeroes())
        return {};
    if (datum >= NumArmies())
        return tell(Heroes(), datum - NumArmies(), HeroColumn::Strength, HeroColumn::Hits,
                    HeroColumn::BonusTerrain, HeroColumn::BonusSize);
    auto details = tell(Armies(), datum, ArmyColumn::Strength, ArmyColumn::Hits, ArmyColumn::BonusTerrain,
                        ArmyColumn::BonusSize);
    details[2] = "turns " + CellText(Armies()(datum, ArmyColumn::Turns));
    if (const Long size = CellNumber(Armies()(datum, ArmyColumn::PowerSize)); size != 0)
        details[4] = provider_->PowerName(ToShort(CellNumber(Armies()(datum, ArmyColumn::PowerCode)))) + ' ' +
                     ToText(size);
    return details;
}

void frmBrawlpad::AddArmyToList(Side side) {
    const Trap trap{"frmBrawlpad::AddArmyToList"};
    ListBox& list = lstArmies[Of(side)];
    const ComboBox& picker = cboArmies[Of(side)];
    if (list.ListCount() >= MaxLines)
        Noticed.Raise(ListIsFull);
    if (list.ListCount() >= MaxLines || picker.ListIndex() == -1)
        return;
    const Long datum = picker.Items()[static_cast<std::size_t>(picker.ListIndex().Value())].Datum;
    if (datum < NumArmies())
        list.AddItem(NewLine(CellText(Armies()(datum, ArmyColumn::Name)), datum));
    else if (datum == NumArmies() + NumHeroes())
        list.AddItem(NewLine(NoArmy, datum));
    else
        list.AddItem(NewLine(CellText(Heroes()(datum - NumArmies(), HeroColumn::Name)), datum));
    AdjustDefTerrain(side, list.ListCount());
}

void frmBrawlpad::lstArmies_DblClick(Side side) {
    const Trap trap{"frmBrawlpad::lstArmies_DblClick"};
    const Long line = lstArmies[Of(side)].ListIndex();
    if (line >= 0)
        DeleteArmyFromList(side, line);
}

void frmBrawlpad::DeleteArmyFromList(Side side, Long line) {
    const Trap trap{"frmBrawlpad::DeleteArmyFromList"};
    ListBox& list = lstArmies[Of(side)];
    list.RemoveItem(line);
    ShuffleArray(health_[Of(side)], line, 1);
    if (side == Side::Defend)
        AdjustDefTerrain(side, list.ListCount());
}

void frmBrawlpad::ShuffleArray(HealthArray& health, Long line, Long shift) {
    const Trap trap{"frmBrawlpad::ShuffleArray"};
    for (Long row = line + 1; row <= MaxLines; ++row)
        health(row) = health(row + shift);
}

void frmBrawlpad::sscClearList_Click(Side side) {
    const Trap trap{"frmBrawlpad::sscClearList_Click"};
    lstArmies[Of(side)].Clear();
    // Both sides lose their conditions; the marks of the other list stay as they are.
    RefreshHealthArray();
}

void frmBrawlpad::sscDup_Click(Side side) {
    const Trap trap{"frmBrawlpad::sscDup_Click"};
    ListBox& list = lstArmies[Of(side)];
    const Long copies = ToLong(txtDup[Of(side)].Text());
    if (list.ListIndex() == -1)
        return;
    // Copied as it stands: a copy shows the mark of its line but has conditions of its own.
    const ListEntry entry = list.Entry(list.ListIndex());
    Long copiesAdded = 0;
    for (; copiesAdded < copies && list.ListCount() < MaxLines; ++copiesAdded) {
        list.AddItem(NewLine(entry.Text, entry.Datum));
        AdjustDefTerrain(side, list.ListCount());
    }
    if (copies > copiesAdded)
        Noticed.Raise(ListIsFull);
}

void frmBrawlpad::sscListArrow_Click(std::size_t index) {
    const Trap trap{"frmBrawlpad::sscListArrow_Click"};
    const Side side = index < 2 ? Side::Attack : Side::Defend;
    const bool up = index % 2 == 0;
    const ListBox& list = lstArmies[Of(side)];
    const Long current = list.ListIndex();
    if (current < 0 || (up && current == 0) || (!up && current == list.ListCount() - 1))
        return;
    MoveOnlyOne(side);
    MoveArmyInList(side, current, up ? current - 1 : current + 1);
}

void frmBrawlpad::MoveOnlyOne(Side side) {
    const Trap trap{"frmBrawlpad::MoveOnlyOne"};
    ListBox& list = lstArmies[Of(side)];
    const std::vector<Long> selected = list.SelectedLines();
    if (selected.size() <= 1)
        return;
    for (const Long line : selected)
        if (line != list.ListIndex())
            list.SetSelected(line, false);
}

void frmBrawlpad::MoveArmyInList(Side side, Long from, Long to) {
    const Trap trap{"frmBrawlpad::MoveArmyInList"};
    ListBox& list = lstArmies[Of(side)];
    const ListEntry moved = list.Entry(from);
    list.SetEntry(from, list.Entry(to));
    list.SetEntry(to, moved);
    list.SetListIndex(to);
    list.SetSelected(to, true);
    list.SetSelected(from, false);
    MoveArmyInHealthArray(health_[Of(side)], from + 1, to + 1);
}

void frmBrawlpad::MoveArmyInHealthArray(HealthArray& health, Long rowA, Long rowB) {
    const Trap trap{"frmBrawlpad::MoveArmyInHealthArray"};
    std::swap(health(rowA), health(rowB));
}

} // namespace vorhaven
