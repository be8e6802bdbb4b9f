// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QuickResultsView.h"

#include "app/BoundWidgets.h"
#include "app/Shade.h"

#include <QMenu>
#include <QPushButton>

#include <algorithm>

namespace vorhaven {
namespace {

int WidthOf(const QLabel& label, const char* text) {
    return label.fontMetrics().horizontalAdvance(QString::fromUtf8(text));
}

/// Indents numbers so that their decimal points stand below each other.
void AlignPoints(const QList<QLabel*>& numbers) {
    const auto widthBeforePoint = [](const QLabel& number) {
        return number.fontMetrics().horizontalAdvance(number.text().section('.', 0, 0));
    };
    int widest = 0;
    for (const QLabel* number : numbers)
        widest = std::max(widest, widthBeforePoint(*number));
    for (QLabel* number : numbers)
        number->setIndent(widest - widthBeforePoint(*number));
}

} // namespace

QuickResultsView::QuickResultsView(frmBrawlpad& pad, bool compact) : pad_(&pad) {
    Bind(*this, pad.fraQuickResults);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(MakeWinPercent(compact));
    auto* const details = new QBoxLayout(compact ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    details->addLayout(MakeAverages(), 1);
    MakeMoreResults();
    details->addWidget(moreResults_, 0, Qt::AlignRight | Qt::AlignBottom);
    layout->addLayout(details);
    MakeMenu();
}

QLabel* QuickResultsView::MakeFigure(Label& control) {
    auto* const figure = Make<QLabel>(control);
    figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A right click belongs to the frame.
    figure->setContextMenuPolicy(Qt::NoContextMenu);
    KeepWith(*figure, pad_->lblOutOfDate.Changed.Connect([this, figure] {
        SetShade(*figure, pad_->lblOutOfDate.Caption.Get().empty() ? Shade::Full : Shade::Dimmed);
    }));
    return figure;
}

QLayout* QuickResultsView::MakeWinPercent(bool compact) {
    auto* const caption = Make<QLabel>(pad_->lblAttWinPercentCaption);
    auto* const wins = MakeFigure(pad_->lblAttWinPercent);
    Enlarge(*wins, compact ? 1.4 : 1.8);
    wins->setMinimumHeight(wins->fontMetrics().height());
    LabelField(*wins, *caption);
    auto* const margin = Make<QLabel>(pad_->lblWinMargin);
    SetShade(*margin, Shade::Quiet);
    KeepWith(*margin, pad_->lblWinMargin.Changed.Connect([this, margin] {
        margin->setToolTip(QString::fromStdString(pad_->WinMarginInWords));
        margin->setAccessibleDescription(margin->toolTip());
    }));

    auto* const layout = new QGridLayout;
    layout->addWidget(caption, 0, 0, 1, 2, Qt::AlignLeft);
    layout->addWidget(Make<QLabel>(pad_->lblOutOfDate), 0, 2);
    layout->addWidget(wins, 1, 0);
    layout->addWidget(margin, 1, 1, 1, 2, Qt::AlignLeft | Qt::AlignVCenter);
    // Room for any percentage with its margin behind it.
    layout->addItem(new QSpacerItem(WidthOf(*wins, "00.0000000000000%") + WidthOf(*margin, "  ± 00.0"), 0), 2,
                    0, 1, 3);
    layout->setColumnStretch(1, 1);
    return layout;
}

QLayout* QuickResultsView::MakeAverages() {
    auto* const layout = new QFormLayout;
    for (std::size_t column = frmBrawlpad::FirstAverage; column <= frmBrawlpad::LastAverage; ++column) {
        Label& control = pad_->lblAvg[column];
        auto* const figure = MakeFigure(control);
        figure->setMinimumWidth(WidthOf(*figure, "000.000000"));
        AddRow(*layout, pad_->lblAvgCaption[column], figure);
        averages_ += figure;
        KeepWith(*figure, control.Changed.Connect([this] { AlignPoints(averages_); }));
    }
    return layout;
}

void QuickResultsView::MakeMoreResults() {
    moreResults_ = MakeFocusable<QPushButton>(*pad_, pad_->sscMoreResults);
    // A number of battles that the last run did not have cannot be shown.
    const auto enableIfPossible = [this] {
        moreResults_->setEnabled(pad_->sscMoreResults.Enabled && pad_->HasResultsToShow());
    };
    KeepWith(*moreResults_, pad_->txtNumSimulations.Changed.Connect(enableIfPossible));
    KeepWith(*moreResults_, pad_->sscMoreResults.Changed.Connect(enableIfPossible));
}

void QuickResultsView::MakeMenu() {
    auto* const menu = new QMenu(this);
    Bind(*menu->addAction(QString()), pad_->mnuCopyBattle);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, menu,
            [this, menu](const QPoint& position) { menu->popup(mapToGlobal(position)); });
}

} // namespace vorhaven
