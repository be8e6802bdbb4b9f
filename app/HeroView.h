// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/hero/frmHero.h"

#include <QDialog>

namespace vorhaven {

class NumberBox;

/// The hero editor on the screen.
class HeroView final : public QDialog {
public:
    /// `hero` must outlive the view.
    HeroView(frmHero& hero, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    NumberBox* firstField_ = nullptr;
};

} // namespace vorhaven
