// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/controls/SecondaryWindow.h"
#include "ui/results/frmStats.h"

namespace vorhaven {

/// The stack statistics on the screen.
class StatsView final : public SecondaryWindow {
public:
    /// `stats` must outlive the view.
    StatsView(frmStats& stats, QWidget* parent);
};

} // namespace vorhaven
