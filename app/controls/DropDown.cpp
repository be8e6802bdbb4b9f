// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/DropDown.h"

#include <QWheelEvent>

namespace vorhaven {

void DropDown::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace vorhaven
