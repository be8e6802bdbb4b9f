// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QtToolkit.h"

#include "app/Binding.h"
#include "app/HeroView.h"
#include "app/MainView.h"
#include "app/MoreResultsView.h"
#include "app/StatsView.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>

namespace vorhaven {
namespace {

constexpr qint64 EventInterval = 16;

/// Loads a window and puts its view where the window wants to be.
void Load(QWidget& view, Form& window) {
    view.ensurePolished();
    // About what the frame takes that the window manager puts around it.
    const QSize frame(8, view.style()->pixelMetric(QStyle::PM_TitleBarHeight) + 8);
    view.resize(view.sizeHint().boundedTo(QGuiApplication::primaryScreen()->availableSize() - frame));
    window.Extent = {view.width(), view.height()};
    window.Form_Load();
    view.move(QGuiApplication::primaryScreen()->geometry().topLeft() + QPoint(window.Left, window.Top));
}

/// The hourglass is lifted while a modal window waits for the user.
class PointerLift {
public:
    PointerLift() : lifted_(QGuiApplication::overrideCursor() != nullptr) {
        if (lifted_)
            QGuiApplication::restoreOverrideCursor();
    }
    ~PointerLift() {
        if (lifted_)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    PointerLift(const PointerLift&) = delete;
    PointerLift& operator=(const PointerLift&) = delete;

private:
    bool lifted_;
};

} // namespace

QtToolkit::QtToolkit() {
    sinceEvents_.start();
}

void QtToolkit::Show(MainView& view, frmBrawlpad& pad) {
    mainView_ = &view;
    Load(view, pad);
    view.show();
}

Size QtToolkit::ScreenSize() const {
    const QSize size = QGuiApplication::primaryScreen()->size();
    return {size.width(), size.height()};
}

void QtToolkit::ShowBusy(bool busy) {
    if (busy && QGuiApplication::overrideCursor() == nullptr)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (!busy && QGuiApplication::overrideCursor() != nullptr)
        QGuiApplication::restoreOverrideCursor();
}

void QtToolkit::ProcessEvents() {
    if (!sinceEvents_.hasExpired(EventInterval))
        return;
    QCoreApplication::processEvents();
    sinceEvents_.restart();
}

void QtToolkit::ShowMessage(const std::string& prompt) {
    QMessageBox box(QMessageBox::NoIcon, mainView_->windowTitle(), QString::fromStdString(prompt),
                    QMessageBox::Ok, mainView_);
    box.exec();
}

void QtToolkit::RunModally(QDialog& view, Form& window) {
    const PointerLift lift;
    const Connection unloading = window.Unloading.Connect([&view] { view.accept(); });
    Load(view, window);
    view.exec();
}

void QtToolkit::ShowModal(frmHero& window) {
    HeroView view(window, mainView_);
    RunModally(view, window);
}

void QtToolkit::ShowModal(frmStats& window) {
    StatsView view(window, mainView_);
    RunModally(view, window);
}

void QtToolkit::Show(frmMoreResults& window) {
    delete moreResultsView_;
    moreResultsView_ = new MoreResultsView(window, mainView_);
    KeepWith(*moreResultsView_,
             window.Unloading.Connect([view = moreResultsView_.data()] { view->close(); }));
    Load(*moreResultsView_, window);
    moreResultsView_->show();
}

} // namespace vorhaven
