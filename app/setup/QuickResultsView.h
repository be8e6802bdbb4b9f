// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/frmBrawlpad.h"

#include <QGroupBox>

class QLabel;
class QLayout;
class QPushButton;

namespace vorhaven {

/// The main window's frame of quick results.
class QuickResultsView final : public QGroupBox {
public:
    /// `pad` must outlive the view. `compact`: take more height and less width.
    QuickResultsView(frmBrawlpad& pad, bool compact);

    /// The button that opens the detailed results.
    [[nodiscard]] QPushButton* MoreResults() const { return moreResults_; }

private:
    [[nodiscard]] QLabel* MakeFigure(Label& control);
    /// The row of captions, at its end what is out of date.
    [[nodiscard]] QLayout* MakeCaptions();
    /// The row of the percentage, with its margin behind it.
    [[nodiscard]] QLayout* MakeWinPercent(bool compact);
    [[nodiscard]] QLayout* MakeAverages();
    void MakeMenu(frmBrawlpad& pad);

    QuickResultsPanel* panel_;
    QLabel* caption_ = nullptr;
    /// The averages from top to bottom.
    QList<QLabel*> averages_;
    QPushButton* moreResults_ = nullptr;
};

} // namespace vorhaven
