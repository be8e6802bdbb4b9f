// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/results/frmStats.h"

#include <QDialog>

namespace vorhaven {

/// The stack statistics on the screen.
class StatsView final : public QDialog {
public:
    /// `stats` must outlive the view.
    StatsView(frmStats& stats, QWidget* parent);
};

} // namespace vorhaven
