// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/FrameStyle.h"

#include "app/program/Shade.h"

#include <QPainter>
#include <QStyleOption>

#include <array>

namespace vorhaven {
namespace {

/// From the contents of a group box to its frame, within a pixel of where Fusion has it.
constexpr QMargins ToFrame{2, 2, 3, 3};

} // namespace

FrameStyle::FrameStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void FrameStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    const auto* const box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (control != CC_GroupBox || box == nullptr || !box->subControls.testFlag(SC_GroupBoxFrame)) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    const QRect frame = subControlRect(control, box, SC_GroupBoxContents, widget).marginsAdded(ToFrame);
    const QColor window = box->palette.window().color();
    const QColor text = box->palette.windowText().color();
    painter->save();
    painter->setPen(Shaded(text, window, Shade::Frame));
    painter->setBrush(Shaded(text, window, Shade::FrameArea));
    painter->drawRect(frame.adjusted(0, 0, -1, -1));
    painter->setPen(window);
    const std::array corners{frame.topLeft(), frame.topRight(), frame.bottomLeft(), frame.bottomRight()};
    painter->drawPoints(corners.data(), static_cast<int>(corners.size()));
    painter->restore();
    QStyleOptionGroupBox title = *box;
    title.subControls.setFlag(SC_GroupBoxFrame, false);
    QProxyStyle::drawComplexControl(control, &title, painter, widget);
}

} // namespace vorhaven
