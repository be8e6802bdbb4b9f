// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/controls/Binding.h"
#include "app/controls/NumberBox.h"

#include <QFormLayout>
#include <QLabel>

namespace vorhaven {

// What the windows' views are made with.

/// A new widget that shows a control; the layout that it is put into gives it its parent.
template <class Widget, class ControlType>
Widget* Make(ControlType& control) {
    auto* const widget = new Widget;
    Bind(*widget, control);
    return widget;
}

/// A new widget of a control that takes the focus.
template <class Widget, class ControlType>
Widget* MakeFocusable(Form& form, ControlType& control) {
    auto* const widget = Make<Widget>(control);
    BindFocus(*widget, form, control);
    return widget;
}

inline NumberBox* MakeNumberBox(Form& form, UpDown& upDown) {
    auto* const widget = Make<NumberBox>(upDown);
    BindFocus(*widget, form, upDown.Buddy());
    return widget;
}

/// Puts a field and the label that names it into a form layout.
inline void AddRow(QFormLayout& layout, Label& caption, QWidget* field) {
    auto* const label = Make<QLabel>(caption);
    layout.addRow(label, field);
    LabelField(*field, *label);
}

} // namespace vorhaven
