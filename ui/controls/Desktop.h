// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace vorhaven {

/// A size on the screen, in pixels.
struct Size {
    int Width = 0;
    int Height = 0;
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

} // namespace vorhaven
