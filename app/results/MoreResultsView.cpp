// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/results/MoreResultsView.h"

#include "app/controls/BoundWidgets.h"
#include "app/controls/ChartView.h"
#include "app/controls/Scroller.h"
#include "app/program/Shade.h"

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
        chartLayout->addWidget(Make<ChartView>(*chart), 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new Scroller(charts), 1);
    auto* const bottom = new QHBoxLayout;
    // One of them is always empty.
    for (Label* control : {&results.lblScales, &results.lblNewerRun}) {
        auto* const remark = Make<QLabel>(*control);
        SetShade(*remark, Shade::Quiet);
        bottom->addWidget(remark);
    }
    bottom->addStretch();
    bottom->addWidget(MakeDone(results, results.sscDone));
    layout->addLayout(bottom);
}

} // namespace vorhaven
