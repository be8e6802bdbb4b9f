// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QMenu;
class QPoint;

namespace vorhaven {

/// How a menu was asked for.
enum class MenuAsked { ByMouse, ByKeyboard };

/// Opens a menu that is deleted when it closes. What waits goes on behind it. When asked for by keyboard, its
/// first item is the current one.
void PopUp(QMenu& menu, const QPoint& position, MenuAsked asked);

} // namespace vorhaven
