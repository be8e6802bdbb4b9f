// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/program/AutoRepeatFilter.h"
#include "ui/setup/Toolkit.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

#include <memory>

class QDialog;
class QRect;
class QWidget;

namespace vorhaven {

class AdviceView;
class MainView;
class MoreResultsView;
class frmBrawlpad;

/// The toolkit as the main window's model sees it.
class QtToolkit final : public Toolkit {
public:
    QtToolkit();
    ~QtToolkit() override;

    /// Puts the main window on the screen. The other windows close with it.
    void Show(MainView& view, frmBrawlpad& pad);

    /// The part of the main window's screen that windows can use.
    [[nodiscard]] Size ScreenSize() const override;
    void ShowBusy(bool busy) override;
    /// Events are taken in at most every 16 ms, the first time 16 ms after the program became busy, so that a
    /// short run is not slowed by repaints, and then twice in a row: a run shows its progress in two steps,
    /// which stay together on the screen. What a run shows last is there as soon as it returns to the
    /// event loop.
    void ProcessEvents() override;
    void ProcessOverdueEvents() override;
    void ShowMessage(const std::string& prompt) override;
    [[nodiscard]] std::string ClipboardText() const override;
    void SetClipboardText(const std::string& text) override;
    void ShowModal(frmHero& window) override;
    void ShowModal(frmStats& window) override;
    void Show(frmMoreResults& window) override;
    void Show(frmAdvice& window) override;
    void WhenIdle(std::function<bool()> work) override;

private:
    [[nodiscard]] QRect UsableScreen() const;
    /// Brings a view beside the main window to the front; onto a screen again, if its own is gone.
    void BringUp(QWidget& view, Form& window);
    /// Loads a window and puts its view where the window wants to be.
    void Load(QWidget& view, Form& window);
    /// Gives a view as much of its preferred size as the screen has, and puts it where its window then
    /// belongs.
    void Fit(QWidget& view, Form& window);
    void RunModally(QDialog& view, Form& window);

    AutoRepeatFilter autoRepeatFilter_;
    QPointer<QWidget> mainView_;
    std::unique_ptr<MoreResultsView> moreResultsView_;
    std::unique_ptr<AdviceView> adviceView_;
    QTimer idle_;
    std::function<bool()> work_;
    QElapsedTimer sinceEvents_;
    bool isSecondStep_ = false;
};

} // namespace vorhaven
