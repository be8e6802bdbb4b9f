// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/setup/OddsView.h"

#include "app/controls/BoundWidgets.h"
#include "app/program/Shade.h"
#include "app/setup/OddsBar.h"
#include "app/setup/Room.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vorhaven {
namespace {

// The columns of the table: one of captions, and of figures two for each side.
constexpr int FirstFigure = 1;
constexpr int FiguresOfSide = 2;

constexpr int FirstFigureOf(Side side) {
    return FirstFigure + FiguresOfSide * static_cast<int>(side);
}

QWidget* MakeRule() {
    auto* const rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Plain);
    SetShade(*rule, Shade::TableLine);
    return rule;
}

} // namespace

OddsView::OddsView(Form& form, OddsPanel& panel, bool compact)
    : form_(&form), panel_(&panel), compact_(compact) {
    Bind(*this, panel.fraOdds);
    auto* const bar = new OddsBar(panel);
    auto* const state = Make<QLabel>(panel.lblState);
    state->setWordWrap(true);
    state->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Room for two lines, so that nothing moves when the text changes.
    state->setFixedHeight(2 * state->fontMetrics().lineSpacing());
    SetShade(*state, Shade::Quiet);
    KeepWith(*state, panel.lblState.Changed.Connect([state] { state->setToolTip(state->text()); }));

    auto* const layout = new QVBoxLayout(this);
    if (compact)
        MakeCompact(*layout);
    layout->addLayout(MakeChances());
    layout->addWidget(bar);
    layout->addLayout(MakeLosses());
    layout->addLayout(MakeBestOrder());
    auto* const last = new QHBoxLayout;
    last->setSpacing(SideBySideGap);
    last->addWidget(state, 1);
    last->addWidget(advice_, 0, Qt::AlignTop);
    layout->addLayout(last);
}

QLayout* OddsView::MakeBestOrder() {
    auto* const best = Make<QLabel>(panel_->lblBestOrder);
    best->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    useIt_ = MakeFocusable<QPushButton>(*form_, panel_->cmdUseIt);
    advice_ = MakeFocusable<QPushButton>(*form_, panel_->cmdAdvice);
    const int width = std::max(useIt_->sizeHint().width(), advice_->sizeHint().width());
    for (QPushButton* button : {useIt_, advice_})
        button->setFixedWidth(width);
    auto* const layout = new QHBoxLayout;
    layout->setSpacing(SideBySideGap);
    layout->addWidget(best, 1);
    layout->addWidget(useIt_);
    return layout;
}

QList<QWidget*> OddsView::Tabs() const {
    return {useIt_, advice_};
}

QLayout* OddsView::MakeChances() {
    auto* const layout = new QHBoxLayout;
    if (compact_)
        layout->setSpacing(SideBySideGap);
    PerSide<QLabel*> sides{};
    PerSide<QLabel*> chances{};
    for (const Side side : BothSides) {
        sides[side] = Make<QLabel>(panel_->lblSide[side]);
        chances[side] = Make<QLabel>(panel_->lblChance[side]);
        Enlarge(*chances[side], 1.25);
    }
    layout->addWidget(sides.Attacker);
    layout->addWidget(chances.Attacker);
    layout->addWidget(MakeChange(), 1);
    layout->addWidget(chances.Defender);
    layout->addWidget(sides.Defender);
    return layout;
}

QLabel* OddsView::MakeChange() {
    auto* const change = Make<QLabel>(panel_->lblChange);
    change->setFont(Small(font()));
    SetShade(*change, Shade::Quiet);
    // It asks for no room, so that it never widens the column.
    change->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    KeepWith(*change, panel_->lblChange.Changed.Connect([this, change] {
        change->setToolTip(QString::fromStdString(panel_->ChangeInWords));
        change->setAccessibleDescription(change->toolTip());
    }));
    return change;
}

QLayout* OddsView::MakeLosses() {
    auto* const table = new QGridLayout;
    table->setVerticalSpacing(1);
    table->setColumnStretch(0, 1);
    table->addWidget(Make<QLabel>(panel_->lblLosses), 1, 0, Qt::AlignLeft);
    for (const Side side : BothSides) {
        auto* const key = new QHBoxLayout;
        key->setSpacing(fontMetrics().averageCharWidth() / 2);
        key->addStretch();
        key->addWidget(new ColourKey(side));
        key->addWidget(Make<QLabel>(panel_->lblSide[side]));
        table->addLayout(key, 0, FirstFigureOf(side), 1, FiguresOfSide);
    }
    MakeHeaders(*table);
    table->addWidget(MakeRule(), 2, 0, 1, table->columnCount());
    for (OddsPanel::Row& row : panel_->Rows)
        AddRow(*table, row);
    return table;
}

void OddsView::MakeHeaders(QGridLayout& table) {
    const int longest = WidthOf(QStringLiteral("000.0"), fontMetrics());
    int widest = longest;
    for (const Side side : BothSides) {
        int column = FirstFigureOf(side);
        for (Label* name : {&panel_->lblColumn[side].Armies, &panel_->lblColumn[side].Turns}) {
            auto* const header = Make<QLabel>(*name);
            SetShade(*header, Shade::Quiet);
            if (compact_) {
                QFont small = header->font();
                small.setPointSizeF(small.pointSizeF() * 0.8);
                header->setFont(small);
            }
            table.addWidget(header, 1, column++, Qt::AlignRight);
            widest = std::max(widest, header->sizeHint().width());
        }
    }
    for (int column = FirstFigure; column < table.columnCount(); ++column)
        table.setColumnMinimumWidth(column, compact_ ? widest : longest);
    table.setHorizontalSpacing(5);
    if (!compact_) // a gap between the two sides
        table.setColumnMinimumWidth(FirstFigureOf(Side::Defender), widest + fontMetrics().averageCharWidth());
}

void OddsView::AddRow(QGridLayout& table, OddsPanel::Row& row) {
    const int place = table.rowCount();
    table.addWidget(Make<QLabel>(row.Caption), place, 0, Qt::AlignLeft);
    const auto add = [&](int column, Label& control, Side side, const Label& what) {
        auto* const figure = Make<QLabel>(control);
        figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        const QString name = QString::fromStdString(
            panel_->lblLosses.Caption.Get() + ", " + panel_->lblSide[side].Caption.Get() + ", " +
            what.Caption.Get() + ", " + row.Caption.Caption.Get() + ": ");
        const auto tellName = [figure, name, &control] {
            figure->setAccessibleName(name + QString::fromStdString(control.Caption));
        };
        tellName();
        KeepWith(*figure, control.Changed.Connect(tellName));
        table.addWidget(figure, place, column);
    };
    for (const Side side : BothSides) {
        const OddsPanel::LossLabels& names = panel_->lblColumn[side];
        add(FirstFigureOf(side), row.Losses[side].Armies, side, names.Armies);
        add(FirstFigureOf(side) + 1, row.Losses[side].Turns, side, names.Turns);
    }
}

} // namespace vorhaven
