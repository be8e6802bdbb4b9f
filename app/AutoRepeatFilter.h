// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

namespace vorhaven {

/// Lets a key that confirms or cancels count once, however long it is held: held through one window it would
/// go on in the next, which the user has not seen yet. Installed on the application.
class AutoRepeatFilter final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace vorhaven
