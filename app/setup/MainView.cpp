// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/setup/MainView.h"

#include "app/controls/Announcer.h"
#include "app/controls/BoundWidgets.h"
#include "app/controls/DropDown.h"
#include "app/controls/Scroller.h"
#include "app/controls/UndoKeys.h"
#include "app/program/ErrorReport.h"
#include "app/program/Shade.h"
#include "app/setup/ArmyListView.h"
#include "app/setup/ArmyPanel.h"
#include "app/setup/OddsView.h"
#include "app/setup/QuickResultsView.h"
#include "app/setup/Room.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFontInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>

namespace vorhaven {

namespace {

/// What the three columns take side by side in their usual shape.
constexpr int UsualWidthInEm = 80;

constexpr int MiddleWidthInEm = 29;

} // namespace

MainView::MainView(frmBrawlpad& pad)
    : pad_(&pad), announcer_(new Announcer(*this)),
      compact_(screen()->availableSize().width() < UsualWidthInEm * QFontInfo(font()).pixelSize()) {
    setWindowTitle(QString::fromStdString(pad.Caption));
    auto* const contents = new QWidget;
    auto* const columns = new QHBoxLayout(contents);
    if (compact_) {
        columns->setContentsMargins(CompactMargin, CompactMargin, CompactMargin, 0);
        columns->setSpacing(CompactMargin);
    }
    for (const Side side : BothSides)
        armies_[side] = new ArmyPanel(pad, side, compact_);
    // What a wide window leaves is left on both sides of the columns.
    columns->addStretch();
    columns->addWidget(armies_[Side::Attacker], 1);
    columns->addWidget(MakeMiddle());
    columns->addWidget(armies_[Side::Defender], 1);
    columns->addStretch();
    setCentralWidget(new Scroller(contents));
    MakeStatusBar();
    MakeMenus();
    MakeShortcuts();
    MakeSettling();
    OrderTabs();
    KeepWith(*this, pad.Unloading.Connect([this] { close(); }));
}

void MainView::closeEvent(QCloseEvent* event) {
    // A run that is under way ends before its next battle, and the program with it.
    RunOutermost([this] { pad_->Close(); });
    event->accept();
    QCoreApplication::exit();
}

QWidget* MainView::MakeMiddle() {
    auto* const contents = new QWidget;
    auto* const rows = new QVBoxLayout(contents);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(MakeSettings());
    auto* const odds = new OddsView(*pad_, pad_->OddsFrame, compact_);
    rows->addWidget(odds);
    middleTabs_ += odds->Tabs();
    auto* const middle = new QWidget;
    auto* const layout = new QVBoxLayout(middle);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const scroller = new ColumnScroller(contents);
    layout->addWidget(scroller);
    // On a small screen the column scrolls, but for the buttons that one needs all the time.
    const auto addRunButtons = [this](QVBoxLayout& to) { to.addLayout(MakeRunButtons()); };
    if (!compact_)
        addRunButtons(*rows);
    auto* const results = new QuickResultsView(*pad_, compact_);
    rows->addWidget(results);
    middleTabs_ += results->MoreResults();
    rows->addStretch();
    rows->addWidget(MakeButton(pad_->sscExit), 0, Qt::AlignRight);
    if (compact_) {
        addRunButtons(*layout);
        for (QVBoxLayout* part : {rows, layout})
            part->setSpacing(CompactMargin);
    } else {
        contents->setMinimumWidth(MiddleWidthInEm * QFontInfo(font()).pixelSize());
    }
    FollowRuns(*scroller);
    return middle;
}

void MainView::FollowRuns(ColumnScroller& middle) {
    KeepWith(middle, pad_->sscAbort.Changed.Connect([this, &middle] {
        if (isRunning_ && !pad_->sscAbort.Enabled)
            middle.ScrollToEnd();
        isRunning_ = pad_->sscAbort.Enabled;
        isFirstFigureAwaited_ = isRunning_;
    }));
    KeepWith(middle, pad_->ResultsFrame.lblAttWinPercent.Changed.Connect([this, &middle] {
        if (isFirstFigureAwaited_)
            middle.ScrollToEnd();
        isFirstFigureAwaited_ = false;
    }));
}

QWidget* MainView::MakeButton(Button& control) {
    auto* const button = MakeFocusable<QPushButton>(*pad_, control);
    middleTabs_ += button;
    return button;
}

QWidget* MainView::MakeSettings() {
    frmBrawlpad& pad = *pad_;
    auto* const frame = Make<QGroupBox>(pad.fraSetup);
    auto* const dice = MakeNumberBox(pad, pad.updCombatDice);
    auto* const battles = MakeFocusable<QLineEdit>(pad, pad.txtNumSimulations);
    auto* const terrain = MakeFocusable<DropDown>(pad, pad.cboTerrain);
    auto* const cityLevel = MakeFocusable<DropDown>(pad, pad.cboCityLevel);
    auto* const viewStats = MakeFocusable<QCheckBox>(pad, pad.sschkViewStats);
    connect(battles, &QLineEdit::returnPressed, this, [this] { attack_->click(); });
    auto* const layout = new QFormLayout(frame);
    if (compact_) {
        MakeCompact(*layout);
        layout->setHorizontalSpacing(SideBySideGap);
    }
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    AddRow(*layout, pad.lblCombatDice, dice);
    AddRow(*layout, pad.lblNumSimulations, battles);
    AddRow(*layout, pad.lblTerrain, terrain);
    AddRow(*layout, pad.lblCityLevel, cityLevel);
    auto* const terrainLocked = Make<QLabel>(pad.lblTerrainLocked);
    SetShade(*terrainLocked, Shade::Quiet);
    middleTabs_ += {dice, battles, terrain, cityLevel, viewStats};
    auto* const lastRow = new QHBoxLayout;
    lastRow->addWidget(viewStats, 1);
    lastRow->addWidget(MakeButton(pad.sscSwapSides));
    layout->addRow(lastRow);
    layout->addRow(terrainLocked);
    return frame;
}

QLayout* MainView::MakeRunButtons() {
    attack_ = new QPushButton;
    // Connected before the control is, so that it comes before the run.
    connect(attack_, &QPushButton::clicked, this,
            [this] { RunOutermost([this] { pad_->LimitNumBattles(); }); });
    Bind(*attack_, pad_->cmdAttack);
    BindFocus(*attack_, *pad_, pad_->cmdAttack);
    auto* const abort = MakeFocusable<QPushButton>(*pad_, pad_->sscAbort);
    Enlarge(*attack_, 1.0);
    attack_->setMinimumHeight(QFontInfo(font()).pixelSize() * 27 / 10);
    abort->setMinimumHeight(attack_->minimumHeight());
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, abort, &QPushButton::click);
    middleTabs_ += {attack_, abort};
    auto* const layout = new QHBoxLayout;
    layout->addWidget(attack_, 3);
    layout->addWidget(abort, 1);
    return layout;
}

void MainView::MakeStatusBar() {
    // The progress bar is hidden until the first run; its panel keeps the place.
    auto* const picProgBar = new QWidget;
    auto* const layout = new QHBoxLayout(picProgBar);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const progress = new QProgressBar(picProgBar);
    progress->setTextVisible(false);
    progress->setAccessibleName(QString::fromStdString(pad_->sbrBrawlpad[0].ToolTip));
    Bind(*progress, pad_->pbBattleProgress);
    layout->addWidget(progress);
    picProgBar->setToolTip(progress->accessibleName());
    progress->setMaximumHeight(fontMetrics().height() * 2 / 3);
    picProgBar->setMinimumHeight(fontMetrics().height());
    statusBar()->addWidget(picProgBar, 2);
    statusBar()->addWidget(Make<QLabel>(pad_->sbrBrawlpad[1]), 1);
    // A place of its own for notices, since the bar's own messages would cover the progress. It asks for no
    // room that is not there.
    notice_ = new QLabel;
    notice_->setObjectName("notice");
    notice_->setMinimumWidth(1);
    notice_->hide();
    statusBar()->addPermanentWidget(notice_);
    statusBar()->addPermanentWidget(Make<QLabel>(pad_->sbrBrawlpad[2]));
    statusBar()->addPermanentWidget(Make<QLabel>(pad_->sbrBrawlpad[3]));
}

void MainView::MakeMenus() {
    menu_ = new QMenu(QString::fromStdString(pad_->mnuPopup.Caption), this);
    for (std::size_t index = 1; index < pad_->mnuPopupItem.size(); ++index) {
        MenuItem& item = pad_->mnuPopupItem[index];
        if (index == frmBrawlpad::MedalItem) {
            QMenu* const medals = menu_->addMenu(QString::fromStdString(item.Caption));
            for (MenuItem& medal : pad_->mnuPopupItemMedals) {
                QAction* const action = medals->addAction(QString());
                action->setCheckable(true);
                Bind(*action, medal);
            }
            continue;
        }
        QAction* const action = menu_->addAction(QString());
        action->setCheckable(true);
        Bind(*action, item);
    }
    Bind(*menu_->addAction(QString()), pad_->mnuSep1);
    AddItem(*menu_, pad_->mnuPopupDelete, Qt::Key_Delete);
    menu_->addSeparator();
    Bind(*menu_->addAction(QString()), pad_->mnuEditHero);
    menu_->addSeparator();
    AddItem(*menu_, pad_->mnuCopy, QKeySequence::Copy);
    AddItem(*menu_, pad_->mnuPaste, QKeySequence::Paste);
    AddItem(*menu_, pad_->mnuCopyBattle, CopyBattleKey);
    auto* const bareMenu = new QMenu(this);
    AddItem(*bareMenu, pad_->mnuPaste, QKeySequence::Paste);
    for (QMenu* menu : {menu_, bareMenu}) {
        menu->addSeparator();
        AddItem(*menu, pad_->mnuUndo, QKeySequence::Undo);
        AddItem(*menu, pad_->mnuRedo, QKeySequence::Redo);
    }
    for (const Side side : BothSides)
        armies_[side]->BareMenuRequested = [bareMenu](const QPoint& position) { bareMenu->popup(position); };
    KeepWith(*this, pad_->PopupMenuRequested.Connect(
                        [this](Side side) { menu_->popup(armies_[side]->MenuPosition()); }));
}

void MainView::MakeShortcuts() {
    const auto add = [this](const auto& key, MenuItem& item) {
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [&item] { RunOutermost([&item] { item.Choose(); }); });
    };
    add(QKeySequence::Undo, pad_->mnuUndo);
    add(QKeySequence::Redo, pad_->mnuRedo);
    // A text field that has the focus takes this key for itself.
    add(QKeySequence::Paste, pad_->mnuPaste);
    add(CopyBattleKey, pad_->mnuCopyBattle);
    add(ReadOutKey, pad_->mnuReadOut);
    KeepWith(*this, pad_->ReadOut.Connect([this](const std::string& words) {
        announcer_->Say(QString::fromStdString(words));
    }));
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, this,
            [this] { RunOutermost([this] { pad_->GoToAdvice(); }); });
    KeepWith(*this, pad_->ComeToFrontRequested.Connect([this] { ComeToFront(); }));
    KeepWith(*this, pad_->GoToListRequested.Connect([this](Side side) {
        ComeToFront();
        armies_[side]->List()->setFocus(Qt::OtherFocusReason);
    }));
    LeaveUndoToWindow(*this);
}

void MainView::ComeToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void MainView::MakeSettling() {
    // Whatever an action changes is taken in at once, when the action is over.
    auto* const settling = new QTimer(this);
    settling->setSingleShot(true);
    settling->setInterval(0);
    connect(settling, &QTimer::timeout, this, [this] { RunOutermost([this] { pad_->Settle(); }); });
    KeepWith(*this, pad_->SetupTouched.Connect([settling] { settling->start(); }));
    constexpr int shownFor = 6000; // ms
    auto* const fading = new QTimer(this);
    fading->setSingleShot(true);
    fading->setInterval(shownFor);
    connect(fading, &QTimer::timeout, notice_, &QWidget::hide);
    KeepWith(*this, pad_->Noticed.Connect([this, fading](const std::string& notice) {
        notice_->setText(QString::fromStdString(notice));
        notice_->show();
        fading->start();
    }));
}

void MainView::OrderTabs() {
    QWidget* previous = nullptr;
    for (QWidget* widget : armies_.Attacker->Tabs() + middleTabs_ + armies_.Defender->Tabs()) {
        if (previous != nullptr)
            setTabOrder(previous, widget);
        previous = widget;
    }
    armies_.Attacker->Tabs().front()->setFocus();
}

} // namespace vorhaven
