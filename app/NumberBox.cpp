// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/NumberBox.h"

#include "app/Binding.h"
#include "app/ErrorReport.h"

#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <algorithm>

namespace vorhaven {

NumberBox::NumberBox(UpDown& upDown, QWidget* parent) : QAbstractSpinBox(parent), upDown_(&upDown) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    lineEdit()->setMaxLength(upDown.Buddy().MaxLength);
    ShowToolTip(*lineEdit(), upDown.Buddy());
    ShowToolTip(*this, upDown.Buddy());
    KeepWith(*this, upDown.Buddy().Changed.Connect([this] { ShowNumber(); }));
    ShowNumber();
    connect(lineEdit(), &QLineEdit::textChanged, this,
            [this](const QString& text) { RunOutermost([&] { upDown_->Type(text.toStdString()); }); });
    // By Enter as by the loss of the focus.
    connect(this, &QAbstractSpinBox::editingFinished, this, &NumberBox::ShowNumber);
}

void NumberBox::ShowNumber() {
    const QString number = QString::fromStdString(upDown_->Buddy().Text());
    if (lineEdit()->text() != number)
        lineEdit()->setText(number);
}

void NumberBox::stepBy(int steps) {
    // The page keys and the control key ask for more than one step.
    RunOutermost([&] { upDown_->Step(std::clamp(steps, -1, 1)); });
    selectAll();
}

QSize NumberBox::SizeFor(int digits) const {
    const int width = fontMetrics().horizontalAdvance(QString(digits, '0'));
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, {width, lineEdit()->sizeHint().height()},
                                     this);
}

QAbstractSpinBox::StepEnabled NumberBox::stepEnabled() const {
    StepEnabled enabled = StepNone;
    if (upDown_->CanStep(1))
        enabled |= StepUpEnabled;
    if (upDown_->CanStep(-1))
        enabled |= StepDownEnabled;
    return enabled;
}

void NumberBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace vorhaven
