// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QWidget>

namespace vorhaven::test {

/// The widgets of a class below another one. Unlike Qt's findChildren, from 6.7 on, it also takes a class
/// without a meta-object of its own.
template <class Widget>
QList<Widget*> Descendants(const QWidget& ancestor) {
    QList<Widget*> found;
    for (QWidget* child : ancestor.findChildren<QWidget*>())
        if (auto* const widget = dynamic_cast<Widget*>(child))
            found.push_back(widget);
    return found;
}

} // namespace vorhaven::test
