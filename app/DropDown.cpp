// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/DropDown.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QWheelEvent>

namespace vorhaven {

void DropDown::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

Picker::Picker(QWidget* parent) : DropDown(parent) {
    setMaxVisibleItems(20);
    // A list that scrolls below the field, not a menu as high as the screen.
    setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0; }"));
}

void Picker::keyPressEvent(QKeyEvent* event) {
    // A key held down since before the list was left, or before the focus came here, opens nothing.
    if (event->isAutoRepeat()) {
        event->ignore();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
        showPopup();
        return;
    default:
        break;
    }
    const QString text = event->text();
    const bool isLetter = !text.isEmpty() && text.front().isLetterOrNumber() &&
                          !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!isLetter) {
        event->ignore();
        return;
    }
    showPopup();
    // An empty text ends the look-up of the time before.
    view()->keyboardSearch(QString());
    view()->keyboardSearch(text);
}

} // namespace vorhaven
