// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/MMain.h"
#include "bench/FirstPaint.h"

namespace vorhaven::bench {

Q_COREAPP_STARTUP_FUNCTION(EndAfterFirstPaint)

} // namespace vorhaven::bench

int main(int argc, char** argv) {
    return vorhaven::MMain::Main(argc, argv);
}
