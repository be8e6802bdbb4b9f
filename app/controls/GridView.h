// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/controls/PopUp.h"
#include "ui/controls/Grid.h"

#include <QTableWidget>

namespace vorhaven {

/// A grid on the screen. It shows the filled rows alone and asks for the room of all of them; what it gets
/// less is scrolled to. Its last column takes what the others leave of the width.
class GridView final : public QTableWidget {
public:
    explicit GridView(QWidget* parent = nullptr);

    /// Shows a grid, which must outlive the view, as it is now and becomes. Bind calls it.
    void Show(Grid& grid);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowRows();
    void ShowRow(int row);
    [[nodiscard]] int WidthOfColumns() const;
    [[nodiscard]] QSize SizeForRows(int rows) const;
    void OpenMenu(const QPoint& position, MenuAsked asked);
    void CopyNumbers() const;

    Grid* grid_ = nullptr;
    /// There is less room than the columns take.
    bool hasSideways_ = false;
};

} // namespace vorhaven
