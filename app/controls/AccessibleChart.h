// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace vorhaven {

class ChartView;

/// From now on screen readers find in a chart its categories, each called by its details.
void InstallAccessibleChart();

/// Announces to screen readers that a category, counted from 0, has become the current one.
void AnnounceCategory(ChartView& chart, int row);

} // namespace vorhaven
