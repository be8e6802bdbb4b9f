// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/controls/SecondaryWindow.h"
#include "ui/advice/frmAdvice.h"

class QLayout;
class QTabWidget;

namespace vorhaven {

/// The window of advice on the screen: a window of its own right, which may lie behind the main window.
class AdviceView final : public SecondaryWindow {
public:
    /// `advice` must outlive the view's user input.
    explicit AdviceView(frmAdvice& advice);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void hideEvent(QHideEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Both chances, with their bar.
    [[nodiscard]] QLayout* MakeHead();
    void MakePages();
    /// Adds a page with its contents, in whose place there is a sentence where nothing is to be seen.
    void AddPage(AdvicePage& page, QLayout* contents);
    /// A button that acts on figures.
    [[nodiscard]] QPushButton* MakeActing(Button& control);
    [[nodiscard]] QLayout* MakeArmies();
    [[nodiscard]] QLayout* MakeSlaying();
    [[nodiscard]] QLayout* MakeChanges();
    [[nodiscard]] QLayout* MakeOrders();
    [[nodiscard]] QLayout* MakeFewestArmies();
    /// How far the work is, and the button that closes the window.
    [[nodiscard]] QLayout* MakeFoot();
    void MakeShortcuts();
    /// Says new odds once they have settled.
    void MakeAnnouncements();

    frmAdvice* advice_;
    QTabWidget* pages_;
    QPushButton* done_ = nullptr;
};

} // namespace vorhaven
