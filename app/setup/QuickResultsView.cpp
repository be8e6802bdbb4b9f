// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/setup/QuickResultsView.h"

#include "app/controls/BoundWidgets.h"
#include "app/program/Shade.h"
#include "app/setup/Room.h"

#include <QMenu>
#include <QPushButton>

#include <algorithm>

namespace vorhaven {
namespace {

/// A font, made smaller as far as it takes to satisfy `fits`, which is asked for the metrics of each.
template <class Fits>
QFont FittedFont(QFont font, Fits fits) {
    constexpr double step = 0.25;
    while (font.pointSizeF() > 1.0 && !fits(QFontMetrics(font)))
        font.setPointSizeF(font.pointSizeF() - step);
    return font;
}

/// Shows numbers with their decimal points below each other. A number that would not end within `room` pixels
/// in the usual font gets a smaller one.
void AlignPoints(const QList<QLabel*>& numbers, const QFont& usual, int room) {
    const auto widthBeforePoint = [](const QFontMetrics& metrics, const QLabel& number) {
        return metrics.horizontalAdvance(number.text().section('.', 0, 0));
    };
    int point = 0;
    for (const QLabel* number : numbers)
        point = std::max(point, widthBeforePoint(QFontMetrics(usual), *number));
    for (QLabel* number : numbers) {
        const auto start = [&](const QFontMetrics& metrics) {
            return point - widthBeforePoint(metrics, *number);
        };
        number->setFont(FittedFont(usual, [&](const QFontMetrics& metrics) {
            return start(metrics) + WidthOf(number->text(), metrics) <= room;
        }));
        number->setIndent(start(number->fontMetrics()));
    }
}

} // namespace

QuickResultsView::QuickResultsView(frmBrawlpad& pad, bool compact) : panel_(&pad.ResultsFrame) {
    Bind(*this, panel_->fraQuickResults);
    auto* const layout = new QVBoxLayout(this);
    if (compact)
        MakeCompact(*layout);
    auto* const head = new QVBoxLayout;
    head->setSpacing(0);
    head->addLayout(MakeCaptions());
    head->addLayout(MakeWinPercent(compact));
    layout->addLayout(head);
    auto* const details = new QBoxLayout(compact ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    details->addLayout(MakeAverages(), 1);
    moreResults_ = MakeFocusable<QPushButton>(pad, pad.sscMoreResults);
    details->addWidget(moreResults_, 0, Qt::AlignRight | Qt::AlignBottom);
    layout->addLayout(details);
    MakeMenu(pad);
}

QLabel* QuickResultsView::MakeFigure(Label& control) {
    auto* const figure = Make<QLabel>(control);
    figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A right click belongs to the frame.
    figure->setContextMenuPolicy(Qt::NoContextMenu);
    KeepWith(*figure, panel_->lblOutOfDate.Changed.Connect([this, figure] {
        SetShade(*figure, panel_->lblOutOfDate.Caption.Get().empty() ? Shade::Full : Shade::Dimmed);
    }));
    return figure;
}

QLayout* QuickResultsView::MakeCaptions() {
    caption_ = Make<QLabel>(panel_->lblAttWinPercentCaption);
    auto* const outOfDate = Make<QLabel>(panel_->lblOutOfDate);
    SetShade(*outOfDate, Shade::Quiet);
    // It asks for no room, so that nothing moves when it comes and goes.
    outOfDate->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* const layout = new QHBoxLayout;
    layout->addWidget(caption_);
    layout->addWidget(outOfDate, 1, Qt::AlignRight);
    return layout;
}

QLayout* QuickResultsView::MakeWinPercent(bool compact) {
    auto* const wins = MakeFigure(panel_->lblAttWinPercent);
    Enlarge(*wins, compact ? 1.4 : 1.8);
    LabelField(*wins, *caption_);
    auto* const margin = Make<QLabel>(panel_->lblWinMargin);
    SetShade(*margin, Shade::Quiet);
    KeepWith(*margin, panel_->lblWinMargin.Changed.Connect([this, margin] {
        margin->setToolTip(QString::fromStdString(panel_->WinMarginInWords));
        margin->setAccessibleDescription(margin->toolTip());
    }));
    const int room = WidthOf(QStringLiteral("00.0000000000000%"), wins->fontMetrics());
    const auto fit = [wins, margin, usual = wins->font(), room] {
        wins->setFont(FittedFont(
            usual, [&](const QFontMetrics& metrics) { return WidthOf(wins->text(), metrics) <= room; }));
        // Both on one baseline.
        margin->setContentsMargins(0, 0, 0, wins->fontMetrics().descent() - margin->fontMetrics().descent());
    };
    for (QLabel* label : {wins, margin})
        label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    wins->setFixedHeight(wins->fontMetrics().height());
    fit();
    KeepWith(*wins, panel_->lblAttWinPercent.Changed.Connect(fit));

    // Room for any percentage with its margin behind it.
    constexpr int gap = 8;
    auto* const layout = new QGridLayout;
    layout->setSpacing(0);
    layout->addWidget(wins, 0, 0);
    layout->setColumnMinimumWidth(1, gap);
    layout->addWidget(margin, 0, 2, Qt::AlignLeft | Qt::AlignBottom);
    layout->setColumnStretch(2, 1);
    layout->addItem(new QSpacerItem(room + gap + WidthOf(QStringLiteral("± 00.0"), margin->fontMetrics()), 0),
                    1, 0, 1, 3);
    return layout;
}

QLayout* QuickResultsView::MakeAverages() {
    auto* const layout = new QFormLayout;
    layout->setVerticalSpacing(3);
    layout->setHorizontalSpacing(SideBySideGap);
    layout->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    for (std::size_t column = QuickResultsPanel::FirstAverage; column <= QuickResultsPanel::LastAverage;
         ++column) {
        Label& control = panel_->lblAvg[column];
        auto* const figure = MakeFigure(control);
        const int room = WidthOf(QStringLiteral("00.000000"), figure->fontMetrics());
        figure->setMinimumWidth(room);
        AddRow(*layout, panel_->lblAvgCaption[column], figure);
        averages_ += figure;
        KeepWith(*figure, control.Changed.Connect([this, room] { AlignPoints(averages_, font(), room); }));
    }
    return layout;
}

void QuickResultsView::MakeMenu(frmBrawlpad& pad) {
    auto* const menu = new QMenu(this);
    AddItem(*menu, pad.mnuCopyBattle, CopyBattleKey);
    AddItem(*menu, pad.mnuReadOut, ReadOutKey);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, menu,
            [this, menu](const QPoint& position) { menu->popup(mapToGlobal(position)); });
}

} // namespace vorhaven
