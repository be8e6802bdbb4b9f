// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/frmBrawlpad.h"

#include <algorithm>

namespace vorhaven {
namespace {

constexpr std::size_t BlessedItem = 1;
constexpr std::size_t DiseasedItem = 2;
constexpr std::size_t PoisonedItem = 3;

/// The condition that each check item of the menu is about; the medals' heading has none.
constexpr std::array<bool HealthRow::*, 8> ConditionOfItem{
    nullptr, &HealthRow::Blessed,    &HealthRow::Diseased,      &HealthRow::Poisoned,
    nullptr, &HealthRow::Blacksmith, &HealthRow::Weaponsmaster, &HealthRow::Flying};

} // namespace

void frmBrawlpad::RefreshHealthArray() {
    const Trap trap{"frmBrawlpad::RefreshHealthArray"};
    AttHealthArray = {};
    DefHealthArray = {};
    SetupTouched.Raise();
}

Side frmBrawlpad::FocusedSide() const {
    return ActiveControl() != nullptr && ActiveControl()->Index == 1 ? Side::Defender : Side::Attacker;
}

void frmBrawlpad::lstArmies_MouseUp(Side side, MouseButton button) {
    const Trap trap{"frmBrawlpad::lstArmies_MouseUp"};
    const ListBox& list = lstArmies[side];
    if (button != MouseButton::Right || list.ListCount() == 0 || list.ListIndex() == -1)
        return;
    const HealthRow& row = Health(side)(list.ListIndex() + 1);
    for (std::size_t item = 1; item < mnuPopupItem.size(); ++item)
        if (ConditionOfItem[item] != nullptr)
            mnuPopupItem[item].Checked = row.*ConditionOfItem[item];
    for (std::size_t medals = 0; medals < mnuPopupItemMedals.size(); ++medals)
        mnuPopupItemMedals[medals].Checked = row.Medals == static_cast<int>(medals);
    EvaluateHealthConflicts(side);
    mnuEditHero.Enabled = CanEditHero(side);
    PopupMenuRequested.Raise(side);
}

void frmBrawlpad::mnuPopupItem_Click(std::size_t index) {
    const Trap trap{"frmBrawlpad::mnuPopupItem_Click"};
    if (index == MedalItem)
        return;
    MenuItem& item = mnuPopupItem[index];
    item.Checked = !item.Checked;
    const Side side = FocusedSide();
    for (const Long line : lstArmies[side].SelectedLines()) {
        Health(side)(line + 1).*ConditionOfItem[index] = item.Checked;
        if (item.Checked)
            MarkLine(side, line);
        else
            UnmarkLine(side, line);
    }
    SetupTouched.Raise();
}

void frmBrawlpad::mnuPopupItemMedals_Click(std::size_t index) {
    const Trap trap{"frmBrawlpad::mnuPopupItemMedals_Click"};
    const Side side = FocusedSide();
    for (const Long line : lstArmies[side].SelectedLines()) {
        Health(side)(line + 1).Medals = static_cast<std::int16_t>(index);
        if (index > 0)
            MarkLine(side, line);
        else
            UnmarkLine(side, line);
    }
    SetupTouched.Raise();
}

void frmBrawlpad::mnuPopupDelete_Click() {
    const Trap trap{"frmBrawlpad::mnuPopupDelete_Click"};
    const Side side = FocusedSide();
    std::vector<Long> lines = lstArmies[side].SelectedLines();
    // From the last one upwards, so that no removal moves a line that is still to go.
    std::ranges::reverse(lines);
    for (const Long line : lines)
        DeleteArmyFromList(side, line);
}

void frmBrawlpad::MarkLine(Side side, Long line) {
    ListBox& list = lstArmies[side];
    const std::string& text = list.Entry(line).Text;
    if (AsteriskEligible(text))
        list.SetText(line, text + std::string(ConditionMark));
}

void frmBrawlpad::UnmarkLine(Side side, Long line) {
    ListBox& list = lstArmies[side];
    const std::string& text = list.Entry(line).Text;
    // A line without conditions may be without a mark too, when it was selected together with marked ones.
    if (RemoveAsteriskEligible(text, Health(side)(line + 1)) && text.ends_with(ConditionMark))
        list.SetText(line, text.substr(0, text.size() - ConditionMark.size()));
}

void frmBrawlpad::EvaluateHealthConflicts(Side side) {
    const Trap trap{"frmBrawlpad::EvaluateHealthConflicts"};
    const std::vector<Long> selected = lstArmies[side].SelectedLines();
    if (selected.size() <= 1) {
        DisableMenuItems();
        EnableMenuItems();
        return;
    }
    const HealthArray& health = Health(side);
    const bool blessed = std::ranges::any_of(selected, [&](Long line) { return health(line + 1).Blessed; });
    const bool ailing = std::ranges::any_of(
        selected, [&](Long line) { return health(line + 1).Diseased || health(line + 1).Poisoned; });
    mnuPopupItem[BlessedItem].Enabled = !ailing;
    mnuPopupItem[DiseasedItem].Enabled = !blessed;
    mnuPopupItem[PoisonedItem].Enabled = !blessed;
}

void frmBrawlpad::DisableMenuItems() {
    const Trap trap{"frmBrawlpad::DisableMenuItems"};
    if (mnuPopupItem[BlessedItem].Checked) {
        mnuPopupItem[DiseasedItem].Enabled = false;
        mnuPopupItem[PoisonedItem].Enabled = false;
    }
    if (mnuPopupItem[DiseasedItem].Checked || mnuPopupItem[PoisonedItem].Checked)
        mnuPopupItem[BlessedItem].Enabled = false;
}

void frmBrawlpad::EnableMenuItems() {
    const Trap trap{"frmBrawlpad::EnableMenuItems"};
    if (!mnuPopupItem[BlessedItem].Checked) {
        mnuPopupItem[DiseasedItem].Enabled = true;
        mnuPopupItem[PoisonedItem].Enabled = true;
    }
    if (!mnuPopupItem[DiseasedItem].Checked && !mnuPopupItem[PoisonedItem].Checked)
        mnuPopupItem[BlessedItem].Enabled = true;
}

} // namespace vorhaven
