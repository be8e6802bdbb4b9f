// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Controls.h"
#include "ui/controls/Form.h"

#include <QDialog>
#include <QElapsedTimer>

class QPushButton;

namespace vorhaven {

/// A window beside the main one, which its "Done" button closes. Windows of this kind come up one after the
/// other, under the pointer and with the focus: what presses Done within the time of a double click after the
/// window came up was meant for the window before it, and is ignored.
class SecondaryWindow : public QDialog {
protected:
    SecondaryWindow(const Form& form, QWidget* parent);

    /// Makes the button that closes the window: its default button, which has the focus at first.
    [[nodiscard]] QPushButton* MakeDone(Form& form, Button& button);

    /// Keeps what was meant for the window before away from the button, and from any other that it is
    /// installed on.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] bool HasJustComeUp() const;

    QPushButton* done_ = nullptr;
    QElapsedTimer sinceShown_;
};

} // namespace vorhaven
