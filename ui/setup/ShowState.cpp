// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {

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
    ResultsFrame.lblOutOfDate.Caption = lastRun_.RemarkOnResults(now, *units_);
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
