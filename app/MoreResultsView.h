// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/results/frmMoreResults.h"

#include <QDialog>

namespace vorhaven {

/// The detailed results on the screen.
class MoreResultsView final : public QDialog {
public:
    /// `results` must outlive the view.
    MoreResultsView(frmMoreResults& results, QWidget* parent);
};

} // namespace vorhaven
