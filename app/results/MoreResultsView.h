// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/controls/SecondaryWindow.h"
#include "ui/results/frmMoreResults.h"

namespace vorhaven {

/// The detailed results on the screen.
class MoreResultsView final : public SecondaryWindow {
public:
    /// `results` must outlive the view.
    MoreResultsView(frmMoreResults& results, QWidget* parent);
};

} // namespace vorhaven
