// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/OddsPanel.h"

#include <QGroupBox>

class QGridLayout;
class QLabel;
class QLayout;

namespace vorhaven {

/// The frame of exact odds on the screen.
class OddsView final : public QGroupBox {
public:
    /// `panel` must outlive the view. `compact`: take more height and less width.
    OddsView(OddsPanel& panel, bool compact);

private:
    [[nodiscard]] QLayout* MakeChances();
    /// What the last change of the set-up did to the attacker's chance.
    [[nodiscard]] QLabel* MakeChange();
    [[nodiscard]] QLayout* MakeLosses();
    /// Names the columns of figures, and gives each the room of its longest.
    void MakeHeaders(QGridLayout& table);
    void AddRow(QGridLayout& table, OddsPanel::Row& row);

    OddsPanel* panel_;
    bool compact_;
};

} // namespace vorhaven
