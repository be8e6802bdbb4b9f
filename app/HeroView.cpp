// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/HeroView.h"

#include "app/BoundWidgets.h"

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

} // namespace

HeroView::HeroView(frmHero& hero, QWidget* parent) : SecondaryWindow(hero, parent) {
    setAccessibleDescription(QString::fromStdString(hero.Whereabouts));

    auto* const unitInfo = Make<QGroupBox>(hero.fraUnitInfo);
    auto* const unitLayout = new QFormLayout;
    unitInfo->setLayout(unitLayout);
    AddRow(*unitLayout, hero.lblNameCaption, Make<QLabel>(hero.lblName));
    firstField_ = AddFields(hero, *unitLayout, hero.UnitFields).front();
    auto* const stackBonus = Make<QGroupBox>(hero.fraStackBonus);
    auto* const stackLayout = new QFormLayout;
    stackBonus->setLayout(stackLayout);
    AddFields(hero, *stackLayout, hero.StackFields);

    auto* const layout = new QGridLayout(this);
    layout->addWidget(unitInfo, 0, 0);
    layout->addWidget(stackBonus, 0, 1);
    layout->addWidget(MakeDone(hero, hero.cmdProceed), 1, 1, Qt::AlignRight);
    // Wide enough for the caption, with the frame's buttons beside it.
    layout->addItem(new QSpacerItem(fontMetrics().horizontalAdvance(windowTitle()) * 5 / 4 + 100, 0), 2, 0, 1,
                    2);
}

void HeroView::showEvent(QShowEvent* event) {
    SecondaryWindow::showEvent(event);
    firstField_->setFocus(Qt::TabFocusReason);
    firstField_->selectAll();
}

} // namespace vorhaven
