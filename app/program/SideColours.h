// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Side.h"

#include <QColor>
#include <QPalette>

namespace vorhaven {

/// The colour of a side for areas and texts on the Base colour of a
/// palette: blue and orange, which every kind of sight tells apart. Whatever Base is, the two also differ in
/// lightness, and a text in either can be read; only where Base is about as far from black as from white is
/// there no room for both, and the difference is kept.
[[nodiscard]] QColor SideColour(Side side, const QPalette& palette);

} // namespace vorhaven
