// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/FirstPaint.h"

#include <QLabel>
#include <QMainWindow>

namespace vorhaven::bench {

Q_COREAPP_STARTUP_FUNCTION(EndAfterFirstPaint)

} // namespace vorhaven::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QLabel(QStringLiteral("A label")));
    window.show();
    return QApplication::exec();
}
