// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMessageLogContext>

namespace vorhaven {

/// While it lives the toolkit starts. Where that fails for want of a display, the program ends with one
/// sentence on standard error and a failure status, instead of the toolkit's advice to install it again and a
/// crash. There is one at a time.
class DisplayWatch {
public:
    DisplayWatch();
    ~DisplayWatch();
    DisplayWatch(const DisplayWatch&) = delete;
    DisplayWatch& operator=(const DisplayWatch&) = delete;

private:
    QtMessageHandler before_;
};

} // namespace vorhaven
