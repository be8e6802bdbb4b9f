// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QPalette>

class QWidget;

namespace vorhaven {

/// How strongly a text, a line or an area stands out from its background: the share of the text's colour in
/// the mix of the two. Quiet keeps a contrast of at least 6.5 to 1, Dimmed of 4.5 to 1, both on light and on
/// dark palettes.
namespace Shade {
inline constexpr double Full = 1.0;
inline constexpr double Quiet = 0.66;
inline constexpr double Dimmed = 0.56;
inline constexpr double Unreachable = 0.38;
inline constexpr double ListLine = 0.28;
inline constexpr double TableLine = 0.22;
inline constexpr double Frame = 0.10;
inline constexpr double Area = 0.05;
inline constexpr double FrameArea = 0.012;
} // namespace Shade

/// The mix of two colours, with `share` (0 to 1) of the first.
[[nodiscard]] QColor Mixed(const QColor& first, const QColor& second, double share);

/// Makes a widget's text bold, and larger by a factor.
void Enlarge(QWidget& widget, double factor);

/// Shows a widget's text in a shade, also after the application's colours have changed.
void SetShade(QWidget& widget, double share);

} // namespace vorhaven
