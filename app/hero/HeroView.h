// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/controls/SecondaryWindow.h"
#include "ui/hero/frmHero.h"

namespace vorhaven {

class NumberBox;

/// The hero editor on the screen.
class HeroView final : public SecondaryWindow {
public:
    /// `hero` must outlive the view.
    HeroView(frmHero& hero, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void GoToFirstField();

    NumberBox* firstField_ = nullptr;
    QPushButton* lastValues_ = nullptr;
};

} // namespace vorhaven
