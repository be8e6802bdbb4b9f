#include "app/QtWindows.h"

#include "app/ErrorReport.h"
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

constexpr qint64 eventInterval = 16;

/// Loads a window and puts its view where the window wants to be.
void Load(QWidget& view, Form& window) {
    view.ensurePolished();
    // About what the frame takes that the window manager puts around it.
    const QSize frame(8, view.style()->pixelMetric(QStyle::PM_TitleBarHeight) + 8);
    view.resize(view.sizeHint().boundedTo(QGuiApplication::primaryScreen()->availableSize() - frame));
    window.Extent = {view.width(), view.height()};
    window.Form_Load();
    view.move(QGuiApplication::primaryScreen()->geometry().topLeft() +
              QPoint(window.Left.Value(), window.Top.Value()));
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

QtWindows::QtWindows() {
    sinceEvents_.start();
}

void QtWindows::Show(MainView& view, frmBrawlpad& pad) {
    mainView_ = &view;
    Load(view, pad);
    view.show();
}

Size QtWindows::ScreenSize() const {
    const QSize size = QGuiApplication::primaryScreen()->size();
    return {size.width(), size.height()};
}

void QtWindows::ShowBusy(bool busy) {
    if (busy && QGuiApplication::overrideCursor() == nullptr)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (!busy && QGuiApplication::overrideCursor() != nullptr)
        QGuiApplication::restoreOverrideCursor();
}

void QtWindows::ProcessEvents() {
    if (!sinceEvents_.hasExpired(eventInterval))
        return;
    QCoreApplication::processEvents();
    sinceEvents_.restart();
}

void QtWindows::ShowMessage(const std::string& prompt) {
    QMessageBox box(QMessageBox::NoIcon, mainView_->windowTitle(), QString::fromStdString(prompt),
                    QMessageBox::Ok, mainView_);
    box.exec();
}

void QtWindows::RunModally(QDialog& view, Form& window) {
    const PointerLift lift;
    window.Unloaded = [&view] { view.accept(); };
    Load(view, window);
    view.exec();
    window.Unloaded = nullptr;
}

void QtWindows::ShowModal(frmHero& window) {
    HeroView view(window, mainView_);
    RunModally(view, window);
}

void QtWindows::ShowModal(frmStats& window) {
    StatsView view(window, mainView_);
    RunModally(view, window);
}

void QtWindows::Show(frmMoreResults& window) {
    delete moreResultsView_;
    moreResultsView_ = new MoreResultsView(window, mainView_);
    window.Unloaded = [view = moreResultsView_] {
        if (view)
            view->close();
    };
    Load(*moreResultsView_, window);
    moreResultsView_->show();
}

} // namespace vorhaven
