// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/WinMargin.h"

#include "base/Conversion.h"

#include <cmath>

namespace vorhaven {
namespace {

// Quantiles of the normal distribution for a confidence of 95 %.
constexpr double TwoSided = 1.959964;
constexpr double OneSided = 1.644854;

/// A number of points with one decimal, "57.3".
std::string WithOneDecimal(double points) {
    const Long tenths = RoundToLong(points * 10.0);
    return ToText(tenths.Value() / 10) + '.' + ToText(tenths.Value() % 10);
}

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
        const std::string limit = wins == 0 ? (isSmall ? "below 0.1%" : "at most " + WithOneDecimal(bound) + '%')
                                            : (isSmall ? "above 99.9%"
                                                       : "at least " + WithOneDecimal(100.0 - bound) + '%');
        return {limit, "With a confidence of 95%, the attacker's chance of winning is " + limit};
    }
    const double p = wins.Value() / n;
    constexpr double square = TwoSided * TwoSided;
    const double halfWidth =
        100.0 * TwoSided / (1.0 + square / n) * std::sqrt(p * (1.0 - p) / n + square / (4.0 * n * n));
    const std::string figure = halfWidth < leastShown ? "< 0.1" : WithOneDecimal(halfWidth);
    return {"\u00B1 " + figure, "With a confidence of 95%, the attacker's chance of winning is within " +
                                    (halfWidth < leastShown ? "0.1" : figure) + " points of this percentage"};
}

} // namespace vorhaven
