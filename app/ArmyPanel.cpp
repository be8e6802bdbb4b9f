// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ArmyPanel.h"

#include "app/ArmyListView.h"
#include "app/BoundWidgets.h"
#include "app/ErrorReport.h"
#include "app/Picker.h"
#include "app/Shade.h"

#include <QGridLayout>
#include <QPushButton>

#include <algorithm>

namespace vorhaven {

ArmyPanel::ArmyPanel(frmBrawlpad& pad, Side side, bool compact)
    : pad_(&pad), side_(side), index_(static_cast<std::size_t>(side)) {
    Bind(*this, pad.FrameOf(side));
    auto* const layout = new QVBoxLayout(this);
    if (compact)
        layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(MakePicker(compact));
    layout->addLayout(MakeList(), 1);
    layout->addLayout(MakeTools(compact));
}

template <class Widget, class ControlType>
Widget* ArmyPanel::MakePaired(ControlType& control) {
    auto* const widget = MakeFocusable<Widget>(*pad_, control);
    widget->setAccessibleName(widget->text().remove('&') + ", " + title());
    tabs_ += widget;
    return widget;
}

QLayout* ArmyPanel::MakePicker(bool compact) {
    auto* const label = Make<QLabel>(pad_->lblArmies[index_]);
    auto* const picker = MakeFocusable<Picker>(*pad_, pad_->cboArmies[index_]);
    LabelField(*picker, *label);
    tabs_ += picker;
    auto* const layout = new QGridLayout;
    layout->addWidget(label, 0, 0);
    if (!compact)
        layout->addWidget(MakeCount(), 0, 1, Qt::AlignRight);
    layout->addWidget(picker, 1, 0, 1, 2);
    return layout;
}

QLabel* ArmyPanel::MakeCount() {
    auto* const count = Make<QLabel>(pad_->lblCount[index_]);
    SetShade(*count, Shade::Quiet);
    return count;
}

QLayout* ArmyPanel::MakeList() {
    list_ = MakeFocusable<ArmyListView>(*pad_, pad_->lstArmies[index_]);
    list_->setAccessibleName(title());
    list_->MenuRequested = [this](const QPoint& position) {
        menuPosition_ = position;
        RunOutermost([this] { pad_->lstArmies_MouseUp(side_, frmBrawlpad::MouseButton::Right); });
    };
    list_->DeletePressed = [this] { RunOutermost([this] { pad_->mnuPopupDelete.Choose(); }); };
    list_->CopyPressed = [this] { RunOutermost([this] { pad_->mnuCopy.Choose(); }); };
    list_->PastePressed = [this] { RunOutermost([this] { pad_->mnuPaste.Choose(); }); };
    tabs_ += list_;

    std::vector<QLabel*> stackLabels;
    if (side_ == Side::Attack)
        for (Label& label : pad_->lblStack)
            stackLabels.push_back(Make<QLabel>(label));
    else
        stackLabels.push_back(Make<QLabel>(pad_->lblDefStack));
    for (QLabel* label : stackLabels) {
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        SetShade(*label, Shade::Quiet);
    }
    if (side_ == Side::Attack)
        list_->ShowStacks();
    auto* const layout = new QHBoxLayout;
    layout->addWidget(new StackLabels(*list_, stackLabels));
    layout->addWidget(list_);
    return layout;
}

QLayout* ArmyPanel::MakeTools(bool compact) {
    auto* const up = MakePaired<QPushButton>(pad_->sscListArrow[2 * index_]);
    auto* const down = MakePaired<QPushButton>(pad_->sscListArrow[2 * index_ + 1]);
    auto* const duplicate = MakePaired<QPushButton>(pad_->sscDup[index_]);
    auto* const clear = MakePaired<QPushButton>(pad_->sscClearList[index_]);
    auto* const copiesLabel = Make<QLabel>(pad_->lblDup[index_]);
    auto* const copies = MakeNumberBox(*pad_, pad_->updDup[index_]);
    LabelField(*copies, *copiesLabel);
    copies->setAccessibleName(copies->accessibleName() + ", " + title());
    tabs_ += copies;

    int width = 0;
    for (const QPushButton* button : {up, down, duplicate, clear})
        width = std::max(width, button->sizeHint().width());
    for (QPushButton* button : {up, down, duplicate, clear})
        button->setMinimumWidth(width);

    copiesLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* const layout = new QGridLayout;
    layout->addWidget(up, 0, 0);
    layout->addWidget(down, 0, 1);
    layout->addWidget(clear, 1, 0);
    if (compact) {
        layout->addWidget(duplicate, 1, 1);
        layout->addWidget(copiesLabel, 2, 0, 1, 2);
        layout->addWidget(MakeCount(), 3, 0);
        layout->addWidget(copies, 3, 1);
    } else {
        layout->addWidget(duplicate, 0, 2);
        auto* const number = new QHBoxLayout;
        number->addWidget(copiesLabel, 1);
        number->addWidget(copies);
        layout->addLayout(number, 1, 1, 1, 2);
    }
    return layout;
}

} // namespace vorhaven
