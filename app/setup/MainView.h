// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/frmBrawlpad.h"

#include <QMainWindow>

class QLabel;
class QLayout;
class QMenu;
class QPushButton;

namespace vorhaven {

class Announcer;
class ArmyPanel;
class ColumnScroller;

/// The main window on the screen.
class MainView final : public QMainWindow {
public:
    /// `pad` must outlive the view.
    explicit MainView(frmBrawlpad& pad);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QWidget* MakeMiddle();
    [[nodiscard]] QWidget* MakeSettings();
    /// Scrolls the middle column to the results when a run shows its first figure, and when it ends.
    void FollowRuns(ColumnScroller& middle);
    [[nodiscard]] QLayout* MakeRunButtons();
    [[nodiscard]] QWidget* MakeButton(Button& control);
    void ComeToFront();
    void MakeSettling();
    void MakeShortcuts();
    void MakeStatusBar();
    void MakeMenus();
    void OrderTabs();

    frmBrawlpad* pad_;
    Announcer* announcer_;
    /// A sentence on what was just done, for some seconds.
    QLabel* notice_;
    /// The screen is too narrow for the columns in their usual shape: they take more height and less width.
    bool compact_;
    PerSide<ArmyPanel*> armies_{};
    /// Of the lists' lines.
    QMenu* menu_ = nullptr;
    QPushButton* attack_ = nullptr;
    bool isRunning_ = false;
    bool isFirstFigureAwaited_ = false;
    /// The middle column's widgets that take the focus, in the order in which the eye meets them.
    QList<QWidget*> middleTabs_;
};

} // namespace vorhaven
