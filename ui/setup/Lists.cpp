// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "ui/setup/frmBrawlpad.h"

#include <utility>

namespace vorhaven {

void frmBrawlpad::AddArmyToList(Side side) {
    const Trap trap{"frmBrawlpad::AddArmyToList"};
    ListBox& list = lstArmies[side];
    const ComboBox& picker = cboArmies[side];
    if (list.ListCount() >= MaxLines || picker.ListIndex() == -1)
        return;
    const Long datum = picker.Items()[static_cast<std::size_t>(picker.ListIndex().Value())].Datum;
    list.AddItem(NewLine(units_->Name(datum), datum));
    AdjustDefTerrain(side, list.ListCount());
}

void frmBrawlpad::lstArmies_DblClick(Side side) {
    const Trap trap{"frmBrawlpad::lstArmies_DblClick"};
    const Long line = lstArmies[side].ListIndex();
    if (line >= 0)
        DeleteArmyFromList(side, line);
}

void frmBrawlpad::DeleteArmyFromList(Side side, Long line) {
    const Trap trap{"frmBrawlpad::DeleteArmyFromList"};
    ListBox& list = lstArmies[side];
    list.RemoveItem(line);
    ShuffleArray(Health(side), line, 1);
    if (side == Side::Defender)
        AdjustDefTerrain(side, list.ListCount());
}

void frmBrawlpad::ShuffleArray(HealthArray& health, Long line, Long shift) {
    const Trap trap{"frmBrawlpad::ShuffleArray"};
    for (Long row = line + 1; row <= MaxLines; ++row)
        health(row) = health(row + shift);
}

void frmBrawlpad::sscClearList_Click(Side side) {
    const Trap trap{"frmBrawlpad::sscClearList_Click"};
    const Side other = Opponent(side);
    const bool isOtherMarked = Health(other) != HealthArray{};
    lstArmies[side].Clear();
    // Both sides lose their conditions; the marks of the other list stay as they are.
    RefreshHealthArray();
    if (isOtherMarked)
        Noticed.Raise("Clear List has also removed the conditions of the " +
                      ToLower(FrameOf(other).Caption.Get()));
}

void frmBrawlpad::sscDup_Click(Side side) {
    const Trap trap{"frmBrawlpad::sscDup_Click"};
    ListBox& list = lstArmies[side];
    const Long copies = ToLong(txtDup[side].Text());
    if (list.ListIndex() == -1)
        return;
    // Copied as it is: a copy shows the mark of its line but has conditions of its own.
    const ListEntry entry = list.Entry(list.ListIndex());
    const Long before = list.ListCount();
    for (Long copy = 0; copy < copies && list.ListCount() < MaxLines; ++copy) {
        list.AddItem(NewLine(entry.Text, entry.Datum));
        AdjustDefTerrain(side, list.ListCount());
    }
    if (list.ListCount() > before && Health(side)(list.ListIndex() + 1) != HealthRow{})
        Noticed.Raise("A duplicate has the mark of its line, but none of its conditions");
}

void frmBrawlpad::sscListArrow_Click(std::size_t index) {
    const Trap trap{"frmBrawlpad::sscListArrow_Click"};
    const Side side = index < 2 ? Side::Attacker : Side::Defender;
    const bool up = index % 2 == 0;
    const ListBox& list = lstArmies[side];
    const Long current = list.ListIndex();
    if (current < 0 || (up && current == 0) || (!up && current == list.ListCount() - 1))
        return;
    MoveOnlyOne(side);
    MoveArmyInList(side, current, up ? current - 1 : current + 1);
}

void frmBrawlpad::MoveOnlyOne(Side side) {
    const Trap trap{"frmBrawlpad::MoveOnlyOne"};
    ListBox& list = lstArmies[side];
    const std::vector<Long> selected = list.SelectedLines();
    if (selected.size() <= 1)
        return;
    for (const Long line : selected)
        if (line != list.ListIndex())
            list.SetSelected(line, false);
}

void frmBrawlpad::MoveArmyInList(Side side, Long from, Long to) {
    const Trap trap{"frmBrawlpad::MoveArmyInList"};
    ListBox& list = lstArmies[side];
    const ListEntry moved = list.Entry(from);
    list.SetEntry(from, list.Entry(to));
    list.SetEntry(to, moved);
    list.SetListIndex(to);
    list.SetSelected(to, true);
    list.SetSelected(from, false);
    MoveArmyInHealthArray(Health(side), from + 1, to + 1);
}

void frmBrawlpad::sscSwapSides_Click() {
    const Trap trap{"frmBrawlpad::sscSwapSides_Click"};
    Setup setup = CurrentSetup();
    std::swap(setup.Sides.Attacker, setup.Sides.Defender);
    setup.AdjustTerrain();
    for (const Side side : BothSides)
        lstArmies[side].Select({});
    PutInPlace(setup);
}

void frmBrawlpad::MoveArmyInHealthArray(HealthArray& health, Long rowA, Long rowB) {
    const Trap trap{"frmBrawlpad::MoveArmyInHealthArray"};
    std::swap(health(rowA), health(rowB));
}

} // namespace vorhaven
