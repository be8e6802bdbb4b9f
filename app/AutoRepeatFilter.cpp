// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/AutoRepeatFilter.h"

#include <QKeyEvent>

namespace vorhaven {

bool AutoRepeatFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    const auto* const key = static_cast<QKeyEvent*>(event);
    return key->isAutoRepeat() &&
           (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Escape);
}

} // namespace vorhaven
