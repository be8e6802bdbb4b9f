// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/QuickResultsPanel.h"

#include "ui/setup/WinMargin.h"

namespace vorhaven {

std::string QuickResultsPanel::AsText(const std::string& battles) const {
    if (IsEmpty())
        return {};
    std::string text;
    const auto add = [&text](const Label& caption, const std::string& figure) {
        text += caption.Caption.Get() + " " + figure + "\n";
    };
    if (const std::string& remark = lblOutOfDate.Caption; !remark.empty())
        text += "(" + remark + ")\n";
    add(lblAttWinPercentCaption,
        lblAttWinPercent.Caption.Get() + " (" + lblWinMargin.Caption.Get() + ") of " + battles + " battles");
    for (std::size_t column = FirstAverage; column <= LastAverage; ++column)
        add(lblAvgCaption[column], lblAvg[column].Caption);
    return text;
}

std::string QuickResultsPanel::InWords() const {
    std::string words = fraQuickResults.Caption.Get();
    if (const std::string& remark = lblOutOfDate.Caption; !remark.empty())
        words += ", " + remark;
    words += ": ";
    if (IsEmpty())
        return words + "none.";
    words += lblAttWinPercentCaption.Caption.Get() + " " + lblAttWinPercent.Caption.Get() + ", " +
             lblWinMargin.Caption.Get();
    for (std::size_t column = FirstAverage; column <= LastAverage; ++column)
        words += "; " + lblAvgCaption[column].Caption.Get() + " " + lblAvg[column].Caption.Get();
    return words + ".";
}

void QuickResultsPanel::ShowWinPercent(const std::string& text, Long wins, Long battles) {
    lblAttWinPercent.Caption = text;
    const WinMargin margin = MarginOf(wins, battles);
    WinMarginInWords = margin.Sentence;
    lblWinMargin.Caption = margin.Figure;
}

} // namespace vorhaven
