// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/TestHost.h"
#include "ui/results/Strength.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

/// What is told about the strengths of a side's first stack in a fought battle, in order, between bars.
std::string Told(const std::string& attackers, const std::string& defenders, bool ofDefenders = false) {
    TestHost host;
    host.Bring(attackers, defenders);
    std::string told;
    host.OnStats = [&](CStackAtt& attack, CStackAtt& defend) {
        const CStackAtt& stack = ofDefenders ? defend : attack;
        for (const CArmy& army : stack)
            told += (told.empty() ? "" : " | ") + SumText(ExplainStrength(army, stack, host.Terrain()));
    };
    MBattleCalc::Add(host, 1, 20, true, 0);
    return told;
}

TEST(Strength, TellsEveryStepFromTheBaseToTheFightingStrength) {
    const struct {
        const char *Armies, *Enemy, *Expected;
    } cases[] = {
        // clang-format off
        {"Base 6", "", "6"},
        {"Base 6 blacksmith", "", "7"},
        {"Base 6 hills 3", "", "6"},
        {"Base 6 field 1 blessed Banding 2 Size 2;Base 4 Morale 1", "",
         "6 + 1 field + 1 blessed + 2 banding + 1 stack bonus = 11 | 4 + 1 stack bonus = 5"},
        // A band's size is that of its first army, and three outgrow a size of 1.
        {"Base 3 Banding 1 Size 1;Base 3 Banding 5 Size 5;Base 3 Banding 1 Size 1", "",
         "3 + 2 banding = 5 | 3 + 2 banding = 5 | 3 + 2 banding = 5"},
        {"Base 6 poisoned", "", "6 - 1 poisoned = 5"},
        {"Base 6", "Poison 25", "6 - 1 poisoned = 5"}, // power 25 strikes every time
        {"Base 13 field 3", "", "13 + 3 field - 2 limited to 14 = 14"},
        {"Base 1 poisoned Banding 2 Size 2", "", "1 - 1 poisoned + 1 raised to 1 + 2 banding = 3"},
        {"Base 2", "Fear 5", "2 - 1 stack bonus = 1"},
        {"Base 1", "Fear 5", "1 - 1 stack bonus + 1 raised to 1 = 1"},
        {"Base 14 blessed", "Curse 25", "14 + 1 blessed - 1 limited to 14 - 1 cursed = 13"},
        // clang-format on
    };
    for (const auto& each : cases)
        EXPECT_EQ(Told(each.Armies, each.Enemy), each.Expected);
    EXPECT_EQ(Told("", "Base 4 field -2", true), "4 - 2 field = 2");
}

} // namespace
} // namespace vorhaven::test
