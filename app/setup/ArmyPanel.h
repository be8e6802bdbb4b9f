// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/frmBrawlpad.h"

#include <QGroupBox>
#include <QPoint>

#include <functional>

class QLabel;
class QMenu;

namespace vorhaven {

class ArmyListView;

/// One side's column of the main window: its picker, its list, and the buttons that act on the list.
class ArmyPanel final : public QGroupBox {
public:
    /// `pad` must outlive the view. `compact`: take more height and less width.
    ArmyPanel(frmBrawlpad& pad, Side side, bool compact);

    /// The widgets that take the focus, in the order in which the eye meets them.
    [[nodiscard]] const QList<QWidget*>& Tabs() const { return tabs_; }
    [[nodiscard]] ArmyListView* List() const { return list_; }
    /// Where a menu that was asked for on a line of the list belongs.
    [[nodiscard]] QPoint MenuPosition() const { return menuPosition_; }
    /// Called with the position for a menu that was asked for beside the lines.
    std::function<void(const QPoint&)> BareMenuRequested;

private:
    /// Shows a control that both sides have, and names it for screen readers with the side's name.
    template <class Widget, class ControlType>
    Widget* MakePaired(ControlType& control);

    [[nodiscard]] QLayout* MakePicker(bool compact);
    /// How many lines the list has.
    [[nodiscard]] QLabel* MakeCount();
    /// Names the list's column of figures.
    [[nodiscard]] QLabel* MakeCaption();
    [[nodiscard]] QLayout* MakeList(bool compact);
    [[nodiscard]] QLayout* MakeTools(bool compact);

    frmBrawlpad* pad_;
    Side side_;
    ArmyListView* list_ = nullptr;
    QPoint menuPosition_;
    QList<QWidget*> tabs_;
};

} // namespace vorhaven
