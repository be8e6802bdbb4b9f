// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/hero/HeroView.h"

#include "app/controls/BoundWidgets.h"
#include "app/program/Shade.h"

#include <QGroupBox>
#include <QPushButton>

#include <span>

namespace vorhaven {
namespace {

QList<NumberBox*> AddFields(frmHero& hero, QFormLayout& layout, std::span<HeroField* const> fields) {
    QList<NumberBox*> boxes;
    for (HeroField* field : fields) {
        boxes += MakeNumberBox(hero, field->upd);
        AddRow(layout, field->lbl, boxes.back());
    }
    return boxes;
}

/// The hero's name and, quietly beside it, which line it is.
QWidget* MakeName(frmHero& hero) {
    auto* const place = Make<QLabel>(hero.lblWhereabouts);
    SetShade(*place, Shade::Quiet);
    auto* const both = new QWidget;
    auto* const layout = new QHBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Make<QLabel>(hero.lblName));
    layout->addSpacing(both->fontMetrics().height());
    layout->addWidget(place, 1);
    return both;
}

} // namespace

HeroView::HeroView(frmHero& hero, QWidget* parent) : SecondaryWindow(hero, parent) {
    setAccessibleDescription(QString::fromStdString(hero.Description()));

    auto* const unitInfo = Make<QGroupBox>(hero.fraUnitInfo);
    auto* const unitLayout = new QFormLayout;
    unitInfo->setLayout(unitLayout);
    AddRow(*unitLayout, hero.lblNameCaption, MakeName(hero));
    firstField_ = AddFields(hero, *unitLayout, hero.UnitFields).front();
    auto* const stackBonus = Make<QGroupBox>(hero.fraStackBonus);
    auto* const stackLayout = new QFormLayout;
    stackBonus->setLayout(stackLayout);
    AddFields(hero, *stackLayout, hero.StackFields);

    auto* const layout = new QGridLayout(this);
    layout->addWidget(unitInfo, 0, 0);
    layout->addWidget(stackBonus, 0, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    lastValues_ = MakeFocusable<QPushButton>(hero, hero.cmdLastValues);
    lastValues_->installEventFilter(this);
    buttons->addWidget(lastValues_);
    // On to the fields that it has filled: Enter presses Done then, not the same button once more.
    connect(lastValues_, &QPushButton::clicked, this, &HeroView::GoToFirstField);
    buttons->addWidget(MakeDone(hero, hero.cmdProceed));
    layout->addLayout(buttons, 1, 0, 1, 2);
    // Wide enough for the caption, with the frame's buttons beside it.
    layout->addItem(new QSpacerItem(fontMetrics().horizontalAdvance(windowTitle()) * 5 / 4 + 100, 0), 2, 0, 1,
                    2);
}

void HeroView::showEvent(QShowEvent* event) {
    SecondaryWindow::showEvent(event);
    // Enter repeats the last values where there are any, and Enter again confirms them.
    if (lastValues_->isEnabled())
        lastValues_->setFocus(Qt::TabFocusReason);
    else
        GoToFirstField();
}

void HeroView::GoToFirstField() {
    firstField_->setFocus(Qt::TabFocusReason);
    firstField_->selectAll();
}

} // namespace vorhaven
