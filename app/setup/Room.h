// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFontMetrics>
#include <QLayout>

namespace vorhaven {

/// Copies the whole battle, whatever has the focus.
inline constexpr QKeyCombination CopyBattleKey{Qt::CTRL | Qt::SHIFT, Qt::Key_C};
/// Gives the results and the odds to a screen reader.
inline constexpr QKeyCombination ReadOutKey{Qt::CTRL, Qt::Key_R};

/// From the edge of the main window, and from column to column, where the screen is small.
inline constexpr int CompactMargin = 2;

/// Between what is side by side in a frame whose rows are closer than the style has them.
inline constexpr int SideBySideGap = 6;

/// Lays a frame of the main window out more tightly, where the screen is small.
inline void MakeCompact(QLayout& layout) {
    layout.setContentsMargins(6, 4, 6, 4);
    layout.setSpacing(3);
}

/// What a label takes to show a text, in pixels.
inline int WidthOf(const QString& text, const QFontMetrics& metrics) {
    // Whole pixels, as labels count them: an advance alone may be rounded down.
    return metrics.size(Qt::TextSingleLine, text).width();
}

} // namespace vorhaven
