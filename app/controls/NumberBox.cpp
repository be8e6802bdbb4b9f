// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/NumberBox.h"

#include "app/controls/Binding.h"
#include "app/program/ErrorReport.h"
#include "base/Conversion.h"

#include <QAccessible>
#include <QDynamicPropertyChangeEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <algorithm>

namespace vorhaven {
namespace {

// By these names the toolkit asks a box of this kind for what screen readers want to know.
constexpr const char* ValueProperty = "value";
constexpr const char* MinimumProperty = "minimum";
constexpr const char* MaximumProperty = "maximum";

} // namespace

NumberBox::NumberBox(QWidget* parent) : QAbstractSpinBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void NumberBox::Show(UpDown& upDown) {
    upDown_ = &upDown;
    lineEdit()->setMaxLength(upDown.Buddy().MaxLength);
    Identify(*lineEdit(), upDown.Buddy());
    setProperty(MinimumProperty, upDown.Min.Value());
    setProperty(MaximumProperty, upDown.Max.Value());
    KeepWith(*this, upDown.Buddy().Changed.Connect([this] { ShowNumber(); }));
    ShowNumber();
    connect(lineEdit(), &QLineEdit::textChanged, this,
            [this](const QString& text) { RunOutermost([&] { upDown_->Type(text.toStdString()); }); });
    // By Enter as by the loss of the focus.
    connect(this, &QAbstractSpinBox::editingFinished, this, &NumberBox::ShowNumber);
}

void NumberBox::ShowNumber() {
    AnnounceNumber();
    const QString number = QString::fromStdString(upDown_->Buddy().Text());
    if (lineEdit()->text() == number)
        return;
    // Only what is typed is limited: "2e9" comes back as a longer number.
    lineEdit()->setMaxLength(std::max(upDown_->Buddy().MaxLength, static_cast<int>(number.size())));
    lineEdit()->setText(number);
}

int NumberBox::Number() const {
    return NumberIn(upDown_->Buddy().Text()).value_or(upDown_->Value()).Value();
}

void NumberBox::AnnounceNumber() {
    if (property(ValueProperty) == Number())
        return;
    setProperty(ValueProperty, Number());
    QAccessibleValueChangeEvent change(this, Number());
    QAccessible::updateAccessibility(&change);
}

bool NumberBox::event(QEvent* event) {
    // Assistive technology enters a number by setting the property.
    if (event->type() == QEvent::DynamicPropertyChange &&
        static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == ValueProperty &&
        property(ValueProperty) != Number()) {
        RunOutermost([&] { upDown_->Type(property(ValueProperty).toString().toStdString()); });
        AnnounceNumber();
    }
    return QAbstractSpinBox::event(event);
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
