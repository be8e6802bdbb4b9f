// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/OddsPanel.h"

#include <QWidget>

namespace vorhaven {

/// Both sides' chances as the two parts of a bar, with a mark at the half. Its name and its tooltip are both
/// chances in a sentence.
class OddsBar final : public QWidget {
public:
    /// `panel` must outlive the bar.
    explicit OddsBar(OddsPanel& panel, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Fill(QPainter& painter, QRect part, Side side) const;

    const OddsPanel* panel_;
};

/// A small square in a side's colour.
class ColourKey final : public QWidget {
public:
    explicit ColourKey(Side side, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Side side_;
};

} // namespace vorhaven
