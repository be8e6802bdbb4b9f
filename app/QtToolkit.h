// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/Toolkit.h"

#include <QElapsedTimer>
#include <QPointer>

class QDialog;
class QWidget;

namespace vorhaven {

class MainView;
class frmBrawlpad;

/// The toolkit as the main window's model sees it.
class QtToolkit final : public Toolkit {
public:
    QtToolkit();

    /// Puts the main window on the screen. The other windows belong to it.
    void Show(MainView& view, frmBrawlpad& pad);

    [[nodiscard]] Size ScreenSize() const override;
    void ShowBusy(bool busy) override;
    /// Events are taken in at most every 16 ms, so that a short run is not slowed by a hundred repaints. What
    /// a run shows last stands on the screen as soon as it returns to the event loop.
    void ProcessEvents() override;
    void ShowMessage(const std::string& prompt) override;
    void ShowModal(frmHero& window) override;
    void ShowModal(frmStats& window) override;
    void Show(frmMoreResults& window) override;

private:
    void RunModally(QDialog& view, Form& window);

    QPointer<QWidget> mainView_;
    QPointer<QDialog> moreResultsView_;
    QElapsedTimer sinceEvents_;
};

} // namespace vorhaven
