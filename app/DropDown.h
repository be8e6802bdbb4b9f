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

/// A drop-down list from which each choice in the open list counts as a pick. While it is closed no key picks
/// anything: a key that would move the selection opens the list instead, and letters look up an entry in it.
class Picker final : public DropDown {
public:
    explicit Picker(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace vorhaven
