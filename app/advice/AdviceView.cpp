// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/advice/AdviceView.h"

#include "app/advice/AdviceTableView.h"
#include "app/advice/OrdersPlot.h"
#include "app/advice/SlayingMap.h"
#include "app/controls/Announcer.h"
#include "app/controls/BoundWidgets.h"
#include "app/controls/DropDown.h"
#include "app/controls/OwnNames.h"
#include "app/controls/UndoKeys.h"
#include "app/program/ErrorReport.h"
#include "app/program/Shade.h"
#include "app/setup/OddsBar.h"

#include <QFocusEvent>
#include <QFontInfo>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QStackedLayout>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace vorhaven {
namespace {

QLabel* MakeQuiet(Label& control) {
    auto* const label = Make<QLabel>(control);
    SetShade(*label, Shade::Quiet);
    return label;
}

/// A label that ends in "…" where its text is longer than there is room.
class Elided final : public QLabel {
protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const QRect place = contentsRect();
        style()->drawItemText(
            &painter, place, static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())),
            palette(), isEnabled(), fontMetrics().elidedText(text(), Qt::ElideRight, place.width()),
            foregroundRole());
    }
};

/// A sentence of whatever length, which does not widen the window.
QLabel* MakeSentence(Label& control) {
    auto* const label = Make<Elided>(control);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    KeepWith(*label, control.Changed.Connect([label] { label->setToolTip(label->text()); }));
    return label;
}

/// The last row of a page: what is said about the figures, and the button that acts on them.
QLayout* MakeLastRow(QLabel* label, QPushButton* button) {
    label->setWordWrap(label->sizePolicy().horizontalPolicy() != QSizePolicy::Ignored);
    auto* const row = new QHBoxLayout;
    row->addWidget(label, 1);
    row->addWidget(button);
    return row;
}

/// Gives a button that was disabled with the focus on it, while figures were out of date, the focus back once
/// it is enabled again, unless the user has moved on.
class FocusKeeper final : public QObject {
public:
    explicit FocusKeeper(QWidget& button) : QObject(&button), button_(&button) {
        button.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusOut)
            hadFocus_ = static_cast<QFocusEvent*>(event)->reason() == Qt::OtherFocusReason;
        const QWidget* const window = button_->window();
        if (event->type() == QEvent::EnabledChange && button_->isEnabled() && hadFocus_ &&
            window->focusWidget() == window)
            button_->setFocus(Qt::OtherFocusReason);
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget* button_;
    bool hadFocus_ = false;
};

} // namespace

AdviceView::AdviceView(frmAdvice& advice)
    : SecondaryWindow(advice, nullptr), advice_(&advice), pages_(new QTabWidget) {
    // A window of its own right: as a dialog it would stay in front of the main window.
    setWindowFlags(Qt::Window);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(MakeHead());
    MakePages();
    layout->addWidget(pages_, 1);
    layout->addLayout(MakeFoot());
    MakeShortcuts();
    MakeAnnouncements();
    // The tabs come last, whose keys are seldom needed.
    setTabOrder(done_, pages_->tabBar());
}

QSize AdviceView::sizeHint() const {
    const int em = QFontInfo(font()).pixelSize();
    return {75 * em, 53 * em + em / 3};
}

QLayout* AdviceView::MakeHead() {
    OddsPanel& odds = advice_->OddsFrame();
    PerSide<QLabel*> chances{};
    for (const Side side : BothSides) {
        chances[side] = Make<QLabel>(odds.lblChance[side]);
        Enlarge(*chances[side], 1.25);
    }
    auto* const head = new QHBoxLayout;
    head->addWidget(Make<QLabel>(odds.lblSide.Attacker));
    head->addWidget(chances.Attacker);
    head->addWidget(new OddsBar(odds), 1);
    head->addWidget(chances.Defender);
    head->addWidget(Make<QLabel>(odds.lblSide.Defender));
    return head;
}

void AdviceView::MakePages() {
    AddPage(advice_->Armies, MakeArmies());
    AddPage(advice_->Slaying, MakeSlaying());
    AddPage(advice_->Changes, MakeChanges());
    AddPage(advice_->Orders, MakeOrders());
    AddPage(advice_->FewestArmies, MakeFewestArmies());
    connect(pages_, &QTabWidget::currentChanged, this,
            [this](int page) { RunOutermost([&] { advice_->ChoosePage(static_cast<std::size_t>(page)); }); });
}

void AdviceView::AddPage(AdvicePage& page, QLayout* contents) {
    auto* const whole = new QWidget;
    whole->setLayout(contents);
    contents->setContentsMargins(0, 0, 0, 0);
    auto* const empty = MakeQuiet(page.lblEmpty);
    empty->setAlignment(Qt::AlignCenter);
    empty->setWordWrap(true);
    auto* const tab = new QWidget;
    auto* const margin = new QVBoxLayout(tab);
    auto* const either = new QStackedLayout;
    margin->addLayout(either);
    either->addWidget(whole);
    either->addWidget(empty);
    const auto follow = [either, &page] {
        either->setCurrentIndex(page.lblEmpty.Caption.Get().empty() ? 0 : 1);
    };
    follow();
    KeepWith(*empty, page.lblEmpty.Changed.Connect(follow));
    pages_->addTab(tab, QString::fromStdString(page.Caption));
}

QPushButton* AdviceView::MakeActing(Button& control) {
    auto* const button = MakeFocusable<QPushButton>(*advice_, control);
    new FocusKeeper(*button);
    return button;
}

QLayout* AdviceView::MakeArmies() {
    ArmiesPage& page = advice_->Armies;
    auto* const layout = new QVBoxLayout;
    layout->addWidget(new AdviceTableView(page.tblArmies), 1);
    layout->addWidget(MakeSentence(page.lblSentence));
    return layout;
}

QLayout* AdviceView::MakeSlaying() {
    SlayingPage& page = advice_->Slaying;
    auto* const legend = new QHBoxLayout;
    legend->addWidget(Make<QLabel>(page.lblLegend));
    for (const Side side : BothSides) {
        legend->addSpacing(fontMetrics().averageCharWidth());
        legend->addWidget(new ColourKey(side));
        legend->addWidget(Make<QLabel>(page.lblHalf[side]));
    }
    legend->addStretch();
    auto* const layout = new QVBoxLayout;
    layout->addLayout(legend);
    layout->addWidget(new SlayingMap(page), 1);
    layout->addWidget(MakeSentence(page.lblSentence));
    return layout;
}

QLayout* AdviceView::MakeChanges() {
    ChangesPage& page = advice_->Changes;
    auto* const show = MakeFocusable<DropDown>(*advice_, page.cboShow);
    auto* const showLabel = Make<QLabel>(page.lblShow);
    LabelField(*show, *showLabel);
    auto* const top = new QHBoxLayout;
    top->addWidget(MakeQuiet(page.lblAbove), 1);
    top->addWidget(showLabel);
    top->addWidget(show);
    auto* const layout = new QVBoxLayout;
    layout->addLayout(top);
    layout->addWidget(new AdviceTableView(page.tblChanges), 1);
    layout->addLayout(MakeLastRow(MakeSentence(page.lblSentence), MakeActing(page.cmdApply)));
    return layout;
}

QLayout* AdviceView::MakeOrders() {
    OrdersPage& page = advice_->Orders;
    auto* const stack = MakeFocusable<DropDown>(*advice_, page.cboStack);
    auto* const stackLabel = Make<QLabel>(page.lblStack);
    LabelField(*stack, *stackLabel);
    const auto offerChoice = [stack, stackLabel, &page] {
        for (QWidget* widget : std::initializer_list<QWidget*>{stack, stackLabel})
            widget->setVisible(page.cboStack.Items().size() > 1);
    };
    auto* const above = MakeSentence(page.lblAbove);
    SetShade(*above, Shade::Quiet);
    auto* const top = new QHBoxLayout;
    top->addWidget(above, 1);
    top->addWidget(stackLabel);
    top->addWidget(stack);
    auto* const left = new QVBoxLayout;
    left->addWidget(new AdviceTableView(page.tblOrders), 4);
    auto* const plot = new QFrame;
    plot->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    (new QVBoxLayout(plot))->addWidget(new OrdersPlot(page));
    plot->layout()->setContentsMargins(1, 1, 1, 1);
    // The table says all of it.
    HideFromScreenReaders(*plot);
    left->addWidget(plot, 5);
    auto* const right = new QVBoxLayout;
    right->addWidget(new AdviceTableView(page.tblLines), 1);
    right->addLayout(MakeLastRow(MakeQuiet(page.lblBelow), MakeActing(page.cmdUse)));
    auto* const halves = new QHBoxLayout;
    halves->addLayout(left, 1);
    halves->addLayout(right, 1);
    auto* const layout = new QVBoxLayout;
    layout->addLayout(top);
    layout->addLayout(halves, 1);
    // Once they have a parent to be shown in.
    stack->setParent(this);
    stackLabel->setParent(this);
    offerChoice();
    KeepWith(*stack, page.cboStack.Changed.Connect(offerChoice));
    return layout;
}

QLayout* AdviceView::MakeFewestArmies() {
    FewestArmiesPage& page = advice_->FewestArmies;
    auto* const toWin = MakeNumberBox(*advice_, page.updToWin);
    auto* const toWinLabel = Make<QLabel>(page.lblToWin);
    LabelField(*toWin, *toWinLabel);
    auto* const top = new QHBoxLayout;
    top->addWidget(toWinLabel);
    top->addWidget(toWin);
    top->addWidget(MakeSentence(page.lblSentence), 1);
    auto* const halves = new QHBoxLayout;
    halves->addWidget(new AdviceTableView(page.tblParts), 1);
    auto* const right = new QVBoxLayout;
    right->addWidget(new AdviceTableView(page.tblLines), 1);
    right->addLayout(MakeLastRow(MakeQuiet(page.lblBelow), MakeActing(page.cmdSelect)));
    halves->addLayout(right, 1);
    auto* const layout = new QVBoxLayout;
    layout->addLayout(top);
    layout->addLayout(halves, 1);
    return layout;
}

QLayout* AdviceView::MakeFoot() {
    auto* const progress = new QProgressBar;
    progress->setTextVisible(false);
    progress->setFixedSize(18 * fontMetrics().averageCharWidth(), fontMetrics().height() * 2 / 3);
    QSizePolicy policy = progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    progress->setSizePolicy(policy);
    Bind(*progress, advice_->pbProgress);
    auto* const text = MakeSentence(advice_->lblProgress);
    SetShade(*text, Shade::Quiet);
    KeepWith(*progress, advice_->lblProgress.Changed.Connect(
                            [progress, text] { progress->setAccessibleName(text->text()); }));
    done_ = MakeDone(*advice_, advice_->sscDone);
    auto* const foot = new QHBoxLayout;
    foot->addWidget(progress);
    foot->addWidget(text, 1);
    foot->addWidget(done_);
    return foot;
}

void AdviceView::MakeShortcuts() {
    const auto add = [this](const QKeySequence& key, void (AdviceHost::*act)()) {
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [this, act] { RunOutermost([&] { (advice_->Host().*act)(); }); });
    };
    for (const QKeySequence& key : QKeySequence::keyBindings(QKeySequence::Undo))
        add(key, &AdviceHost::Undo);
    for (const QKeySequence& key : QKeySequence::keyBindings(QKeySequence::Redo))
        add(key, &AdviceHost::Redo);
    add(Qt::Key_F6, &AdviceHost::GoToMain);
    const auto turn = [this](const QKeySequence& key, int by) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, [this, by] {
            pages_->setCurrentIndex((pages_->currentIndex() + by + pages_->count()) % pages_->count());
        });
    };
    for (const QKeyCombination key : {Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown})
        turn(QKeySequence(key), 1);
    for (const QKeyCombination key : {Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, Qt::CTRL | Qt::Key_PageUp})
        turn(QKeySequence(key), -1);
    LeaveUndoToWindow(*this);
}

void AdviceView::MakeAnnouncements() {
    auto* const announcer = new Announcer(*this);
    auto* const settled = new QTimer(this);
    settled->setSingleShot(true);
    settled->setInterval(500);
    connect(settled, &QTimer::timeout, this, [this, announcer] {
        const std::string words = advice_->OddsFrame().Announcement();
        if (isActiveWindow() && !words.empty())
            announcer->Say(QString::fromStdString(words));
    });
    KeepWith(*settled, advice_->OddsFrame().fraOdds.Changed.Connect([settled] { settled->start(); }));
}

void AdviceView::showEvent(QShowEvent* event) {
    SecondaryWindow::showEvent(event);
    RunOutermost([this] { advice_->SetSeen(true); });
}

void AdviceView::hideEvent(QHideEvent* event) {
    SecondaryWindow::hideEvent(event);
    RunOutermost([this] { advice_->SetSeen(false); });
}

} // namespace vorhaven
