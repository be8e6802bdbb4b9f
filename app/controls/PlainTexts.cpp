// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/PlainTexts.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

namespace vorhaven {
namespace {

/// A label is polished before its text is laid out for the first time.
class PlainTexts final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Polish)
            if (auto* const label = qobject_cast<QLabel*>(watched))
                label->setTextFormat(Qt::PlainText);
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void InstallPlainTexts() {
    qApp->installEventFilter(new PlainTexts(qApp));
}

} // namespace vorhaven
