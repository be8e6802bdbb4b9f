// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Controls.h"

#include <QAbstractSpinBox>

namespace vorhaven {

/// A text box with its up-down. While its text is not a number that can be typed there, the
/// control keeps its last number, and leaving the box or Enter brings that number back. Screen readers are
/// given that number and the arrows' limits.
class NumberBox final : public QAbstractSpinBox {
public:
    explicit NumberBox(QWidget* parent = nullptr);

    /// Shows an up-down, which with its text box must outlive the widget's user input. Bind calls it.
    void Show(UpDown& upDown);

    void stepBy(int steps) override;
    [[nodiscard]] QSize sizeHint() const override { return SizeFor(upDown_->Buddy().MaxLength); }
    [[nodiscard]] QSize minimumSizeHint() const override { return SizeFor(4); }

protected:
    bool event(QEvent* event) override;
    [[nodiscard]] StepEnabled stepEnabled() const override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// The size for so many digits.
    [[nodiscard]] QSize SizeFor(int digits) const;
    /// Shows the control's number.
    void ShowNumber();
    /// The number in the control, also beyond the arrows' limits.
    [[nodiscard]] int Number() const;
    /// Gives the number to screen readers.
    void AnnounceNumber();

    UpDown* upDown_ = nullptr;
};

} // namespace vorhaven
