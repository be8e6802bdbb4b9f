// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Controls.h"

#include <QAbstractSpinBox>

namespace vorhaven {

/// A text box with its up-down: typing is free, the arrows step.
class NumberBox final : public QAbstractSpinBox {
public:
    /// `upDown` and its text box must outlive the widget's user input.
    explicit NumberBox(UpDown& upDown, QWidget* parent = nullptr);

    void stepBy(int steps) override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;
    void wheelEvent(QWheelEvent* event) override;

private:
    UpDown* upDown_;
};

} // namespace vorhaven
