// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/OddsPanel.h"

#include <QGroupBox>

class QGridLayout;
class QLayout;

namespace vorhaven {

/// The frame of exact odds on the screen.
class OddsView final : public QGroupBox {
public:
    /// `panel` must outlive the view.
    explicit OddsView(OddsPanel& panel);

private:
    [[nodiscard]] QLayout* MakeChances();
    [[nodiscard]] QLayout* MakeLosses();
    void AddRow(QGridLayout& table, int place, OddsPanel::Row& row);

    OddsPanel* panel_;
};

} // namespace vorhaven
