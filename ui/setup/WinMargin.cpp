// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/WinMargin.h"

#include "base/Conversion.h"

#include <cmath>

namespace vorhaven {
namespace {

// Quantiles of the normal distribution for a confidence of 95 %.
constexpr double TwoSided = 1.959964;
constexpr double OneSided = 1.644854;

/// The bound of the score interval around 0 in n, in points; it lies as far below 100 for n in n.
double BoundOfNone(double n) {
    constexpr double square = OneSided * OneSided;
    return 100.0 * square / (n + square);
}

} // namespace

WinMargin MarginOf(Long wins, Long battles) {
    const double n = battles.Value();
    constexpr double leastShown = 0.05; // what rounds to 0.1
    if (wins == 0 || wins == battles) {
        const double bound = BoundOfNone(n);
        const bool isSmall = bound < leastShown;
        const std::string limit =
            wins == 0 ? (isSmall ? "below 0.1%" : "at most " + ToFixedText(bound, 1) + '%')
                      : (isSmall ? "above 99.9%" : "at least " + ToFixedText(100.0 - bound, 1) + '%');
        return {limit, "With a confidence of 95%, the attacker's chance of winning is " + limit};
    }
    const double p = wins.Value() / n;
    constexpr double square = TwoSided * TwoSided;
    const double middle = 100.0 * (p + square / (2.0 * n)) / (1.0 + square / n);
    const double halfWidth =
        100.0 * TwoSided / (1.0 + square / n) * std::sqrt(p * (1.0 - p) / n + square / (4.0 * n * n));
    const std::string sentence = "With a confidence of 95%, the attacker's chance of winning is ";
    if (halfWidth < leastShown)
        return {"\u00B1 < 0.1", sentence + "within 0.1 points of this percentage"};
    return {"\u00B1 " + ToFixedText(halfWidth, 1), sentence + "between " +
                                                       ToFixedText(middle - halfWidth, 1) + "% and " +
                                                       ToFixedText(middle + halfWidth, 1) + "%"};
}

} // namespace vorhaven
