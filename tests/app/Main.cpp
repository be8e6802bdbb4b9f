// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/PlainTexts.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // On the smallest screen that the window is made for.
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" VORHAVEN_TEST_SCREEN);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    vorhaven::InstallPlainTexts();
    return RUN_ALL_TESTS();
}
