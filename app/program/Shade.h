// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/program/Contrast.h"

#include <QColor>
#include <QFont>
#include <QPalette>

class QWidget;

namespace vorhaven {

/// How strongly a text, a line or an area stands out from its background: the share of the text's colour in
/// the mix of the two. With black on white, and with white on a dark grey, Quiet has a contrast of at least
/// 6.5 to 1, Dimmed of 4.5 to 1.
namespace Shade {
inline constexpr double Full = 1.0;
/// For what is quiet elsewhere, on a selection that is dimmed itself.
inline constexpr double QuietSelected = 0.85;
inline constexpr double Quiet = 0.66;
inline constexpr double Dimmed = 0.56;
inline constexpr double Unreachable = 0.38;
inline constexpr double ListLine = 0.28;
inline constexpr double TableLine = 0.22;
inline constexpr double Frame = 0.10;
inline constexpr double Area = 0.05;
inline constexpr double FrameArea = 0.012;
} // namespace Shade

/// The colour of a text, a line or an area in a shade. From Dimmed up it is made for reading: where the
/// palette has little contrast itself, more of the text's colour goes into the mix.
[[nodiscard]] QColor Shaded(const QColor& text, const QColor& background, double share);

/// The colour that marks the focus and the current line on the Base colour of a palette.
[[nodiscard]] QColor FocusColour(const QPalette& palette);

/// The font of what is written small beside a text in this font.
[[nodiscard]] QFont Small(QFont font);

/// Makes a widget's text bold, and larger by a factor.
void Enlarge(QWidget& widget, double factor);

/// Shows a widget's text in a shade, also after the application's colours have changed.
void SetShade(QWidget& widget, double share);

} // namespace vorhaven
