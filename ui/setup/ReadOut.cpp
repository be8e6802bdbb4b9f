// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {

std::string frmBrawlpad::ResultsInWords() const {
    std::string words = fraQuickResults.Caption.Get();
    if (const std::string& remark = lblOutOfDate.Caption; !remark.empty())
        words += ", " + remark;
    words += ": ";
    if (lastRun_.Shown() != nullptr) {
        words += lblAttWinPercentCaption.Caption.Get() + " " + lblAttWinPercent.Caption.Get() + ", " +
                 lblWinMargin.Caption.Get();
        for (std::size_t column = FirstAverage; column <= LastAverage; ++column)
            words += "; " + lblAvgCaption[column].Caption.Get() + " " + lblAvg[column].Caption.Get();
    } else {
        words += "none";
    }
    words += ". " + OddsFrame.fraOdds.Caption.Get() + ": ";
    if (const std::string& chances = OddsFrame.lblSentence.Caption; !chances.empty()) {
        words += chances + ". " + OddsFrame.lblLosses.Caption.Get();
        const OddsPanel::Row& overall = OddsFrame.Rows.front();
        for (const Side side : BothSides)
            words +=
                "; " + OddsFrame.lblSide[side].Caption.Get() + " " + OddsFrame.LossesInWords(overall, side);
        words += ".";
        if (!OddsFrame.lblState.Caption.Get().empty())
            words += " ";
    }
    return words + OddsFrame.lblState.Caption.Get();
}

} // namespace vorhaven
