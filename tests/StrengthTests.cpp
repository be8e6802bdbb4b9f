// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/TestHost.h"
#include "ui/results/Strength.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

/// What is told about the strengths of a side's first stack in a fought battle, in order, between bars.
std::string Told(const std::vector<ArmyEntry>& attackers, const std::vector<ArmyEntry>& defenders,
                 bool ofDefenders = false) {
    TestHost host;
    for (const ArmyEntry& entry : attackers)
        host.AddAttacker(entry);
    for (const ArmyEntry& entry : defenders)
        host.AddDefender(entry);
    std::string told;
    host.OnStats = [&](CStackAtt& attack, CStackAtt& defend) {
        const CStackAtt& stack = ofDefenders ? defend : attack;
        for (const CArmy& army : stack)
            told += (told.empty() ? "" : " | ") + SumText(ExplainStrength(army, stack, host.Terrain()));
    };
    MBattleCalc::Add(host, 1, 20, true, 0);
    return told;
}

ArmyEntry Unit(const std::string& name, Long strength, PowerType power = PowerType{0}, Long size = 0) {
    ArmyEntry entry = Plain(strength);
    entry.Name = name;
    entry.PowerType = static_cast<std::int32_t>(power);
    entry.PowerValue = size;
    return entry;
}

ArmyEntry At(const char* terrain, Long bonus, ArmyEntry entry) {
    entry.CBName = terrain;
    entry.CBValue = bonus;
    return entry;
}

ArmyEntry With(bool ArmyEntry::* condition, ArmyEntry entry) {
    entry.*condition = true;
    return entry;
}

TEST(Strength, TellsEveryStepFromTheBaseToTheFightingStrength) {
    const ArmyEntry foe = Unit("Foe", 5);
    // Power 25 strikes every time.
    const ArmyEntry poisoner = Unit("Poisoner", 5, PowerType::Poison, 25);
    const ArmyEntry curser = Unit("Curser", 5, PowerType::Curse, 25);
    const struct {
        std::vector<ArmyEntry> Armies;
        ArmyEntry Enemy;
        const char* Expected;
    } cases[] = {
        // clang-format off
        {{Unit("Oath", 6)}, foe, "6"},
        {{With(&ArmyEntry::IsBlacksmith, Unit("Oath", 6))}, foe, "7"},
        {{At("hills", 3, Unit("Oath", 6))}, foe, "6"},
        {{At("field", 1, With(&ArmyEntry::IsBlessed, Unit("Pack", 6, PowerType::Banding, 2))),
          Unit("Lead", 4, PowerType::Morale, 1)}, foe,
         "6 + 1 field + 1 blessed + 2 banding + 1 stack bonus = 11 | 4 + 1 stack bonus = 5"},
        // A band's size is that of its first army, and three outgrow a size of 1.
        {{Unit("Pack", 3, PowerType::Banding, 1), Unit("Pack", 3, PowerType::Banding, 5),
          Unit("Pack", 3, PowerType::Banding, 1)}, foe,
         "3 + 2 banding = 5 | 3 + 2 banding = 5 | 3 + 2 banding = 5"},
        {{With(&ArmyEntry::IsPoisoned, Unit("Oath", 6))}, foe, "6 - 1 poisoned = 5"},
        {{Unit("Oath", 6)}, poisoner, "6 - 1 poisoned = 5"},
        {{At("field", 3, Unit("Oath", 13))}, foe, "13 + 3 field - 2 limited to 14 = 14"},
        {{With(&ArmyEntry::IsPoisoned, Unit("Pack", 1, PowerType::Banding, 2))}, foe,
         "1 - 1 poisoned + 1 raised to 1 + 2 banding = 3"},
        {{Unit("Lead", 2)}, Unit("Fright", 5, PowerType::Fear, 5), "2 - 1 stack bonus = 1"},
        {{Unit("Lead", 1)}, Unit("Fright", 5, PowerType::Fear, 5), "1 - 1 stack bonus + 1 raised to 1 = 1"},
        {{With(&ArmyEntry::IsBlessed, Unit("Oath", 14))}, curser,
         "14 + 1 blessed - 1 limited to 14 - 1 cursed = 13"},
        // clang-format on
    };
    for (const auto& each : cases)
        EXPECT_EQ(Told(each.Armies, {each.Enemy}), each.Expected);
    EXPECT_EQ(Told({foe}, {At("field", -2, Unit("Wall", 4))}, true), "4 - 2 field = 2");
}

} // namespace
} // namespace vorhaven::test
