// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Chance.h"

#include "base/Conversion.h"

#include <cmath>

namespace vorhaven {

double ShareOf(const Chance& chance) {
    return chance.For > 0.0 ? chance.For / (chance.For + chance.Against) : 0.0;
}

std::string PointsInWords(double points) {
    const bool isLess = ToSignedText(points, 1).front() != '+';
    return ToFixedText(std::abs(points), 1) + (isLess ? " points less" : " points more");
}

std::string PercentFigure(const Chance& chance, int decimals) {
    const double scale = std::pow(10.0, decimals);
    const Long all = RoundToLong(100.0 * scale);
    const auto figure = [&](Long units) { return ToFixedText(units.Value() / scale, decimals); };
    if (chance.For <= 0.0)
        return figure(0);
    if (chance.Against <= 0.0)
        return figure(all);
    const Long units = RoundToLong(chance.For / (chance.For + chance.Against) * 100.0 * scale);
    const std::string gap = decimals > 0 ? " " : "";
    if (units == 0)
        return "<" + gap + figure(1);
    if (units == all)
        return ">" + gap + figure(all - 1);
    return figure(units);
}

std::string PercentText(const Chance& chance, int decimals) {
    return PercentFigure(chance, decimals) + '%';
}

} // namespace vorhaven
