// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/SlayingPage.h"

#include <QTableView>

namespace vorhaven {

/// The map of who slays whom on the screen: a cell for each pair, its halves coloured by their chances, with
/// the sums at the right and below. Screen readers are given a table, whose cells are sentences.
class SlayingMap final : public QTableView {
public:
    /// `page` must outlive the view.
    explicit SlayingMap(SlayingPage& page, QWidget* parent = nullptr);
    ~SlayingMap() override;

    /// The map with its names, columns separated by tabs and rows by line ends, both figures of a cell as
    /// "25/57".
    [[nodiscard]] QString AsText() const;

    /// The font of the names, and that of the figures.
    [[nodiscard]] QFont NameFont() const;
    [[nodiscard]] QFont FigureFont() const;
    /// The font of the names above the columns and of the sums below them, which closer columns make smaller.
    [[nodiscard]] QFont ColumnFont() const;

protected:
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Pairs;
    class Names;

    void Follow();
    void FitCells();

    SlayingPage* page_;
    Pairs* pairs_;
    /// The columns are closer than usual, for want of room.
    bool isClose_ = false;
};

} // namespace vorhaven
