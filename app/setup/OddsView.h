// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Form.h"
#include "ui/setup/OddsPanel.h"

#include <QGroupBox>

class QGridLayout;
class QLabel;
class QLayout;
class QPushButton;

namespace vorhaven {

/// The frame of exact odds on the screen.
class OddsView final : public QGroupBox {
public:
    /// `form`, which has the panel, must outlive the view. `compact`: take more height and less width.
    OddsView(Form& form, OddsPanel& panel, bool compact);

    /// The widgets that take the focus, in the order in which the eye meets them.
    [[nodiscard]] QList<QWidget*> Tabs() const;

private:
    [[nodiscard]] QLayout* MakeChances();
    /// What the last change of the set-up did to the attacker's chance.
    [[nodiscard]] QLabel* MakeChange();
    [[nodiscard]] QLayout* MakeLosses();
    /// Names the columns of figures, and gives each the room of its longest.
    void MakeHeaders(QGridLayout& table);
    void AddRow(QGridLayout& table, OddsPanel::Row& row);

    /// The row of the best order, with the button that goes with it.
    [[nodiscard]] QLayout* MakeBestOrder();

    Form* form_;
    OddsPanel* panel_;
    bool compact_;
    QPushButton* useIt_ = nullptr;
    QPushButton* advice_ = nullptr;
};

} // namespace vorhaven
