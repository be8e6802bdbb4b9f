// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/frmBrawlpad.h"

#include "base/Conversion.h"
#include "base/ForeignText.h"
#include "engine/MBattleCalc.h"
#include "model/Terrain.h"

namespace vorhaven {

frmBrawlpad::frmBrawlpad(const CatalogueProvider& provider, Toolkit& toolkit)
    : Form("Vorhaven 3 Combat Calculator"), provider_(&provider), toolkit_(&toolkit),
      moreResults_(toolkit, [this] { return NumBattles(); }) {
    pbBattleProgress.Visible = false;
    for (const Side side : BothSides) {
        for (Control* control :
             std::initializer_list<Control*>{&cboArmies[side], &lstArmies[side], &sscClearList[side],
                                             &sscDup[side], &txtDup[side], &updDup[side]})
            control->Index = static_cast<int>(side);
        if (const std::string origin = provider.Origin(); !origin.empty())
            cboArmies[side].Note = "Units from " + Visible(origin);
        for (Control* control :
             std::initializer_list<Control*>{&cboArmies[side], &lstArmies[side], &sscClearList[side],
                                             &sscDup[side], &txtDup[side], &ArmyUp(side), &ArmyDown(side)})
            control->GotFocus = [this, side] { sideUsedLast_ = side; };
        cboArmies[side].Click = [this, side] { cboArmies_Click(side); };
        lstArmies[side].DblClick = [this, side] { lstArmies_DblClick(side); };
        sscClearList[side].Click = [this, side] { sscClearList_Click(side); };
        sscDup[side].Click = [this, side] { sscDup_Click(side); };
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
    mnuEditHero.Click = [this] { mnuEditHero_Click(); };

    txtCombatDice.Change = [this] { txtCombatDice_Change(); };
    txtNumSimulations.KeyPress = txtNumSimulations_KeyPress;
    txtNumSimulations.Change = [this] { txtNumSimulations_Change(); };
    txtNumSimulations.LostFocus = [this] { txtNumSimulations_LostFocus(); };
    cboTerrain.Click = [this] { cboTerrain_Click(); };
    cmdAttack.Click = [this] { cmdAttack_Click(); };
    sscAbort.Click = [this] { sscAbort_Click(); };
    sscExit.Click = [this] { sscExit_Click(); };
    sscMoreResults.Click = [this] { sscMoreResults_Click(); };
    OddsFrame.cmdUseIt.Click = [this] { cmdUseIt_Click(); };
    OddsFrame.cmdAdvice.Click = [this] { toolkit_->Show(advice_); };
    advice_.WorkBegun = [this] { BeginAdvising(); };
    sscSwapSides.Click = [this] { sscSwapSides_Click(); };
    mnuUndo.Click = [this] { Undo(); };
    mnuRedo.Click = [this] { Redo(); };
    mnuCopy.Click = [this] { Copy(FocusedSide()); };
    mnuReadOut.Click = [this] { ReadOut.Raise(ResultsInWords()); };
    mnuCopyBattle.Click = [this] { toolkit_->SetClipboardText(BattleAsText()); };
    mnuPaste.Click = [this] { Paste(sideUsedLast_, toolkit_->ClipboardText()); };
    for (Control* control :
         std::initializer_list<Control*>{&lstArmies.Attacker, &lstArmies.Defender, &cboTerrain, &cboCityLevel,
                                         &txtCombatDice, &txtNumSimulations})
        touching_.push_back(control->Changed.Connect([this] { SetupTouched.Raise(); }));
    touching_.push_back(txtNumSimulations.Changed.Connect([this] { OfferMoreResults(); }));
}

void frmBrawlpad::Form_Load() {
    const Trap trap{"frmBrawlpad::Form_Load"};
    CentreOn(toolkit_->ScreenSize());
    gobjCAttArmies = CAttackArmies{assemblyHost_};
    gobjCDefArmies = CAttackArmies{assemblyHost_};
    SetTerrain(Terrains::Field);
    CombatDice = CombatDiceRange.AtFirst;
    SetNumBattles(ToText(NumBattlesRange.AtFirst));
    units_.emplace(*provider_);
    LoadArmyCombos();
    LoadTerrainCombo();
    LoadCityLevelCombo();
    sscMoreResults.Enabled = false;
    sscAbort.Enabled = false;
    sschkViewStats.Checked = false;
    txtNumSimulations.SetText(ToText(NumBattlesRange.AtFirst));
    cboCityLevel.Enabled = false;
    cboTerrain.SetListIndex(Terrains::IndexOf(Terrains::Field));
    history_ = SetupHistory{CurrentSetup()};
    ShowState();
}

void frmBrawlpad::sscMoreResults_Click() {
    const Trap trap{"frmBrawlpad::sscMoreResults_Click"};
    toolkit_->ShowBusy(true);
    moreResults_.RunBackground =
        lastRun_.Background({gobjCAttArmies->Count(), gobjCDefArmies->Count()}, *units_);
    toolkit_->Show(moreResults_);
    toolkit_->ShowBusy(false);
}

void frmBrawlpad::OfferMoreResults() {
    // A field that is being edited may be empty; leaving it puts a number into it.
    const std::string& text = txtNumSimulations.Text();
    const auto asked = NumberIn(text);
    sscMoreResults.Offered = text.empty() || (asked && *asked <= MBattleCalc::BattleResults.RowCount());
}

void frmBrawlpad::sscExit_Click() {
    const Trap trap{"frmBrawlpad::sscExit_Click"};
    Unload();
}

void frmBrawlpad::Close() {
    const Trap trap{"frmBrawlpad::Close"};
    if (IsRunUnderWay())
        MBattleCalc::AbortRequested = true;
}

} // namespace vorhaven
