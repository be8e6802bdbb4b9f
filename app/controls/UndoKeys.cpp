// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/UndoKeys.h"

#include <QAbstractSpinBox>
#include <QKeyEvent>
#include <QLineEdit>

namespace vorhaven {
namespace {

class UndoKeys final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) {
            auto* const key = static_cast<QKeyEvent*>(event);
            if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
                key->ignore();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void LeaveUndoToWindow(QWidget& window) {
    auto* const keys = new UndoKeys(&window);
    for (QLineEdit* edit : window.findChildren<QLineEdit*>())
        edit->installEventFilter(keys);
    // A number box passes keys on to its field by itself.
    for (QAbstractSpinBox* box : window.findChildren<QAbstractSpinBox*>())
        box->installEventFilter(keys);
}

} // namespace vorhaven
