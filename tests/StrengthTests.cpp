// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/TestHost.h"
#include "ui/results/Strength.h"

#include <gtest/gtest.h>

#include <random>

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

ArmyEntry With(bool ArmyEntry::*condition, ArmyEntry entry) {
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

TEST(Strength, AddsUpForWhateverFights) {
    std::mt19937 random(20'241'123);
    const auto draw = [&](int lowest, int highest) {
        return std::uniform_int_distribution<>(lowest, highest)(random);
    };
    const auto unit = [&] {
        ArmyEntry entry =
            Unit("Kind " + std::to_string(draw(0, 3)), draw(1, 15), PowerType{draw(2, 6)}, draw(0, 6));
        entry.PowerType = std::array{2, 3, 4, 5, 6, 26, 33, 37, 37, 37}[static_cast<std::size_t>(draw(0, 9))];
        if (entry.PowerType == 26 || entry.PowerType == 33)
            entry.PowerValue = draw(0, 25);
        entry = At(draw(0, 1) == 0 ? "field" : "hills", draw(-3, 5), entry);
        entry.IsBlessed = draw(0, 2) == 0;
        entry.IsPoisoned = draw(0, 2) == 0;
        entry.IsBlacksmith = draw(0, 3) == 0;
        entry.HasMedal = draw(0, 1);
        return entry;
    };
    for (int battle = 0; battle < 500; ++battle) {
        TestHost host;
        for (int count = draw(1, 8); count > 0; --count)
            host.AddAttacker(unit());
        for (int count = draw(1, 32); count > 0; --count)
            host.AddDefender(unit());
        host.OnStats = [&](CStackAtt& attack, CStackAtt& defend) {
            for (const CStackAtt* stack : {&attack, &defend})
                for (const CArmy& army : *stack) {
                    const auto terms = ExplainStrength(army, *stack, host.Terrain());
                    Long sum;
                    for (const StrengthTerm& term : terms)
                        sum += term.Amount;
                    EXPECT_EQ(sum, army.TotalStrength);
                    EXPECT_EQ(terms.front().Amount, army.StartStrength);
                    EXPECT_NE(terms.back().Reason, Unexplained) << SumText(terms);
                }
        };
        MBattleCalc::Add(host, 1, 20, true, draw(0, 3));
    }
}

} // namespace
} // namespace vorhaven::test
