// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/SlayingPage.h"

#include <QTableView>

namespace vorhaven {

/// The map of who slays whom on the screen: a cell for each pair, its halves coloured by their chances, with
/// the sums at the right and below. Names and sums stay in sight while the cells scroll. Screen readers are
/// given a table, whose cells are sentences.
class SlayingMap final : public QTableView {
public:
    /// `page` must outlive the view.
    explicit SlayingMap(SlayingPage& page, QWidget* parent = nullptr);
    ~SlayingMap() override;

    [[nodiscard]] QModelIndex indexAt(const QPoint& position) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint) override;
    /// Of sums, where they are seen.
    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;

    /// The font of the names, and that of the figures.
    [[nodiscard]] QFont NameFont() const;
    [[nodiscard]] QFont FigureFont() const;
    /// The font of the names above the columns and of the sums below them, which closer columns make smaller.
    [[nodiscard]] QFont ColumnFont() const;

protected:
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    class Pairs;
    class Names;

    void Follow();
    void FitCells();
    /// Whether a section is one of sums, behind those of the armies.
    [[nodiscard]] bool IsOfSums(const QHeaderView& header, int section) const;
    /// Where a section is seen: one of sums is at the edge as long as its place is further on.
    [[nodiscard]] int PlaceOf(const QHeaderView& header, int section) const;
    /// The section that is seen at a place, -1 for none.
    [[nodiscard]] int SectionAt(const QHeaderView& header, int place) const;

    SlayingPage* page_;
    Pairs* pairs_;
    /// The columns are closer than usual, for want of room.
    bool isClose_ = false;
};

} // namespace vorhaven
