#pragma once

#include "ui/controls/Chart.h"

#include <qcustomplot.h>

namespace vorhaven {

/// A chart's columns: the first series on the left axis, the second on an axis of its own on the right.
class ChartView final : public QCustomPlot {
public:
    /// `chart` must outlive the view.
    explicit ChartView(Chart& chart, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void ShowData();
    void ShowColours();
    /// What there is to tell about the columns at a place in the view; empty beside them.
    [[nodiscard]] QString DetailsAt(const QPoint& place) const;

    Chart* chart_;
    QCPTextElement* title_;
    std::array<QCPBars*, 2> series_{};
};

} // namespace vorhaven
