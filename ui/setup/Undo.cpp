// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "model/Terrain.h"
#include "ui/setup/frmBrawlpad.h"

#include <algorithm>

namespace vorhaven {

Setup frmBrawlpad::CurrentSetup() const {
    Setup setup;
    for (const Side side : BothSides)
        for (Long line = 0; line < lstArmies[side].ListCount(); ++line) {
            const ListEntry& entry = lstArmies[side].Entry(line);
            const auto hero = heroValues_.find(entry.Id);
            setup.Sides[side].push_back(
                {entry.Datum, entry.Text, Health(side)(line + 1),
                 hero == heroValues_.end() ? std::nullopt : std::optional{hero->second}, entry.Id});
        }
    setup.Terrain = Terrain();
    setup.IsTerrainLocked = !cboTerrain.Enabled;
    setup.CityLevel = cboCityLevel.ListIndex() + 1;
    setup.CombatDice = CombatDice;
    setup.NumBattles = numBattles_;
    return setup;
}

void frmBrawlpad::PutInPlace(const Setup& setup) {
    heroValues_.clear();
    for (const Side side : BothSides) {
        const std::vector<SetupLine>& lines = setup.Sides[side];
        const ListBox::Selection before = lstArmies[side].CurrentSelection();
        // Where an army of before stands now, -1 for nowhere.
        const auto placeOf = [&](Long line) -> Long {
            const std::int32_t id = line < 0 ? 0 : lstArmies[side].Entry(line).Id;
            const auto place = std::ranges::find(lines, id, &SetupLine::Id);
            return id == 0 || place == lines.end() ? Long{-1}
                                                   : static_cast<std::int32_t>(place - lines.begin());
        };
        ListBox::Selection selection{placeOf(before.Current), {}};
        for (const Long line : before.Lines)
            selection.Lines.push_back(placeOf(line));
        std::vector<ListEntry> entries;
        Health(side) = {};
        for (const SetupLine& line : lines) {
            entries.push_back(line.Id == 0 ? NewLine(line.Text, line.Unit)
                                           : ListEntry{line.Text, line.Unit, line.Id});
            Health(side)(SizeOf(entries)) = line.Health;
            if (line.Hero)
                heroValues_[entries.back().Id] = *line.Hero;
        }
        lstArmies[side].SetEntries(entries);
        lstArmies[side].Select(selection);
    }
    cboTerrain.SetListIndex(Terrains::IndexOf(setup.Terrain));
    cboTerrain.Enabled = !setup.IsTerrainLocked;
    cboCityLevel.SetListIndex(setup.CityLevel - 1);
    txtCombatDice.SetText(ToText(setup.CombatDice));
    txtNumSimulations.SetText(setup.NumBattles);
}

void frmBrawlpad::Settle() {
    if (history_.Note(CurrentSetup()))
        liveOdds_.BeginStep();
    ShowState();
    if (const std::string end = lastRun_.TakeAnnouncement(); !end.empty())
        ReadOut.Raise(end + " " + ResultsInWords());
}

void frmBrawlpad::Undo() {
    Settle();
    if (const auto before = history_.Undo())
        GoTo(*before);
}

void frmBrawlpad::Redo() {
    Settle();
    if (const auto after = history_.Redo())
        GoTo(*after);
}

void frmBrawlpad::GoTo(const Setup& setup) {
    PutInPlace(setup);
    // The text may stem from the midst of its typing, and the field will not be left again.
    if (ActiveControl() != &txtNumSimulations)
        txtNumSimulations_LostFocus();
    history_.Correct(CurrentSetup());
    liveOdds_.BeginStep();
    ShowState();
}

void frmBrawlpad::ShowState() {
    for (const Side side : BothSides) {
        ListBox& list = lstArmies[side];
        for (Long line = 0; line < list.ListCount(); ++line)
            list.SetNote(line, InWords(Health(side)(line + 1)));
        lblCount[side].Caption = ToText(list.ListCount()) + " of " + ToText(MaxLines) +
                                 (list.ListCount() == MaxLines ? ", full" : "");
    }
    mnuUndo.Enabled = history_.CanUndo();
    mnuRedo.Enabled = history_.CanRedo();
    lblTerrainLocked.Caption = RemarkOnTerrain();
    const Setup& now = history_.Current();
    lblOutOfDate.Caption = lastRun_.RemarkOnResults(now, *units_);
    liveOdds_.Show(now, *units_);
    FollowWithAdvice(now);
    for (const Side side : BothSides) {
        lstArmies[side].SetFigures(liveOdds_.SurvivalOf(side));
        lblSurvives[side].Caption = liveOdds_.Odds() ? "survives" : "";
    }
}

std::string frmBrawlpad::RemarkOnTerrain() const {
    if (cboTerrain.Enabled)
        return "";
    if (IsCityForced(lstArmies.Defender.ListCount()))
        return "More than " + ToText(LinesPerStack) + " defenders are always in a city";
    // Clear List leaves the terrain as it is.
    return "Pick a defender to free the terrain";
}

} // namespace vorhaven
