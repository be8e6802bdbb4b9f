// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/results/LossSummary.h"

#include "base/Conversion.h"

#include <functional>
#include <numeric>

namespace vorhaven {
namespace {

/// "no battle" where there is nothing to divide by.
std::string Percent(double part, Long whole) {
    return whole == 0 ? "no battle" : ToFixedText(part / whole.Value() * 100.0, 1) + "%";
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

std::string LossSummary::Sentence(const std::string& side) const {
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
    const auto line = [&](const char* words, std::ptrdiff_t first, std::ptrdiff_t last) {
        const auto fought =
            std::transform_reduce(Counts.begin() + first, Counts.begin() + last + 1, 0.0, std::plus<>(),
                                  [](Long count) { return static_cast<double>(count.Value()); });
        std::string text = "\n" + (words + (" " + ToText(losses))) + ": " + Percent(fought, Fought);
        if (exact)
            text += " (exact odds " +
                    Percent(std::accumulate(exact->begin() + first, exact->begin() + last + 1, 0.0), 1) + ")";
        return text;
    };
    std::string details = Counted(losses, "army", "armies") +
                          " destroyed: " + ToText(Counts[static_cast<std::size_t>(losses)]) + " of " +
                          ToText(Fought) + " battles, " +
                          Counted(turns, "production turn", "production turns") + " lost";
    details += line("exactly", losses, losses);
    details += line("at most", 0, losses);
    details += line("at least", losses, LossCounts - 1);
    if (Fought < Battles)
        details += "\nnot fought: " + ToText(Battles - Fought) + " of " + ToText(Battles) + " battles" +
                   (losses == 0 ? ", charted as battles without losses" : "");
    return details;
}

} // namespace vorhaven
