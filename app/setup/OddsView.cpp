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
constexpr int FigureColumns = 4;

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
    std::array<QLabel*, 2> sides{};
    std::array<QLabel*, 2> chances{};
    for (std::size_t side = 0; side < sides.size(); ++side) {
        sides[side] = Make<QLabel>(panel_->lblSide[side]);
        chances[side] = Make<QLabel>(panel_->lblChance[side]);
        Enlarge(*chances[side], 1.25);
    }
    layout->addWidget(sides[0]);
    layout->addWidget(chances[0]);
    layout->addWidget(MakeChange(), 1);
    layout->addWidget(chances[1]);
    layout->addWidget(sides[1]);
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
    for (int side = 0; side < 2; ++side) {
        auto* const key = new QHBoxLayout;
        key->setSpacing(fontMetrics().averageCharWidth() / 2);
        key->addStretch();
        key->addWidget(new ColourKey(side));
        key->addWidget(Make<QLabel>(panel_->lblSide[static_cast<std::size_t>(side)]));
        table->addLayout(key, 0, FirstFigure + 2 * side, 1, 2);
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
    for (int column = 0; column < FigureColumns; ++column) {
        auto* const header = Make<QLabel>(panel_->lblColumn[static_cast<std::size_t>(column)]);
        SetShade(*header, Shade::Quiet);
        if (compact_) {
            QFont small = header->font();
            small.setPointSizeF(small.pointSizeF() * 0.8);
            header->setFont(small);
        }
        table.addWidget(header, 1, FirstFigure + column, Qt::AlignRight);
        widest = std::max(widest, header->sizeHint().width());
    }
    for (int column = 0; column < FigureColumns; ++column)
        table.setColumnMinimumWidth(FirstFigure + column, compact_ ? widest : longest);
    table.setHorizontalSpacing(5);
    if (!compact_) // a gap between the two sides
        table.setColumnMinimumWidth(FirstFigure + FigureColumns / 2,
                                    widest + fontMetrics().averageCharWidth());
}

void OddsView::AddRow(QGridLayout& table, OddsPanel::Row& row) {
    const int place = table.rowCount();
    table.addWidget(Make<QLabel>(row.Caption), place, 0, Qt::AlignLeft);
    for (std::size_t column = 0; column < row.Losses.size(); ++column) {
        Label& control = row.Losses[column];
        auto* const figure = Make<QLabel>(control);
        figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        const QString name = QString::fromStdString(
            panel_->lblLosses.Caption.Get() + ", " + panel_->lblSide[column / 2].Caption.Get() + ", " +
            panel_->lblColumn[column].Caption.Get() + ", " + row.Caption.Caption.Get() + ": ");
        const auto tellName = [figure, name, &control] {
            figure->setAccessibleName(name + QString::fromStdString(control.Caption));
        };
        tellName();
        KeepWith(*figure, control.Changed.Connect(tellName));
        table.addWidget(figure, place, FirstFigure + static_cast<int>(column));
    }
}

} // namespace vorhaven
