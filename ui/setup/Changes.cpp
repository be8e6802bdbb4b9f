// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "engine/MBattleCalc.h"
#include "ui/setup/WinMargin.h"
#include "ui/setup/frmBrawlpad.h"

#include <utility>

namespace vorhaven {
namespace {

std::vector<ListEntry> EntriesOf(const std::vector<SetupLine>& lines) {
    std::vector<ListEntry> entries;
    entries.reserve(lines.size());
    for (const SetupLine& line : lines)
        entries.push_back(line.Entry);
    return entries;
}

/// The field whose text alone two set-ups differ in; null where more differs.
std::string Setup::*OnlyFieldChanged(const Setup& before, const Setup& after) {
    for (const auto field : {&Setup::CombatDice, &Setup::NumBattles}) {
        Setup changed = before;
        changed.*field = after.*field;
        if (changed == after)
            return field;
    }
    return nullptr;
}

} // namespace

Setup frmBrawlpad::CurrentSetup() const {
    Setup setup;
    for (std::size_t side = 0; side < lstArmies.size(); ++side)
        for (Long line = 0; line < lstArmies[side].ListCount(); ++line)
            setup.Sides[side].push_back({lstArmies[side].Entry(line), health_[side](line + 1)});
    setup.Terrain = cboTerrain.ListIndex();
    setup.CityLevel = cboCityLevel.ListIndex();
    setup.IsTerrainLocked = !cboTerrain.Enabled;
    setup.CombatDice = txtCombatDice.Text();
    setup.NumBattles = txtNumSimulations.Text();
    return setup;
}

void frmBrawlpad::Settle() {
    const Setup now = CurrentSetup();
    if (now != settled_) {
        const auto field = OnlyFieldChanged(settled_, now);
        history_.Note(std::exchange(settled_, now), field);
    }
    ShowState();
    ShowOdds();
}

void frmBrawlpad::Undo() {
    Settle();
    if (const auto before = history_.Undo(settled_))
        Restore(*before);
}

void frmBrawlpad::Redo() {
    Settle();
    if (const auto after = history_.Redo(settled_))
        Restore(*after);
}

void frmBrawlpad::Restore(const Setup& setup) {
    for (std::size_t side = 0; side < lstArmies.size(); ++side) {
        const ListBox::Selection selection = lstArmies[side].CurrentSelection();
        lstArmies[side].SetEntries(EntriesOf(setup.Sides[side]));
        lstArmies[side].Select(selection);
        health_[side] = {};
        for (Long line = 0; line < SizeOf(setup.Sides[side]); ++line)
            health_[side](line + 1) = setup.Sides[side][line.Index()].Health;
    }
    cboTerrain.SetListIndex(setup.Terrain);
    cboTerrain.Enabled = !setup.IsTerrainLocked;
    cboCityLevel.SetListIndex(setup.CityLevel);
    txtCombatDice.SetText(setup.CombatDice);
    txtNumSimulations.SetText(setup.NumBattles);
    // The text may stem from the midst of its typing, and the field will not be left again.
    if (ActiveControl() != &txtNumSimulations)
        txtNumSimulations_LostFocus();
    settled_ = CurrentSetup();
    ShowState();
    ShowOdds();
}

void frmBrawlpad::ShowState() {
    for (std::size_t side = 0; side < lstArmies.size(); ++side) {
        ListBox& list = lstArmies[side];
        for (Long line = 0; line < list.ListCount(); ++line)
            list.SetNote(line, InWords(health_[side](line + 1)));
        lblCount[side].Caption = ToText(list.ListCount()) + " of " + ToText(MaxLines);
    }
    mnuUndo.Enabled = history_.CanUndo();
    mnuRedo.Enabled = history_.CanRedo();
    lblTerrainLocked.Caption =
        cboTerrain.Enabled ? "" : "More than " + ToText(LinesPerStack) + " defenders stand in a city";
    lblOutOfDate.Caption = AreResultsOutOfDate() ? "before the latest changes" : "";
}

bool frmBrawlpad::AreResultsOutOfDate() const {
    if (!fought_)
        return false;
    BattleDescription now = DescribeBattle();
    for (auto& lines : now.Sides)
        for (BattleDescription::Line& line : lines)
            if (!line.Hero)
                line.Hero = UntouchedHero(line.Datum);
    return now != *fought_;
}

void frmBrawlpad::sscSwapSides_Click() {
    const Trap trap{"frmBrawlpad::sscSwapSides_Click"};
    const Setup setup = CurrentSetup();
    lstArmies[0].SetEntries(EntriesOf(setup.Sides[1]));
    lstArmies[1].SetEntries(EntriesOf(setup.Sides[0]));
    std::swap(health_[0], health_[1]);
    AdjustDefTerrain(Side::Defend, lstArmies[1].ListCount());
}

void frmBrawlpad::ShowWinPercent(const std::string& text) {
    lblAttWinPercent.Caption = text;
    const MBattleCalc::ResultsTable& results = MBattleCalc::BattleResults;
    Long wins = 0;
    for (Long battle = 1; battle <= results.RowCount(); ++battle)
        wins += results(battle, MBattleCalc::ResultColumn::Winner);
    const WinMargin margin = MarginOf(wins, results.RowCount());
    WinMarginInWords = margin.Sentence;
    lblWinMargin.Caption = margin.Figure;
    fought_ = assembled_;
    SetupTouched.Raise();
}

} // namespace vorhaven
