// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QScrollArea>

namespace vorhaven {

/// Scrolls what a small screen has no room for, but asks for the room of all of it.
class Scroller final : public QScrollArea {
public:
    explicit Scroller(QWidget* contents) {
        setFrameShape(NoFrame);
        setWidgetResizable(true);
        setFocusPolicy(Qt::NoFocus);
        setWidget(contents);
    }

    [[nodiscard]] QSize sizeHint() const override { return widget()->sizeHint(); }
};

} // namespace vorhaven
