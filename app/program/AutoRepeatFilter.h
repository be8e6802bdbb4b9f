// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QKeyEvent;

namespace vorhaven {

/// Lets a key that confirms or cancels count once, however long it is held: held through one window it would
/// go on in the next, which the user has not seen yet. Installed on the application.
class AutoRepeatFilter final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Whether the key has been held since an earlier press. X repeats a key as a release and a press at one
    /// moment, which the toolkit takes for two presses when they do not arrive together.
    [[nodiscard]] bool IsHeld(const QKeyEvent& press) const;

    int releasedKey_ = 0;
    /// When that was, by the system's clock of events; 0 for a synthetic event, which has no time.
    quint64 releasedAt_ = 0;
};

} // namespace vorhaven
