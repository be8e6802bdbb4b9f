// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Form.h"

#include <functional>
#include <string>

namespace vorhaven {

class frmAdvice;
class frmHero;
class frmMoreResults;
class frmStats;

/// What the main window asks of the toolkit beside the desktop: the other windows.
class Toolkit : public Desktop {
public:
    /// Lets pending events run if they have waited for about a tenth of a second. Between two parts of a long
    /// computation, which may call it as often as it likes.
    virtual void ProcessOverdueEvents() = 0;
    /// Loads a window and shows it modally; returns when it is closed.
    virtual void ShowModal(frmHero& window) = 0;
    virtual void ShowModal(frmStats& window) = 0;
    [[nodiscard]] virtual std::string ClipboardText() const = 0;
    virtual void SetClipboardText(const std::string& text) = 0;
    /// Loads a window, anew when it is open already, and shows it beside the others.
    virtual void Show(frmMoreResults& window) = 0;
    /// Shows a window beside the others; one that is open already comes to the front.
    virtual void Show(frmAdvice& window) = 0;
    /// Calls `work` again and again while there is nothing else to do, until it returns false. It takes the
    /// place of an earlier one.
    virtual void WhenIdle(std::function<bool()> work) = 0;
};

} // namespace vorhaven
