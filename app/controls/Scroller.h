// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

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

/// Scrolls up and down what a low screen has no room for. It is as wide as what it shows, neither narrower
/// nor wider.
class ColumnScroller final : public Scroller {
public:
    explicit ColumnScroller(QWidget* contents) : Scroller(contents) {
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        verticalScrollBar()->installEventFilter(this);
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {minimumSizeHint().width(), Scroller::sizeHint().height()};
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        const int width = std::max(widget()->minimumWidth(), widget()->minimumSizeHint().width());
        const int barWidth = verticalScrollBar()->isVisible() ? verticalScrollBar()->sizeHint().width() : 0;
        return {width + barWidth, 0};
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isOfBar = watched == verticalScrollBar() &&
                             (event->type() == QEvent::Show || event->type() == QEvent::Hide);
        if (isOfBar || (watched == widget() && event->type() == QEvent::LayoutRequest))
            updateGeometry();
        return Scroller::eventFilter(watched, event);
    }

    void ScrollToEnd() { verticalScrollBar()->setValue(verticalScrollBar()->maximum()); }
};

} // namespace vorhaven
