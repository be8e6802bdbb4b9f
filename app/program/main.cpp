// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/MMain.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    QCoreApplication::setApplicationVersion(QStringLiteral(VORHAVEN_VERSION));
    return vorhaven::MMain::Main(argc, argv);
}
