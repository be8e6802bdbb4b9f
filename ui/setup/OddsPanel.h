// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Side.h"
#include "odds/BattleOdds.h"
#include "ui/controls/Controls.h"

#include <array>
#include <optional>
#include <string>

namespace vorhaven {

/// The main window's frame of exact odds: who wins, and what the battle costs both sides.
class OddsPanel {
public:
    Frame fraOdds{"Exact Odds"};
    PerSide<Label> lblSide{Label{"Attacker"}, Label{"Defender"}};
    PerSide<Label> lblChance{
        Label{Unknown, "The attacker wins exactly this percentage of battles on average"},
        Label{Unknown, "The defender wins exactly this percentage of battles on average"}};
    /// By how many points the attacker's chance is another one than before the last change of the set-up, and
    /// the same in words; empty where there is nothing to compare.
    Label lblChange;
    Property<std::string> ChangeInWords{lblChange, {}};
    /// Both chances in one sentence; empty without odds.
    Label lblSentence;

    /// What a side loses, in armies and in production turns.
    struct LossLabels {
        Label Armies;
        Label Turns;
    };
    /// A row of the table of expected losses.
    struct Row {
        Label Caption;
        PerSide<LossLabels> Losses;
    };
    Label lblLosses{"Expected losses"};
    PerSide<LossLabels> lblColumn{{Label{"armies"}, Label{"turns"}}, {Label{"armies"}, Label{"turns"}}};
    std::array<Row, 3> Rows{MakeRow("Overall"), MakeRow("When the attacker wins"),
                            MakeRow("When the defender wins")};
    /// What the best order of the attackers comes to, and the button that puts them into it: hidden while
    /// there is none to use.
    Label lblBestOrder;
    Button cmdUseIt{"&Use It", "Put the attacking armies into their best order"};
    /// What the figures are of, or why there are none.
    Label lblState;
    Button cmdAdvice{"Ad&vice...", "See what each army is worth, and what would win more"};

    /// The attacker's part of the bar, 0 to 1; nothing without odds.
    [[nodiscard]] std::optional<double> AttackerShare() const { return attackerShare_; }

    /// A side's losses in a row, "3.1 armies, 5.0 turns".
    [[nodiscard]] std::string LossesInWords(const Row& row, Side side) const;

    /// All that is shown, as lines of text; empty without odds.
    [[nodiscard]] std::string AsText() const;
    /// The same in sentences; without odds, why there are none.
    [[nodiscard]] std::string InWords() const;

    /// The attacker's chance and how it has changed, "Attacker 83.1%, 3.5 points more"; empty without odds.
    [[nodiscard]] std::string Announcement() const;

    /// Shows odds, or that there are none, and a sentence on them.
    void Show(const std::optional<Odds::BattleOdds>& odds, const std::string& state);
    /// Compares the attacker's chance of winning with the one before.
    void ShowChange(const std::optional<Chance>& before, const std::optional<Chance>& now);

private:
    /// Shown where there is no figure.
    static constexpr const char* Unknown = "–";

    static Row MakeRow(const char* caption) {
        return {Label{caption}, {{Label{Unknown}, Label{Unknown}}, {Label{Unknown}, Label{Unknown}}}};
    }
    static void ShowLosses(LossLabels& labels, const std::optional<Odds::Losses>& losses);

    std::optional<double> attackerShare_;
};

} // namespace vorhaven
