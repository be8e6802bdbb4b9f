// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"
#include "ui/controls/Control.h"

#include <string>

namespace vorhaven {

/// A size on the screen, in pixels.
struct Size {
    Long Width;
    Long Height;
};

/// What the windows' models ask of the toolkit.
class Desktop {
public:
    Desktop() = default;
    virtual ~Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    [[nodiscard]] virtual Size ScreenSize() const = 0;
    /// Turns the hourglass on and off.
    virtual void ShowBusy(bool busy) = 0;
    /// Lets pending events of the user interface run.
    virtual void ProcessEvents() = 0;
    /// Shows a modal message box with an OK button; returns when the user has closed it.
    virtual void ShowMessage(const std::string& prompt) = 0;
};

/// A window.
class Form {
public:
    explicit Form(std::string caption) : Caption(std::move(caption)) {}
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string Caption;

    /// Place and size on the screen, in pixels. The view gives the size before it loads the window.
    Long Left;
    Long Top;
    Size Extent;

    /// Set by the view: closes the window.
    std::function<void()> Unloaded;

    /// The start-up of the window, called once it is about to be shown.
    virtual void Form_Load() = 0;

    void Unload() const {
        if (Unloaded)
            Unloaded();
    }

    /// The control that has the focus; null when none has.
    [[nodiscard]] const Control* ActiveControl() const { return activeControl_; }
    /// The focus moves to a control: the one that had it before raises LostFocus.
    void MoveFocus(const Control* control) {
        const Control* left = std::exchange(activeControl_, control);
        if (left != nullptr && left != control && left->LostFocus)
            left->LostFocus();
    }

protected:
    void CentreOn(Size screen) {
        Top = (screen.Height - Extent.Height).Value() / 2;
        Left = (screen.Width - Extent.Width).Value() / 2;
    }

private:
    const Control* activeControl_ = nullptr;
};

} // namespace vorhaven
