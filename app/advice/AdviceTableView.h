// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/AdviceTable.h"

#include <QSortFilterProxyModel>
#include <QTableView>

namespace vorhaven {

/// A table of advice on the screen. A click on a header sorts it by that column, the best figures first; a
/// second one the other way round, a third one undoes that. The rows of a side stay below their heading.
/// Ctrl+C copies all of it.
class AdviceTableView final : public QTableView {
public:
    /// `table` must outlive the view.
    explicit AdviceTableView(AdviceTable& table, QWidget* parent = nullptr);
    ~AdviceTableView() override;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    class Rows;
    class Order;

    void MakeColumns();
    void Follow();
    void SetRowHeight();

    AdviceTable* table_;
    Rows* rows_;
    Order* order_;
    int edition_ = -1;
    bool isFollowing_ = false;
};

} // namespace vorhaven
