// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "model/Terrain.h"
#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {

Long frmBrawlpad::NumBattles() const {
    return ToLong(numBattles_);
}

void frmBrawlpad::LoadArmyCombos() {
    const Trap trap{"frmBrawlpad::LoadArmyCombos"};
    for (const Side side : BothSides)
        for (const ListEntry& unit : units_->Entries())
            cboArmies[side].AddItem(unit.Text, unit.Datum, units_->Details(unit.Datum));
}

void frmBrawlpad::LoadTerrainCombo() {
    const Trap trap{"frmBrawlpad::LoadTerrainCombo"};
    for (const char* terrain : Terrains::All)
        cboTerrain.AddItem(terrain);
}

void frmBrawlpad::LoadCityLevelCombo() {
    const Trap trap{"frmBrawlpad::LoadCityLevelCombo"};
    Long level;
    for (const char* name : CityLevels)
        cboCityLevel.AddItem(name, ++level);
}

void frmBrawlpad::cboArmies_Click(Side side) {
    const Trap trap{"frmBrawlpad::cboArmies_Click"};
    AddArmyToList(side);
}

void frmBrawlpad::txtCombatDice_Change() {
    const Trap trap{"frmBrawlpad::txtCombatDice_Change"};
    CombatDice = ToLong(txtCombatDice.Text());
}

int frmBrawlpad::txtNumSimulations_KeyPress(int key) {
    const Trap trap{"frmBrawlpad::txtNumSimulations_KeyPress"};
    const bool passes = key == TextBox::Backspace || key == TextBox::Escape || (key >= '0' && key <= '9');
    return passes ? key : 0;
}

void frmBrawlpad::txtNumSimulations_Change() {
    const Trap trap{"frmBrawlpad::txtNumSimulations_Change"};
    SetNumBattles(txtNumSimulations.Text());
}

void frmBrawlpad::txtNumSimulations_LostFocus() {
    const Trap trap{"frmBrawlpad::txtNumSimulations_LostFocus"};
    txtNumSimulations.SetText(CompletedNumBattles(txtNumSimulations.Text()));
}

void frmBrawlpad::cboTerrain_Click() {
    const Trap trap{"frmBrawlpad::cboTerrain_Click"};
    SetTerrain(cboTerrain.Text());
    if (Terrain() == Terrains::City) {
        cboCityLevel.Enabled = true;
        cboCityLevel.SetListIndex(0);
    } else {
        cboCityLevel.SetListIndex(-1);
        cboCityLevel.Enabled = false;
    }
}

void frmBrawlpad::AdjustDefTerrain(Side side, Long lineCount) {
    const Trap trap{"frmBrawlpad::AdjustDefTerrain"};
    if (side != Side::Defender)
        return;
    if (!IsCityForced(lineCount)) {
        cboTerrain.Enabled = true;
        return;
    }
    cboTerrain.SetListIndex(Terrains::IndexOf(Terrains::City));
    cboTerrain.Enabled = false;
}

} // namespace vorhaven
