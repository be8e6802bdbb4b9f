// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace vorhaven {

/// How likely something is, and how likely not: each summed up by itself, for what is left of 1 is mostly
/// rounding errors where little is left. In any unit that both share, so that counts will do; not both 0.
struct Chance {
    double For = 0.0;
    double Against = 0.0;
};

/// A chance as a part of 1.
[[nodiscard]] double ShareOf(const Chance& chance);

/// A difference of chances, in points: "3.5 points more", "13.4 points less".
[[nodiscard]] std::string PointsInWords(double points);

/// A chance in percent, rounded as RoundToLong does, without the sign: "57.3" with one decimal (0 to 6).
/// Only what is impossible is "0.0" and only what is certain "100.0"; what rounds to them is "< 0.1" and
/// "> 99.9", and without decimals, where room is short, "<1" and ">99".
[[nodiscard]] std::string PercentFigure(const Chance& chance, int decimals);

/// The same with the sign: "57.3%".
[[nodiscard]] std::string PercentText(const Chance& chance, int decimals = 1);

} // namespace vorhaven
