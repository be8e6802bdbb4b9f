// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/frmBrawlpad.h"

#include <QMainWindow>

#include <array>

class QMenu;

namespace vorhaven {

/// The main window on the screen.
class MainView final : public QMainWindow {
public:
    /// `pad` must outlive the view.
    explicit MainView(frmBrawlpad& pad);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QWidget* MakeArmies(Side side);
    [[nodiscard]] QWidget* MakeSettings();
    [[nodiscard]] QWidget* MakeQuickResults();
    [[nodiscard]] QWidget* MakeRunButtons();
    void MakeStatusBar();
    void MakeMenu();
    void OrderTabs();

    frmBrawlpad* pad_;
    QMenu* menu_ = nullptr;
    QPoint menuPosition_;
    /// The widgets that take the focus, in the order in which the eye meets them.
    std::array<QList<QWidget*>, 2> armyTabs_;
    QList<QWidget*> middleTabs_;
};

} // namespace vorhaven
