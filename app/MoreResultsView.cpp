#include "app/MoreResultsView.h"

#include "app/ChartView.h"
#include "app/Making.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace vorhaven {

MoreResultsView::MoreResultsView(frmMoreResults& results, QWidget* parent) : QDialog(parent) {
    setWindowTitle(QString::fromStdString(results.Caption));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* const layout = new QVBoxLayout(this);
    for (Chart* chart : {&results.mscAttMore, &results.mscDefMore})
        layout->addWidget(new ChartView(*chart), 1);
    auto* const done = MakeFocusable<QPushButton>(results, results.sscDone);
    done->setDefault(true);
    layout->addWidget(done, 0, Qt::AlignRight);
}

} // namespace vorhaven
