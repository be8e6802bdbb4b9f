// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/AutoRepeatFilter.h"

#include <QKeyEvent>

namespace vorhaven {

bool AutoRepeatFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyRelease) {
        const auto* const release = static_cast<QKeyEvent*>(event);
        releasedKey_ = release->key();
        releasedAt_ = release->timestamp();
    }
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    const auto* const press = static_cast<QKeyEvent*>(event);
    const bool endsAWindow =
        press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter || press->key() == Qt::Key_Escape;
    return endsAWindow && IsHeld(*press);
}

bool AutoRepeatFilter::IsHeld(const QKeyEvent& press) const {
    return press.isAutoRepeat() ||
           (press.key() == releasedKey_ && press.timestamp() == releasedAt_ && releasedAt_ != 0);
}

} // namespace vorhaven
