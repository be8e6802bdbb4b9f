// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/MoreResultsView.h"

#include "app/BoundWidgets.h"
#include "app/ChartView.h"
#include "app/Scroller.h"
#include "app/Shade.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace vorhaven {

MoreResultsView::MoreResultsView(frmMoreResults& results, QWidget* parent)
    : SecondaryWindow(results, parent) {
    // A window of its own right: as a dialog it would stay in front of the main window.
    setWindowFlags(Qt::Window);
    auto* const charts = new QWidget;
    auto* const chartLayout = new QVBoxLayout(charts);
    chartLayout->setContentsMargins(0, 0, 0, 0);
    for (Chart* chart : {&results.mscAttMore, &results.mscDefMore})
        chartLayout->addWidget(new ChartView(*chart), 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new Scroller(charts), 1);
    auto* const bottom = new QHBoxLayout;
    auto* const newerRun = Make<QLabel>(results.lblNewerRun);
    SetShade(*newerRun, Shade::Quiet);
    bottom->addWidget(newerRun, 1);
    bottom->addWidget(MakeDone(results, results.sscDone));
    layout->addLayout(bottom);
}

} // namespace vorhaven
