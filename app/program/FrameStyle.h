// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProxyStyle>

namespace vorhaven {

/// The toolkit's own style, Fusion, with group boxes that are painted quickly. Fusion stretches a picture
/// over each of them, which costs half of the main window's first painting.
class FrameStyle final : public QProxyStyle {
public:
    FrameStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace vorhaven
