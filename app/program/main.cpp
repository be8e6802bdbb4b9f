// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/MMain.h"

int main(int argc, char** argv) {
    return vorhaven::MMain::Main(argc, argv);
}
