// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/Contrast.h"

#include <algorithm>
#include <cmath>

namespace vorhaven {
namespace {

/// Relative luminance of an sRGB colour, 0 to 1.
double Luminance(const QColor& colour) {
    const auto linear = [](float channel) {
        const double value = channel;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

} // namespace

double Contrast(const QColor& first, const QColor& second) {
    const auto [darker, lighter] = std::minmax({Luminance(first), Luminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor FarthestFrom(const QColor& background) {
    return Contrast(Qt::white, background) > Contrast(Qt::black, background) ? Qt::white : Qt::black;
}

QColor Mixed(const QColor& first, const QColor& second, double share) {
    const auto mix = [share](float a, float b) {
        return static_cast<float>(share) * a + static_cast<float>(1.0 - share) * b;
    };
    return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                            mix(first.blueF(), second.blueF()));
}

QColor MovedToContrast(const QColor& colour, const QColor& goal, const QColor& background, double least) {
    constexpr int steps = 64;
    for (int step = 0; step < steps; ++step) {
        // As it is shown, in whole steps of its channels.
        const QColor moved = Mixed(goal, colour, static_cast<double>(step) / steps).toRgb().rgb();
        if (Contrast(moved, background) >= least)
            return moved;
    }
    return goal;
}

} // namespace vorhaven
