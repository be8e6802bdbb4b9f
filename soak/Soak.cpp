// SPDX-License-Identifier: GPL-3.0-or-later

// Random battles and a random user for as long as one likes: soak [seconds [first seed]].

#include "soak/Soak.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <random>
#include <string>

namespace vorhaven::soak {
namespace {

std::chrono::duration<double> secondsForEach{};
unsigned firstSeed = 0;

} // namespace

void Repeat(const std::function<void(unsigned seed)>& round) {
    const auto start = std::chrono::steady_clock::now();
    unsigned seed = firstSeed;
    do {
        SCOPED_TRACE("seed " + std::to_string(seed));
        round(seed++);
    } while (!testing::Test::HasFailure() && std::chrono::steady_clock::now() - start < secondsForEach);
    std::printf("%u rounds, the first with seed %u\n", seed - firstSeed, firstSeed);
}

} // namespace vorhaven::soak

int main(int argc, char** argv) {
    using namespace vorhaven::soak;
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" VORHAVEN_TEST_SCREEN);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    const double seconds = argc > 1 ? std::stod(argv[1]) : 30.0;
    firstSeed = argc > 2 ? static_cast<unsigned>(std::stoul(argv[2])) : std::random_device{}();
    secondsForEach =
        std::chrono::duration<double>(seconds / testing::UnitTest::GetInstance()->total_test_count());
    return RUN_ALL_TESTS();
}
