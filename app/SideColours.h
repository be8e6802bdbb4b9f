// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QPalette>

#include <array>

namespace vorhaven {

/// The colour of a side, 0 the attacker's and 1 the defender's, to stand on the Base colour of a palette:
/// blue and orange, which every kind of sight tells apart, and which differ in lightness too.
[[nodiscard]] inline QColor SideColour(int side, const QPalette& palette) {
    constexpr std::array onLight{qRgb(0x0a, 0x5a, 0x9c), qRgb(0xb8, 0x54, 0x00)};
    constexpr std::array onDark{qRgb(0x4f, 0x9f, 0xe0), qRgb(0xf5, 0xb0, 0x6a)};
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    return QColor::fromRgb((isDark ? onDark : onLight).at(static_cast<std::size_t>(side)));
}

} // namespace vorhaven
