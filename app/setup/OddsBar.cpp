// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/setup/OddsBar.h"

#include "app/controls/Binding.h"
#include "app/program/Shade.h"
#include "app/program/SideColours.h"

#include <QPainter>

namespace vorhaven {
namespace {

constexpr int MarkHeight = 4;

} // namespace

OddsBar::OddsBar(OddsPanel& panel, QWidget* parent) : QWidget(parent), panel_(&panel) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    KeepWith(*this, panel.fraOdds.Changed.Connect([this] { update(); }));
    const auto name = [this, &panel] {
        setAccessibleName(QString::fromStdString(panel.lblSentence.Caption));
        setToolTip(accessibleName());
    };
    name();
    KeepWith(*this, panel.lblSentence.Changed.Connect(name));
}

QSize OddsBar::sizeHint() const {
    return {0, fontMetrics().height() + MarkHeight};
}

void OddsBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor line =
        Shaded(palette().color(QPalette::WindowText), palette().color(QPalette::Window), Shade::ListLine);
    const QRect bar = rect().adjusted(0, 0, -1, -1 - MarkHeight);
    const int half = bar.center().x();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawLine(half, bar.bottom() + 2, half, bar.bottom() + MarkHeight);
    if (const auto share = panel_->AttackerShare()) {
        const int width = qRound(*share * bar.width());
        const int gap = width > 0 && width < bar.width() ? 1 : 0;
        Fill(painter, {bar.left(), bar.top(), width - gap, bar.height()}, Side::Attacker);
        Fill(painter, {bar.left() + width + gap, bar.top(), bar.width() - width - gap, bar.height()},
             Side::Defender);
    }
    painter.setPen(line);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(bar);
}

void OddsBar::Fill(QPainter& painter, QRect part, Side side) const {
    // The attacker's part is where the attacker's column is.
    if (layoutDirection() == Qt::RightToLeft)
        part.moveLeft(width() - 1 - part.right());
    painter.fillRect(part, SideColour(side, palette()));
}

ColourKey::ColourKey(Side side, QWidget* parent) : QWidget(parent), side_(side) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ColourKey::sizeHint() const {
    const int size = fontMetrics().height() * 6 / 10;
    return {size, size};
}

void ColourKey::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), SideColour(side_, palette()));
}

} // namespace vorhaven
