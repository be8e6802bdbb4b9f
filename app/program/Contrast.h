// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>

namespace vorhaven {

/// What a reader needs to tell a colour from its background, as ratios of Contrast: a text, and a line or an
/// area that says something.
namespace LeastContrast {
inline constexpr double Text = 4.5;
inline constexpr double Mark = 3.0;
} // namespace LeastContrast

/// How much two colours differ in lightness, from 1 (not at all) to 21 (black and white): the contrast ratio
/// of the Web Content Accessibility Guidelines 2.
[[nodiscard]] double Contrast(const QColor& first, const QColor& second);

/// Black or white, whichever has more contrast with a background.
[[nodiscard]] QColor FarthestFrom(const QColor& background);

/// The mix of two colours, with `share` (0 to 1) of the first.
[[nodiscard]] QColor Mixed(const QColor& first, const QColor& second, double share);

/// A colour, moved towards `goal` as far as it takes to have the least contrast with a background; the goal
/// itself where that is not enough.
[[nodiscard]] QColor MovedToContrast(const QColor& colour, const QColor& goal, const QColor& background,
                                     double least);

} // namespace vorhaven
