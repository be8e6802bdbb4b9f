// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Control.h"
#include "ui/controls/Desktop.h"

#include <string>
#include <utility>

namespace vorhaven {

/// A window.
class Form {
public:
    explicit Form(std::string caption) : Caption(std::move(caption)) {}
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string Caption;

    /// Place and size on the screen, in pixels. The view gives the size as soon as it knows it.
    int Left = 0;
    int Top = 0;
    Size Extent;

    /// Raised when the window is to be closed.
    Signal<> Unloading;

    /// The start-up of the window, called once it is about to be shown.
    virtual void Form_Load() = 0;

    void Unload() const { Unloading.Raise(); }

    /// The control that has the focus; null when none has.
    [[nodiscard]] const Control* ActiveControl() const { return activeControl_; }
    /// The focus moves to a control, which raises GotFocus after the one that had it before LostFocus.
    void MoveFocus(const Control* control) {
        const Control* left = std::exchange(activeControl_, control);
        if (left == control)
            return;
        if (left != nullptr && left->LostFocus)
            left->LostFocus();
        if (control != nullptr && control->GotFocus)
            control->GotFocus();
    }

    /// Puts the window into the middle of the screen.
    void CentreOn(Size screen) {
        Top = (screen.Height - Extent.Height) / 2;
        Left = (screen.Width - Extent.Width) / 2;
    }

private:
    const Control* activeControl_ = nullptr;
};

} // namespace vorhaven
