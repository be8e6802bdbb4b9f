// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Form.h"

#include <string>

namespace vorhaven {

class frmHero;
class frmMoreResults;
class frmStats;

/// What the main window asks of the toolkit beside the desktop: the other windows.
class Toolkit : public Desktop {
public:
    /// Loads a window and shows it modally; returns when it is closed.
    virtual void ShowModal(frmHero& window) = 0;
    virtual void ShowModal(frmStats& window) = 0;
    [[nodiscard]] virtual std::string ClipboardText() const = 0;
    virtual void SetClipboardText(const std::string& text) = 0;
    /// Loads a window, anew when it is open already, and shows it beside the others.
    virtual void Show(frmMoreResults& window) = 0;
};

} // namespace vorhaven
