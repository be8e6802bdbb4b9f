// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/PopUp.h"

#include <QMenu>

namespace vorhaven {

void PopUp(QMenu& menu, const QPoint& position, MenuAsked asked) {
    menu.setAttribute(Qt::WA_DeleteOnClose);
    // Not executed but popped up: a run that pumps this event goes on behind the menu.
    menu.popup(position);
    if (asked == MenuAsked::ByKeyboard)
        menu.setActiveAction(menu.actions().constFirst());
}

} // namespace vorhaven
