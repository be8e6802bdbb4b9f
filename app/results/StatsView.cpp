// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/results/StatsView.h"

#include "app/controls/BoundWidgets.h"
#include "app/controls/GridView.h"
#include "app/controls/Scroller.h"
#include "app/program/Shade.h"

#include <QGroupBox>
#include <QPushButton>

#include <span>

namespace vorhaven {
namespace {

QFrame* MakeSeparator() {
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::VLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

QFormLayout* MakeValues(std::span<StackPanel::Value> values) {
    auto* const layout = new QFormLayout;
    for (StackPanel::Value& value : values) {
        auto* const figure = Make<QLabel>(value.Figure);
        figure->setMinimumWidth(figure->fontMetrics().horizontalAdvance(QStringLiteral("-00")));
        AddRow(*layout, value.Caption, figure);
    }
    return layout;
}

/// The stack's raw, adjusted and total values, a line between the groups.
QHBoxLayout* MakePanel(StackPanel& panel) {
    const std::span raw = panel.Raw();
    auto* const layout = new QHBoxLayout;
    layout->addLayout(MakeValues(raw.first(3)));
    layout->addLayout(MakeValues(raw.last(3)));
    layout->addWidget(MakeSeparator());
    layout->addLayout(MakeValues(panel.Adjusted()));
    layout->addWidget(MakeSeparator());
    layout->addLayout(MakeValues(panel.Total()));
    layout->addStretch();
    return layout;
}

} // namespace

StatsView::StatsView(frmStats& stats, QWidget* parent) : SecondaryWindow(stats, parent) {
    auto* const stacks = new QWidget;
    auto* const stackLayout = new QVBoxLayout(stacks);
    stackLayout->setContentsMargins(0, 0, 0, 0);
    for (const Side side : BothSides) {
        auto* const frame = Make<QGroupBox>(side == Side::Attacker ? stats.fraAttStack : stats.fraDefStack);
        auto* const frameLayout = new QVBoxLayout(frame);
        auto* const grid = Make<GridView>(stats.msfgStackStats[side]);
        grid->setAccessibleName(frame->title());
        frameLayout->addWidget(grid, 1);
        auto* const strength = Make<QLabel>(stats.lblStrength[side]);
        SetShade(*strength, Shade::Quiet);
        QObject::connect(grid, &QTableWidget::currentCellChanged, strength,
                         [strength] { SetShade(*strength, Shade::Full); });
        // A long one does not widen the window.
        strength->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        frameLayout->addWidget(strength);
        frameLayout->addLayout(MakePanel(stats.Panels[side]));
        stackLayout->addWidget(frame);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new Scroller(stacks), 1);
    layout->addWidget(MakeDone(stats, stats.sscDone), 0, Qt::AlignRight);
}

} // namespace vorhaven
