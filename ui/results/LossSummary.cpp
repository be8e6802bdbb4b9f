// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/results/LossSummary.h"

#include "base/Chance.h"
#include "base/Conversion.h"

#include <algorithm>

namespace vorhaven {
namespace {

/// How likely a number of losses from `first` to `last` is.
Chance ChanceOf(const LossOdds& odds, std::size_t first, std::size_t last) {
    Chance chance;
    for (std::size_t losses = 0; losses < odds.size(); ++losses)
        (losses >= first && losses <= last ? chance.For : chance.Against) += odds[losses];
    return chance;
}

std::string Counted(Long number, const std::string& noun, const std::string& nouns) {
    return ToText(number) + " " + (number == 1 ? noun : nouns);
}

} // namespace

std::string AverageText(double average) {
    return average > 0.0 && average < 0.1 ? ToSignificantText(average, 2) : ToFixedText(average, 1);
}

std::optional<double> LossSummary::Mean() const {
    if (Fought == 0)
        return std::nullopt;
    std::int64_t lost = 0;
    for (std::size_t losses = 0; losses < Counts.size(); ++losses)
        lost += static_cast<std::int64_t>(losses) * Counts[losses].Value();
    return static_cast<double>(lost) / Fought.Value();
}

std::string LossSummary::Sentence(Side of) const {
    const std::string side = of == Side::Attacker ? "attacker" : "defender";
    std::string sentence;
    if (Fought < Battles)
        sentence = ToText(Fought) + " of " + ToText(Battles) + " battles were fought. ";
    if (Wins == 0)
        return sentence + "The " + side + " won no battle";
    return sentence + "When the " + side + " wins (" + ToText(Wins) + " of " + ToText(Fought) +
           "): " + AverageText(static_cast<double>(ArmiesLostInWins) / Wins.Value()) + " armies, " +
           AverageText(static_cast<double>(TurnsLostInWins) / Wins.Value()) + " turns lost";
}

std::string LossSummary::Details(std::int32_t losses, Long turns,
                                 const std::optional<LossOdds>& exact) const {
    LossOdds fought{};
    std::ranges::transform(Counts, fought.begin(), &Long::Value);
    const auto line = [&](const char* words, std::size_t first, std::size_t last) {
        std::string text = "\n" + (words + (" " + ToText(losses))) + ": " +
                           (Fought == 0 ? "no battle" : PercentText(ChanceOf(fought, first, last)));
        if (exact)
            text += " (exact odds " + PercentText(ChanceOf(*exact, first, last)) + ")";
        return text;
    };
    const auto own = static_cast<std::size_t>(losses);
    std::string details = Counted(losses, "army", "armies") + " destroyed: " + ToText(Counts[own]) + " of " +
                          ToText(Fought) + " battles, " +
                          Counted(turns, "production turn", "production turns") + " lost";
    details += line("exactly", own, own);
    details += line("at most", 0, own);
    details += line("at least", own, LossCounts - 1);
    if (Fought < Battles)
        details += "\nnot fought: " + ToText(Battles - Fought) + " of " + ToText(Battles) + " battles" +
                   (losses == 0 ? ", charted as battles without losses" : "");
    return details;
}

} // namespace vorhaven
