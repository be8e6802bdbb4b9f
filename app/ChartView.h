// SPDX-License-Identifier: GPL-3.0-or-later

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
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Opens the chart's own menu.
    void OpenMenu(const QPoint& position);
    void ShowData();
    /// What the labels of all categories take side by side, in pixels.
    [[nodiscard]] int WidthOfLabels() const;
    /// Labels as many categories as there is room for.
    void ShowLabels();
    void ShowColours();
    /// What there is to tell about the category at a place in the view; empty outside of the chart's area.
    [[nodiscard]] QString DetailsAt(const QPoint& place) const;

    Chart* chart_;
    QCPTextElement* title_;
    std::array<QCPBars*, 2> series_{};
    /// The chart has changed since its data were shown.
    bool isStale_ = false;
};

} // namespace vorhaven
