// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/MoreResultsView.h"

#include "app/BoundWidgets.h"
#include "app/ChartView.h"
#include "app/Scroller.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace vorhaven {

MoreResultsView::MoreResultsView(frmMoreResults& results, QWidget* parent)
    : SecondaryWindow(results, parent) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* const charts = new QWidget;
    auto* const chartLayout = new QVBoxLayout(charts);
    chartLayout->setContentsMargins(0, 0, 0, 0);
    for (Chart* chart : {&results.mscAttMore, &results.mscDefMore})
        chartLayout->addWidget(new ChartView(*chart), 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new Scroller(charts), 1);
    layout->addWidget(MakeDone(results, results.sscDone), 0, Qt::AlignRight);
}

} // namespace vorhaven
