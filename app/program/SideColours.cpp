// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/SideColours.h"

#include "app/program/Contrast.h"

#include <algorithm>

namespace vorhaven {

QColor SideColour(Side side, const QPalette& palette) {
    constexpr PerSide<QRgb> onLight{qRgb(0x0a, 0x5a, 0x9c), qRgb(0xb8, 0x54, 0x00)};
    constexpr PerSide<QRgb> onDark{qRgb(0x4f, 0x9f, 0xe0), qRgb(0xf5, 0xb0, 0x6a)};
    /// By so much more does one side's colour contrast with Base than the other's.
    constexpr double leastDifference = 1.3;

    const QColor base = palette.color(QPalette::Base);
    const QColor goal = FarthestFrom(base);
    const bool isDark = goal == Qt::white;
    const auto& usual = isDark ? onDark : onLight;
    const Side nearer = isDark ? Side::Attacker : Side::Defender;
    const double room = Contrast(goal, base) / leastDifference;
    const QColor nearColour = MovedToContrast(usual[nearer], goal, base, std::min(LeastContrast::Text, room));
    if (side == nearer)
        return nearColour;
    return MovedToContrast(usual[side], goal, base, leastDifference * Contrast(nearColour, base));
}

} // namespace vorhaven
