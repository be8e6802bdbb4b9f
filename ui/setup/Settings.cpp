#include "model/Conversion.h"
#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {

frmBrawlpad::frmBrawlpad(const CatalogueProvider& provider, Windows& windows)
    : Form("Vorhaven 3 Combat Calculator"), provider_(&provider), windows_(&windows),
      moreResults_(windows, [this] { return NumBattles(); }) {
    pbBattleProgress.Visible = false;
    for (const Side side : {Side::Attack, Side::Defend}) {
        const std::size_t i = Of(side);
        for (Control* control : std::initializer_list<Control*>{
                 &cboArmies[i], &lstArmies[i], &sscClearList[i], &sscDup[i], &txtDup[i], &updDup[i]})
            control->Index = static_cast<int>(i);
        cboArmies[i].Click = [this, side] { cboArmies_Click(side); };
        lstArmies[i].DblClick = [this, side] { lstArmies_DblClick(side); };
        sscClearList[i].Click = [this, side] { sscClearList_Click(side); };
        sscDup[i].Click = [this, side] { sscDup_Click(side); };
    }
    for (std::size_t index = 0; index < sscListArrow.size(); ++index) {
        sscListArrow[index].Index = static_cast<int>(index);
        sscListArrow[index].Click = [this, index] { sscListArrow_Click(index); };
    }
    for (std::size_t index = 1; index < mnuPopupItem.size(); ++index)
        mnuPopupItem[index].Click = [this, index] { mnuPopupItem_Click(index); };
    for (std::size_t index = 0; index < mnuPopupItemMedals.size(); ++index)
        mnuPopupItemMedals[index].Click = [this, index] { mnuPopupItemMedals_Click(index); };
    mnuPopupDelete.Click = [this] { mnuPopupDelete_Click(); };

    txtCombatDice.Change = [this] { txtCombatDice_Change(); };
    txtNumSimulations.KeyPress = txtNumSimulations_KeyPress;
    txtNumSimulations.Change = [this] { txtNumSimulations_Change(); };
    txtNumSimulations.LostFocus = [this] { txtNumSimulations_LostFocus(); };
    cboTerrain.Click = [this] { cboTerrain_Click(); };
    cmdAttack.Click = [this] { cmdAttack_Click(); };
    sscAbort.Click = [this] { sscAbort_Click(); };
    sscExit.Click = [this] { sscExit_Click(); };
    sscMoreResults.Click = [this] { sscMoreResults_Click(); };
}

void frmBrawlpad::Form_Load() {
    const Trap trap{"frmBrawlpad::Form_Load"};
    CentreOn(windows_->ScreenSize());
    gobjCAttArmies = CAttackArmies{*this};
    gobjCDefArmies = CAttackArmies{*this};
    SetTerrain("field");
    CombatDice = 20;
    SetNumBattles("1000");
    armies_ = &provider_->GetTable(CatalogueProvider::Selector::Armies);
    heroes_ = &provider_->GetTable(CatalogueProvider::Selector::Heroes);
    LoadArmyCombos();
    LoadTerrainCombo();
    LoadCityLevelCombo();
    sscMoreResults.Enabled = false;
    sscAbort.Enabled = false;
    sschkViewStats.Checked = false;
    txtNumSimulations.SetText("1000");
    cboCityLevel.Enabled = false;
    cboTerrain.SetListIndex(4);
}

Long frmBrawlpad::NumBattles() const {
    return ToLong(numBattles_);
}

void frmBrawlpad::LoadArmyCombos() {
    const Trap trap{"frmBrawlpad::LoadArmyCombos"};
    for (ComboBox& picker : cboArmies) {
        for (Long i = 0; i < NumArmies(); i += 1)
            picker.AddItem(CellText(Armies()(i, ArmyColumn::Name)),
                           CellNumber(Armies()(i, ArmyColumn::Identifier)));
        for (Long i = 0; i < NumHeroes(); i += 1)
            picker.AddItem(CellText(Heroes()(i, HeroColumn::Name)),
                           NumArmies() + CellNumber(Heroes()(i, HeroColumn::Identifier)));
        picker.AddItem(NoArmy, NumArmies() + NumHeroes());
    }
}

void frmBrawlpad::LoadTerrainCombo() {
    const Trap trap{"frmBrawlpad::LoadTerrainCombo"};
    for (const char* terrain : {"city", "ice", "hills", "marsh", "field", "woods"})
        cboTerrain.AddItem(terrain);
}

void frmBrawlpad::LoadCityLevelCombo() {
    const Trap trap{"frmBrawlpad::LoadCityLevelCombo"};
    cboCityLevel.AddItem("Village (+1)", 1);
    cboCityLevel.AddItem("Castle (+2)", 2);
    cboCityLevel.AddItem("Citadel (+3)", 3);
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
    const bool passes = key == TextBox::Backspace || key == TextBox::Escape || (key >= '0' && key <= '9');
    return passes ? key : 0;
}

void frmBrawlpad::txtNumSimulations_Change() {
    const Trap trap{"frmBrawlpad::txtNumSimulations_Change"};
    SetNumBattles(txtNumSimulations.Text());
}

void frmBrawlpad::txtNumSimulations_LostFocus() {
    const Trap trap{"frmBrawlpad::txtNumSimulations_LostFocus"};
    const std::string& text = txtNumSimulations.Text();
    if (text.empty() || ToLong(text) < 10)
        txtNumSimulations.SetText("10");
    else
        txtNumSimulations.SetText(text.substr(0, text.size() - 1) + "0");
}

void frmBrawlpad::sscMoreResults_Click() {
    const Trap trap{"frmBrawlpad::sscMoreResults_Click"};
    windows_->ShowBusy(true);
    windows_->Show(moreResults_);
    windows_->ShowBusy(false);
}

void frmBrawlpad::sscExit_Click() {
    const Trap trap{"frmBrawlpad::sscExit_Click"};
    Unload();
}

} // namespace vorhaven
