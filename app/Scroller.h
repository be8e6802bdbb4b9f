// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace vorhaven {

/// Scrolls what a small screen has no room for, but asks for the room of all of it.
class Scroller : public QScrollArea {
public:
    explicit Scroller(QWidget* contents) {
        setFrameShape(NoFrame);
        setWidgetResizable(true);
        setFocusPolicy(Qt::NoFocus);
        setWidget(contents);
    }

    [[nodiscard]] QSize sizeHint() const override { return widget()->sizeHint(); }
};

/// Scrolls up and down what a low screen has no room for, and is never narrower than what it shows.
class ColumnScroller final : public Scroller {
public:
    explicit ColumnScroller(QWidget* contents) : Scroller(contents) {
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        verticalScrollBar()->installEventFilter(this);
    }

    [[nodiscard]] QSize minimumSizeHint() const override {
        const int barWidth = verticalScrollBar()->isVisible() ? verticalScrollBar()->sizeHint().width() : 0;
        return {widget()->minimumSizeHint().width() + barWidth, 0};
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
            updateGeometry();
        return Scroller::eventFilter(watched, event);
    }
};

} // namespace vorhaven
