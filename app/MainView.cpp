// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/MainView.h"

#include "app/ArmyListView.h"
#include "app/BoundWidgets.h"
#include "app/DropDown.h"
#include "app/ErrorReport.h"
#include "app/Scroller.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>

namespace vorhaven {

MainView::MainView(frmBrawlpad& pad) : pad_(&pad) {
    setWindowTitle(QString::fromStdString(pad.Caption));
    auto* const middle = new QVBoxLayout;
    middle->addWidget(MakeSettings());
    middle->addWidget(MakeQuickResults());
    middle->addStretch();
    middle->addWidget(MakeRunButtons());

    auto* const contents = new QWidget;
    auto* const columns = new QHBoxLayout(contents);
    columns->addWidget(MakeArmies(Side::Attack), 1);
    columns->addLayout(middle);
    columns->addWidget(MakeArmies(Side::Defend), 1);
    setCentralWidget(new Scroller(contents));
    MakeStatusBar();
    MakeMenu();
    OrderTabs();
    KeepWith(*this, pad.Unloading.Connect([this] { close(); }));
}

void MainView::closeEvent(QCloseEvent* event) {
    // A run that is under way ends before its next battle, and the program with it.
    RunOutermost([this] { pad_->Close(); });
    event->accept();
    QCoreApplication::exit();
}

QWidget* MainView::MakeArmies(Side side) {
    const auto i = static_cast<std::size_t>(side);
    frmBrawlpad& pad = *pad_;
    auto* const frame = Make<QGroupBox>(pad.FrameOf(side));

    auto* const pickerLabel = Make<QLabel>(pad.lblArmies[i]);
    auto* const picker = MakeFocusable<Picker>(pad, pad.cboArmies[i]);
    picker->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    picker->setMinimumContentsLength(18);
    LabelField(*picker, *pickerLabel);

    auto* const lines = MakeFocusable<ArmyListView>(pad, pad.lstArmies[i]);
    lines->setAccessibleName(frame->title());
    lines->MenuRequested = [this, side](const QPoint& position) {
        menuPosition_ = position;
        RunOutermost([&] { pad_->lstArmies_MouseUp(side, frmBrawlpad::MouseButton::Right); });
    };
    lines->DeletePressed = [this] { RunOutermost([&] { pad_->mnuPopupDelete.Choose(); }); };
    std::vector<QLabel*> stackLabels;
    if (side == Side::Attack)
        for (Label& label : pad.lblStack)
            stackLabels.push_back(Make<QLabel>(label));
    else
        stackLabels.push_back(Make<QLabel>(pad.lblDefStack));

    auto* const up = MakeFocusable<QPushButton>(pad, pad.sscListArrow[2 * i]);
    auto* const down = MakeFocusable<QPushButton>(pad, pad.sscListArrow[2 * i + 1]);
    auto* const clear = MakeFocusable<QPushButton>(pad, pad.sscClearList[i]);
    auto* const copiesLabel = Make<QLabel>(pad.lblDup[i]);
    auto* const copies = MakeNumberBox(pad, pad.updDup[i]);
    auto* const duplicate = MakeFocusable<QPushButton>(pad, pad.sscDup[i]);
    LabelField(*copies, *copiesLabel);

    auto* const list = new QHBoxLayout;
    list->addWidget(new StackLabels(*lines, stackLabels));
    list->addWidget(lines);
    auto* const tools = new QGridLayout;
    tools->addWidget(up, 0, 0);
    tools->addWidget(down, 0, 1);
    tools->addWidget(copiesLabel, 1, 0);
    tools->addWidget(copies, 1, 1);
    tools->addWidget(duplicate, 2, 0);
    tools->addWidget(clear, 2, 1);

    auto* const layout = new QVBoxLayout(frame);
    layout->addWidget(pickerLabel);
    layout->addWidget(picker);
    layout->addLayout(list, 1);
    layout->addLayout(tools);
    armyTabs_[i] = {picker, lines, up, down, copies, duplicate, clear};
    return frame;
}

QWidget* MainView::MakeSettings() {
    frmBrawlpad& pad = *pad_;
    auto* const frame = Make<QGroupBox>(pad.fraSetup);
    auto* const dice = MakeNumberBox(pad, pad.updCombatDice);
    auto* const battles = MakeFocusable<QLineEdit>(pad, pad.txtNumSimulations);
    auto* const terrain = MakeFocusable<DropDown>(pad, pad.cboTerrain);
    auto* const cityLevel = MakeFocusable<DropDown>(pad, pad.cboCityLevel);
    auto* const viewStats = MakeFocusable<QCheckBox>(pad, pad.sschkViewStats);
    for (DropDown* box : {terrain, cityLevel}) {
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(11);
    }
    auto* const layout = new QFormLayout(frame);
    AddRow(*layout, pad.lblCombatDice, dice);
    AddRow(*layout, pad.lblNumSimulations, battles);
    AddRow(*layout, pad.lblTerrain, terrain);
    AddRow(*layout, pad.lblCityLevel, cityLevel);
    layout->addRow(viewStats);
    middleTabs_ += {dice, battles, terrain, cityLevel, viewStats};
    return frame;
}

QWidget* MainView::MakeQuickResults() {
    frmBrawlpad& pad = *pad_;
    auto* const frame = Make<QGroupBox>(pad.fraQuickResults);
    auto* const layout = new QFormLayout(frame);
    const auto addFigure = [&](Label& caption, Label& figure) {
        auto* const label = Make<QLabel>(figure);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        // As wide as common figures, so that most results move nothing else in the window.
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("00.00000%")));
        AddRow(*layout, caption, label);
    };
    addFigure(pad.lblAttWinPercentCaption, pad.lblAttWinPercent);
    for (std::size_t column = frmBrawlpad::FirstAverage; column <= frmBrawlpad::LastAverage; ++column)
        addFigure(pad.lblAvgCaption[column], pad.lblAvg[column]);
    return frame;
}

QWidget* MainView::MakeRunButtons() {
    frmBrawlpad& pad = *pad_;
    auto* const buttons = new QWidget;
    auto* const layout = new QGridLayout(buttons);
    layout->setContentsMargins(0, 0, 0, 0);
    int place = 0;
    for (Button* button : {&pad.cmdAttack, &pad.sscAbort, &pad.sscMoreResults, &pad.sscExit}) {
        auto* const widget = MakeFocusable<QPushButton>(pad, *button);
        layout->addWidget(widget, place / 2, place % 2);
        middleTabs_ += widget;
        ++place;
    }
    return buttons;
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
    picProgBar->setMinimumHeight(progress->sizeHint().height());
    statusBar()->addWidget(picProgBar, 2);
    statusBar()->addWidget(Make<QLabel>(pad_->sbrBrawlpad[1]), 1);
    statusBar()->addPermanentWidget(Make<QLabel>(pad_->sbrBrawlpad[2]));
    statusBar()->addPermanentWidget(Make<QLabel>(pad_->sbrBrawlpad[3]));
}

void MainView::MakeMenu() {
    menu_ = new QMenu(this);
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
    menu_->addSeparator();
    Bind(*menu_->addAction(QString()), pad_->mnuPopupDelete);
    KeepWith(*this, pad_->PopupMenuRequested.Connect([this](Side /*side*/) { menu_->popup(menuPosition_); }));
}

void MainView::OrderTabs() {
    QWidget* previous = nullptr;
    for (QWidget* widget : armyTabs_[0] + middleTabs_ + armyTabs_[1]) {
        if (previous != nullptr)
            setTabOrder(previous, widget);
        previous = widget;
    }
    armyTabs_[0].front()->setFocus();
}

} // namespace vorhaven
