// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"
#include "ui/controls/Controls.h"

#include <array>
#include <cstdint>
#include <string>

namespace vorhaven {

/// The main window's frame of quick results: what a run comes to.
class QuickResultsPanel {
public:
    Frame fraQuickResults{"Quick Results"};
    Label lblAttWinPercentCaption{"Attacker Wins:"};
    Label lblAttWinPercent{"", "The attacker should win approximately this percentage of battles"};
    /// How far the percentage can be trusted, with the same in words.
    Label lblWinMargin;
    Property<std::string> WinMarginInWords{lblWinMargin, {}};
    /// Says why the quick results are not those of the last run of what is set up; empty while they are.
    Label lblOutOfDate;
    /// The averages of the results columns 2 to 5, indexed by column; 0 and 1 are not used.
    static constexpr std::int32_t FirstAverage = 2;
    static constexpr std::int32_t LastAverage = 5;
    std::array<Label, LastAverage + 1> lblAvgCaption{Label{},
                                                     Label{},
                                                     Label{"Avg. Att. Units Lost:"},
                                                     Label{"Avg. Att. Prod. Turns Lost:"},
                                                     Label{"Avg. Def Units Lost:"},
                                                     Label{"Avg. Def. Prod. Turns Lost:"}};
    std::array<Label, LastAverage + 1> lblAvg{
        Label{},
        Label{},
        Label{"", "The attacker should lose, on average, approximately this number of units"},
        Label{"", "The units lost, on average, by the attacker add up to this many turns of production"},
        Label{"", "The defender should lose, on average, approximately this number of units"},
        Label{"", "The units lost, on average, by the defender add up to this many turns of production"}};

    /// All that is shown, as lines of text, with the number of battles that it is of; empty before the first
    /// run.
    [[nodiscard]] std::string AsText(const std::string& battles) const;
    /// The same in a sentence.
    [[nodiscard]] std::string InWords() const;

    /// Shows the attacker's percentage, `text`, with the margin that `wins` in so many `battles` have.
    void ShowWinPercent(const std::string& text, Long wins, Long battles);
    void ShowAverage(Long column, const std::string& text) { lblAvg[column.Index()].Caption = text; }

private:
    [[nodiscard]] bool IsEmpty() const { return lblAttWinPercent.Caption.Get().empty(); }
};

} // namespace vorhaven
