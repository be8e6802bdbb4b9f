// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/OrdersPage.h"

#include <qcustomplot.h>

namespace vorhaven {

/// The best orders as points, chance of winning upward and own turns lost to the right, beside the set-up as
/// it is now. A click on a point makes its row the current one.
class OrdersPlot final : public QCustomPlot {
public:
    /// `page` must outlive the view.
    explicit OrdersPlot(OrdersPage& page, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowAll();
    void ShowColours();
    void ShowPoints();
    void MakeText(const QString& text, double turns, double percent, const QColor& colour, bool isBold);
    [[nodiscard]] QPointF PlaceOf(const OrdersPage::Point& point) const;

    OrdersPage* page_;
    QCPGraph* best_;
    QCPGraph* current_;
    QCPGraph* asItIs_;
};

} // namespace vorhaven
