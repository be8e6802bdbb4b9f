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
        ShowLosses(losses.Attacker, of(&Odds::BattleOdds::Attackers));
        ShowLosses(losses.Defender, of(&Odds::BattleOdds::Defenders));
    }
    attackerShare_.reset();
    if (odds && odds->Won + odds->Lost > 0.0)
        attackerShare_ = odds->Won / (odds->Won + odds->Lost);
    lblChance.Attacker.Caption = odds ? PercentText(odds->AttackerWins()) : Unknown;
    lblChance.Defender.Caption = odds ? PercentText(odds->DefenderWins()) : Unknown;
    lblSentence.Caption = odds ? "The attacker wins " + lblChance.Attacker.Caption.Get() +
                                     " of battles, the defender " + lblChance.Defender.Caption.Get()
                               : "";
    lblState.Caption = odds && odds->Endless > 0.0 ? "In " + PercentText(odds->NeverEnds()) +
                                                         " of battles neither side can ever win. " + state
                                                   : state;
    // The bar changes with the share alone, which is no property of its own.
    fraOdds.Changed.Raise();
}

std::string OddsPanel::LossesInWords(const Row& row, Side side) const {
    const LossLabels& losses = row.Losses[side];
    const LossLabels& names = lblColumn[side];
    return losses.Armies.Caption.Get() + ' ' + names.Armies.Caption.Get() + ", " +
           losses.Turns.Caption.Get() + ' ' + names.Turns.Caption.Get();
}

std::string OddsPanel::AsText() const {
    if (lblSentence.Caption.Get().empty())
        return {};
    std::string text = lblSentence.Caption.Get() + '\n';
    const auto losses = [this](const Row& row, Side side) {
        return ToLower(lblSide[side].Caption.Get()) + ' ' + LossesInWords(row, side);
    };
    for (const Row& row : Rows)
        text += lblLosses.Caption.Get() + ", " + ToLower(row.Caption.Caption.Get()) + ": " +
                losses(row, Side::Attacker) + "; " + losses(row, Side::Defender) + '\n';
    if (const std::string& state = lblState.Caption; !state.empty())
        text += '(' + state + ")\n";
    return text;
}

std::string OddsPanel::InWords() const {
    std::string words = fraOdds.Caption.Get() + ": ";
    if (const std::string& chances = lblSentence.Caption; !chances.empty()) {
        words += chances + ". " + lblLosses.Caption.Get();
        for (const Side side : BothSides)
            words += "; " + lblSide[side].Caption.Get() + " " + LossesInWords(Rows.front(), side);
        words += ".";
        if (!lblState.Caption.Get().empty())
            words += " ";
    }
    return words + lblState.Caption.Get();
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
    return lblSide.Attacker.Caption.Get() + " " + lblChance.Attacker.Caption.Get() +
           (change.empty() ? "" : ", " + change.substr(0, change.find(" than ")));
}

void OddsPanel::ShowLosses(LossLabels& labels, const std::optional<Odds::Losses>& losses) {
    labels.Armies.Caption = losses ? ToFixedText(losses->Armies, 1) : Unknown;
    labels.Turns.Caption = losses ? ToFixedText(losses->Turns, 1) : Unknown;
}

} // namespace vorhaven
