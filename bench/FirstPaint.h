// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

// Ends the program that includes this as soon as its first window has been painted.
namespace vorhaven::bench {

class FirstPaint final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow()) {
            qApp->removeEventFilter(this);
            // The event loop goes on when all of the window is painted.
            QTimer::singleShot(0, this, [] { std::_Exit(EXIT_SUCCESS); });
        }
        return QObject::eventFilter(watched, event);
    }
};

/// To be registered with Q_COREAPP_STARTUP_FUNCTION.
inline void EndAfterFirstPaint() {
    qApp->installEventFilter(new FirstPaint(qApp));
}

} // namespace vorhaven::bench
