// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/QtToolkit.h"

#include "app/advice/AdviceView.h"
#include "app/controls/Binding.h"
#include "app/controls/OwnNames.h"
#include "app/hero/HeroView.h"
#include "app/program/ErrorReport.h"
#include "app/results/MoreResultsView.h"
#include "app/results/StatsView.h"
#include "app/setup/MainView.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>

#include <functional>

namespace vorhaven {
namespace {

constexpr qint64 EventInterval = 16; // ms
constexpr qint64 LongestWait = 100;  // ms

/// How long two letters that look up an entry of a list can be apart.
constexpr int LetterInterval = 1000; // ms

/// What the window manager puts around a window: about as much as it puts around another one, if that is
/// known.
QSize FrameOf(const QWidget& view, const QWidget* other) {
    for (const QWidget* window : {&view, other})
        if (window != nullptr && window->frameGeometry() != window->geometry())
            return window->frameGeometry().size() - window->size();
    return {8, view.style()->pixelMetric(QStyle::PM_TitleBarHeight) + 8};
}

/// Notices when the window manager has put its frame around a window, once.
class FrameWatcher final : public QObject {
public:
    FrameWatcher(QWidget& view, std::function<void()> onFrame)
        : QObject(&view), view_(&view), onFrame_(std::move(onFrame)) {
        view.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool moved = event->type() == QEvent::Move || event->type() == QEvent::WindowActivate;
        if (moved && view_->isVisible() && view_->frameGeometry() != view_->geometry()) {
            view_->removeEventFilter(this);
            deleteLater();
            onFrame_();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget* view_;
    std::function<void()> onFrame_;
};

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
    qApp->installEventFilter(&autoRepeatFilter_);
    QApplication::setKeyboardInputInterval(LetterInterval);
    InstallOwnNames();
    sinceEvents_.start();
    QObject::connect(&idle_, &QTimer::timeout, &idle_, [this] {
        RunOutermost([this] {
            // The work may be given other work meanwhile.
            const auto work = work_;
            idle_.stop();
            if (work())
                idle_.start(0);
        });
    });
}

QtToolkit::~QtToolkit() = default;

void QtToolkit::Show(MainView& view, frmBrawlpad& pad) {
    mainView_ = &view;
    // The windows beside it go before their models, which end with the main window's.
    QObject::connect(&view, &QObject::destroyed, &idle_, [this] {
        idle_.stop();
        adviceView_.reset();
        moreResultsView_.reset();
    });
    Load(view, pad);
    view.show();
    new FrameWatcher(view, [this, &view, &pad] { Fit(view, pad); });
}

QRect QtToolkit::UsableScreen() const {
    const QScreen* const screen =
        mainView_ != nullptr ? mainView_->screen() : QGuiApplication::primaryScreen();
    return screen->availableGeometry();
}

Size QtToolkit::ScreenSize() const {
    const QRect screen = UsableScreen();
    return {screen.width(), screen.height()};
}

void QtToolkit::Load(QWidget& view, Form& window) {
    view.ensurePolished();
    window.Form_Load();
    // Only now does the view know all that it has to show.
    Fit(view, window);
}

void QtToolkit::Fit(QWidget& view, Form& window) {
    const QSize frame = FrameOf(view, mainView_);
    const QRect screen = UsableScreen();
    view.resize(view.sizeHint().boundedTo(screen.size() - frame));
    window.Extent = {view.width() + frame.width(), view.height() + frame.height()};
    window.CentreOn(ScreenSize());
    view.move(screen.topLeft() + QPoint(window.Left, window.Top));
}

void QtToolkit::ShowBusy(bool busy) {
    if (busy)
        sinceEvents_.start();
    if (busy && QGuiApplication::overrideCursor() == nullptr)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (!busy && QGuiApplication::overrideCursor() != nullptr)
        QGuiApplication::restoreOverrideCursor();
}

void QtToolkit::ProcessEvents() {
    if (!isSecondStep_ && !sinceEvents_.hasExpired(EventInterval))
        return;
    isSecondStep_ = !isSecondStep_;
    QCoreApplication::processEvents();
    sinceEvents_.restart();
}

void QtToolkit::ProcessOverdueEvents() {
    if (!sinceEvents_.hasExpired(LongestWait))
        return;
    QCoreApplication::processEvents();
    sinceEvents_.restart();
}

void QtToolkit::ShowMessage(const std::string& prompt) {
    QMessageBox box(QMessageBox::NoIcon, mainView_->windowTitle(), QString::fromStdString(prompt),
                    QMessageBox::Ok, mainView_);
    box.exec();
}

std::string QtToolkit::ClipboardText() const {
    return QGuiApplication::clipboard()->text().toStdString();
}

void QtToolkit::SetClipboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
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
    if (moreResultsView_ == nullptr) {
        // Without a parent, so that it can lie behind the main window.
        moreResultsView_ = std::make_unique<MoreResultsView>(window, nullptr);
        MoreResultsView& view = *moreResultsView_;
        KeepWith(view, window.Unloading.Connect([&view] { view.close(); }));
        Load(view, window);
    } else {
        window.Form_Load();
    }
    BringUp(*moreResultsView_, window);
}

void QtToolkit::Show(frmAdvice& window) {
    if (adviceView_ == nullptr) {
        adviceView_ = std::make_unique<AdviceView>(window);
        AdviceView& view = *adviceView_;
        KeepWith(view, window.Unloading.Connect([&view] { view.close(); }));
        Load(view, window);
    }
    BringUp(*adviceView_, window);
}

void QtToolkit::BringUp(QWidget& view, Form& window) {
    // The view stays where the user has put it, unless its screen is gone.
    if (QGuiApplication::screenAt(view.geometry().center()) == nullptr)
        Fit(view, window);
    view.setWindowState(view.windowState() & ~Qt::WindowMinimized);
    view.show();
    view.raise();
    view.activateWindow();
}

void QtToolkit::WhenIdle(std::function<bool()> work) {
    work_ = std::move(work);
    // A timer without an interval goes off when no event waits.
    idle_.start(0);
}

} // namespace vorhaven
