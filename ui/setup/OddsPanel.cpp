// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/OddsPanel.h"

#include "base/Conversion.h"

namespace vorhaven {

void OddsPanel::Show(const std::optional<Odds::BattleOdds>& odds, const std::string& state) {
    using Odds::SideOdds;
    constexpr std::array given{&SideOdds::Overall, &SideOdds::IfAttackerWins, &SideOdds::IfDefenderWins};
    for (std::size_t row = 0; row < Rows.size(); ++row) {
        auto& losses = Rows[row].Losses;
        const auto of = [&](const SideOdds Odds::BattleOdds::* side) {
            return odds ? (*odds).*side.*given[row] : std::nullopt;
        };
        ShowLosses(losses[0], losses[1], of(&Odds::BattleOdds::Attackers));
        ShowLosses(losses[2], losses[3], of(&Odds::BattleOdds::Defenders));
    }
    attackerShare_.reset();
    if (odds && odds->Won + odds->Lost > 0.0)
        attackerShare_ = odds->Won / (odds->Won + odds->Lost);
    lblChance[0].Caption = odds ? PercentText(odds->AttackerWins()) : Unknown;
    lblChance[1].Caption = odds ? PercentText(odds->DefenderWins()) : Unknown;
    lblSentence.Caption = odds ? "The attacker wins " + lblChance[0].Caption.Get() +
                                     " of battles, the defender " + lblChance[1].Caption.Get()
                               : "";
    lblState.Caption = odds && odds->Endless > 0.0 ? "In " + PercentText(odds->NeverEnds()) +
                                                         " of battles neither side can ever win. " + state
                                                   : state;
    // The bar changes with the share alone, which is no property of its own.
    fraOdds.Changed.Raise();
}

std::string OddsPanel::AsText() const {
    if (lblSentence.Caption.Get().empty())
        return {};
    std::string text = lblSentence.Caption.Get() + '\n';
    for (const Row& row : Rows) {
        std::string losses;
        for (std::size_t column = 0; column < row.Losses.size(); ++column)
            losses += (column == 2  ? "; "
                       : column > 0 ? ", "
                                    : "") +
                      (column % 2 == 0 ? ToLower(lblSide[column / 2].Caption.Get()) + ' ' : "") +
                      row.Losses[column].Caption.Get() + ' ' + lblColumn[column].Caption.Get();
        text += lblLosses.Caption.Get() + ", " + ToLower(row.Caption.Caption.Get()) + ": " + losses + '\n';
    }
    if (const std::string& state = lblState.Caption; !state.empty())
        text += '(' + state + ")\n";
    return text;
}

void OddsPanel::ShowChange(const std::optional<Chance>& before, const std::optional<Chance>& now) {
    if (!before || !now) {
        ChangeInWords = "";
        lblChange.Caption = "";
        return;
    }
    const double points = 100.0 * (ShareOf(*now) - ShareOf(*before));
    ChangeInWords = PointsInWords(points) + " than before the last change (" + PercentText(*before) + ")";
    lblChange.Caption = ToSignedText(points, 1);
}

std::string OddsPanel::Announcement() const {
    if (!attackerShare_)
        return {};
    const std::string& change = ChangeInWords;
    return lblSide[0].Caption.Get() + " " + lblChance[0].Caption.Get() +
           (change.empty() ? "" : ", " + change.substr(0, change.find(" than ")));
}

void OddsPanel::ShowLosses(Label& armies, Label& turns, const std::optional<Odds::Losses>& losses) {
    armies.Caption = losses ? ToFixedText(losses->Armies, 1) : Unknown;
    turns.Caption = losses ? ToFixedText(losses->Turns, 1) : Unknown;
}

} // namespace vorhaven
