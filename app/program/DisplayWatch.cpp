// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/DisplayWatch.h"

#include <QString>

#include <cstdlib>
#include <iostream>

namespace vorhaven {
namespace {

/// What the toolkit has said on its way, and what of it names a plug-in that is not there.
QString heard, missing;

void Hear(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type != QtFatalMsg) {
        heard += qFormatLogMessage(type, context, message) + '\n';
        if (missing.isEmpty() && message.contains(QLatin1String("Could not find the Qt platform plugin")))
            missing = message;
        return;
    }
    std::cerr
        << "There is no display on which the window could be shown; start the program in a desktop session."
        << (missing.isEmpty() ? "" : "\n" + missing.toStdString()) << '\n';
    std::_Exit(EXIT_FAILURE);
}

} // namespace

DisplayWatch::DisplayWatch() : before_(qInstallMessageHandler(Hear)) {}

DisplayWatch::~DisplayWatch() {
    qInstallMessageHandler(before_);
    std::cerr << heard.toStdString();
    heard.clear();
}

} // namespace vorhaven
