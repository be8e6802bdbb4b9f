// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QComboBox>

namespace vorhaven {

/// A drop-down list that the mouse wheel never changes: a turn of the wheel is meant for what lies behind it.
class DropDown : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace vorhaven
