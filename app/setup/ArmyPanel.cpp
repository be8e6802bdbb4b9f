// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/setup/ArmyPanel.h"

#include "app/controls/BoundWidgets.h"
#include "app/controls/Picker.h"
#include "app/program/ErrorReport.h"
#include "app/program/Shade.h"
#include "app/setup/ArmyListView.h"
#include "app/setup/Room.h"

#include <QFontInfo>
#include <QGridLayout>
#include <QPushButton>

#include <algorithm>

namespace vorhaven {

namespace {

constexpr int MostWidthInEm = 52;

/// Gives a list the lines' height that its column has room for. What even the highest lines leave stays below
/// the column's last row.
class ColumnLayout final : public QVBoxLayout {
public:
    ColumnLayout(QWidget* parent, ArmyListView& list) : QVBoxLayout(parent), list_(&list) {}

    void setGeometry(const QRect& place) override {
        const int others = sizeHint().height() - list_->sizeHint().height();
        list_->FitLines(place.height() - others);
        QVBoxLayout::setGeometry(place);
    }

private:
    ArmyListView* list_;
};

} // namespace

ArmyPanel::ArmyPanel(frmBrawlpad& pad, Side side, bool compact) : pad_(&pad), side_(side) {
    Bind(*this, pad.FrameOf(side));
    setMaximumWidth(MostWidthInEm * QFontInfo(font()).pixelSize());
    QLayout* const picker = MakePicker(compact);
    QLayout* const list = MakeList(compact);
    auto* const layout = new ColumnLayout(this, *list_);
    if (compact)
        MakeCompact(*layout);
    layout->addLayout(picker);
    auto* const captioned = new QVBoxLayout;
    list->setSpacing(layout->spacing());
    captioned->setSpacing(0);
    captioned->addWidget(MakeCaption());
    captioned->addLayout(list, 1);
    layout->addLayout(captioned, 1);
    layout->addLayout(MakeTools(compact));
    layout->addStretch();
}

template <class Widget, class ControlType>
Widget* ArmyPanel::MakePaired(ControlType& control) {
    auto* const widget = MakeFocusable<Widget>(*pad_, control);
    widget->setAccessibleName(widget->text().remove('&') + ", " + title());
    tabs_ += widget;
    return widget;
}

QLayout* ArmyPanel::MakePicker(bool compact) {
    auto* const label = Make<QLabel>(pad_->lblArmies[side_]);
    auto* const picker = MakeFocusable<Picker>(*pad_, pad_->cboArmies[side_]);
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
    auto* const count = Make<QLabel>(pad_->lblCount[side_]);
    SetShade(*count, Shade::Quiet);
    return count;
}

QLabel* ArmyPanel::MakeCaption() {
    auto* const caption = new FigureCaption(*list_);
    Bind(*caption, pad_->lblSurvives[side_]);
    SetShade(*caption, Shade::Quiet);
    return caption;
}

QLayout* ArmyPanel::MakeList(bool compact) {
    list_ = MakeFocusable<ArmyListView>(*pad_, pad_->lstArmies[side_]);
    list_->setAccessibleName(title());
    list_->MenuRequested = [this](const QPoint& position) {
        menuPosition_ = position;
        RunOutermost([this] { pad_->lstArmies_MouseUp(side_, frmBrawlpad::MouseButton::Right); });
    };
    list_->BareMenuRequested = [this](const QPoint& position) { BareMenuRequested(position); };
    list_->DeletePressed = [this] { RunOutermost([this] { pad_->mnuPopupDelete.Choose(); }); };
    list_->CopyPressed = [this] { RunOutermost([this] { pad_->mnuCopy.Choose(); }); };
    tabs_ += list_;

    const auto makeLabel = [compact](Label& label) {
        return compact ? Make<UprightLabel>(label) : Make<QLabel>(label);
    };
    std::vector<QLabel*> stackLabels;
    if (side_ == Side::Attacker)
        for (Label& label : pad_->lblStack)
            stackLabels.push_back(makeLabel(label));
    else
        stackLabels.push_back(makeLabel(pad_->lblDefStack));
    for (QLabel* label : stackLabels) {
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        SetShade(*label, Shade::Quiet);
    }
    if (side_ == Side::Attacker)
        list_->ShowStacks();
    auto* const layout = new QHBoxLayout;
    layout->addWidget(new StackLabels(*list_, stackLabels));
    layout->addWidget(list_);
    return layout;
}

QLayout* ArmyPanel::MakeTools(bool compact) {
    auto* const up = MakePaired<QPushButton>(pad_->ArmyUp(side_));
    auto* const down = MakePaired<QPushButton>(pad_->ArmyDown(side_));
    auto* const duplicate = MakePaired<QPushButton>(pad_->sscDup[side_]);
    auto* const clear = MakePaired<QPushButton>(pad_->sscClearList[side_]);
    auto* const copiesLabel = Make<QLabel>(pad_->lblDup[side_]);
    auto* const copies = MakeNumberBox(*pad_, pad_->updDup[side_]);
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
    if (compact)
        layout->setHorizontalSpacing(SideBySideGap);
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
