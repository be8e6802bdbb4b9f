// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/SecondaryWindow.h"

#include "app/controls/BoundWidgets.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

namespace vorhaven {

SecondaryWindow::SecondaryWindow(const Form& form, QWidget* parent) : QDialog(parent) {
    setWindowTitle(QString::fromStdString(form.Caption));
}

QPushButton* SecondaryWindow::MakeDone(Form& form, Button& button) {
    done_ = MakeFocusable<QPushButton>(form, button);
    done_->setDefault(true);
    done_->installEventFilter(this);
    return done_;
}

bool SecondaryWindow::HasJustComeUp() const {
    return !sinceShown_.hasExpired(QApplication::doubleClickInterval());
}

bool SecondaryWindow::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Shortcut:
        return HasJustComeUp();
    default:
        return QDialog::eventFilter(watched, event);
    }
}

void SecondaryWindow::keyPressEvent(QKeyEvent* event) {
    const bool pressesDone = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!pressesDone || !HasJustComeUp())
        QDialog::keyPressEvent(event);
}

void SecondaryWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    done_->setFocus(Qt::TabFocusReason);
    sinceShown_.start();
}

} // namespace vorhaven
