// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/CStackAtt.h"
#include "model/Catalogue.h"
#include "tests/support/Armies.h"
#include "tests/support/Errors.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

/// A record's checked properties: hits, start hits, total strength, start strength.
std::string Checked(const CArmy& army) {
    return Joined({army.Hits, army.StartHits, army.TotalStrength, army.StartStrength});
}

TEST(Army, HitsAndStrengthsAreClampedByEveryWriteAndStartHitsComeBack) {
    CArmy army;
    EXPECT_EQ(Checked(army), "0 0 0 0") << "a fresh record is not written yet";
    army.SetStartHits();
    EXPECT_EQ(Checked(army), "0 1 0 0");
    for (const auto& [written, read] : {std::pair{0, "1 1 1 1"}, {256, "4 4 14 255"}}) {
        army.Hits = army.StartHits = Long{written};
        army.TotalStrength = written;
        army.StartStrength = written;
        EXPECT_EQ(Checked(army), read) << written;
    }
    army.Hits = 2;
    army.RestoreStartHits();
    EXPECT_EQ(army.Hits, 4);
}

TEST(ArmyList, StrengthAndHitsComeFromCatalogueAndConditions) {
    const struct {
        std::int32_t Strength, Hits, Bonus;
        const char *Terrain, *Conditions, *Values;
        /// What is left of poison and disease.
        bool IsPoisoned, IsDiseased;
        const char* Reason;
    } cases[] = {
        // clang-format off
        {5, 2, 2, "Field", "", "2 0 5 5", false, false, "no bonus elsewhere, nor for another spelling"},
        {5, 2, 2, "Field", "blacksmith", "2 0 6 6", false, false, "a blacksmith adds to the base strength"},
        {5, 2, 2, "Field", "weaponsmaster", "3 0 5 5", false, false, "a weaponsmaster adds a hit"},
        {5, 2, 2, "field", "blacksmith blessed poisoned diseased", "2 0 9 6", false, false,
            "a blessing cures"},
        {1, 1, 0, "Field", "poisoned diseased", "1 0 1 1", true, true, "neither goes below 1"},
        {5, 4, 0, "Field", "weaponsmaster diseased", "3 0 5 5", false, true,
            "4 hits at most, before the disease"},
        {5, 0, 0, "Field", "weaponsmaster", "2 0 5 5", false, false,
            "1 hit at least, before the weaponsmaster"},
        {13, 1, 2, "field", "poisoned", "1 0 13 13", true, false,
            "strength is 14 at most, before the poison"},
        {5, 1, -9, "field", "blessed", "1 0 2 5", false, false,
            "strength is 1 at least, before the blessing"},
        {0, 1, 0, "Field", "blacksmith", "1 0 2 2", false, false,
            "base strength is 1 at least, before the blacksmith"},
        // clang-format on
    };
    ListHost host;
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Reason);
        ArmyEntry entry = EntryOf(test.Conditions);
        entry.StartStrength = test.Strength;
        entry.Hits = test.Hits;
        entry.CBName = test.Terrain;
        entry.CBValue = test.Bonus;
        CAttackArmies armies{host};
        const CArmy& army = *armies.Add(entry, "");
        EXPECT_EQ(Checked(army), test.Values);
        EXPECT_EQ(army.Blessed, entry.IsBlessed);
        EXPECT_EQ(army.Poisoned, test.IsPoisoned);
        EXPECT_EQ(army.Diseased, test.IsDiseased);
    }
    ArmyEntry nobody;
    nobody.Name = "None";
    CAttackArmies armies{host};
    EXPECT_EQ(armies.Add(nobody, "SN0"), nullptr);
    EXPECT_EQ(armies.Count(), 0);
}

TEST(ArmyList, PowerCodeGivesItsPowerAndNoOther) {
    ListHost host;
    CAttackArmies armies{host};
    ArmyEntry entry = Plain(5);
    entry.PowerValue = 77;
    std::string powers;
    for (entry.PowerType = -1; entry.PowerType <= 45; ++entry.PowerType) {
        const CArmy& army = *armies.Add(entry, "");
        for (const auto& [name, number] : Numbers)
            if (army.*number == 77 && name != "Size")
                powers += ToText(entry.PowerType) + name + ' ';
    }
    EXPECT_EQ(powers, "2Chaos 3Morale 4Fear 5Siege 6Fortify 26Poison 27Disease 28Assass 30Missle 32Trample "
                      "33Curse 37Banding 38Acid 39Lightning 41Warding ");
}

TEST(ArmyList, HeroIsEditedBeforeItIsStoredAndKeepsItsOwnPowers) {
    ListHost host;
    CAttackArmies armies{host};
    int edited = 0;
    host.OnHero = [&](CArmy& hero) {
        ++edited;
        EXPECT_EQ(armies.Count(), 1) << "the hero is not stored yet";
        EXPECT_EQ(Checked(hero), "2 0 0 5");
        EXPECT_TRUE(hero.IsHero && hero.Poisoned && hero.Blacksmith);
        hero.Chaos = 3;
        hero.StartStrength = 9;
    };
    ArmyEntry entry = Plain(5, 2);
    entry.UnitID = ListHost::ArmyTypes - 1;
    EXPECT_FALSE(armies.Add(entry, "")->IsHero);
    entry.UnitID = ListHost::ArmyTypes;
    entry.PowerType = 2;
    entry.PowerValue = 8;
    entry.IsPoisoned = entry.IsBlacksmith = true;
    const CArmy& hero = *armies.Add(entry, "");
    EXPECT_EQ(edited, 1);
    EXPECT_EQ(hero.Chaos, 3);
    EXPECT_EQ(Checked(hero), "2 0 9 10");
}

TEST(Stack, CopyComesWithoutTheMarksOfItsMakingAndOfAnEarlierBattle) {
    CArmy army;
    Give(army, "Name Giants Hits 3 Strength 9 Blessed Poisoned Diseased IsFlying");
    Long value = 20;
    for (const auto& [name, number] : Numbers)
        army.*number = ++value;
    army.StartStrength = 8;
    army.StartHits = 4;
    army.MissleShotsLeft = 2;
    army.UsedSpecial = army.Blacksmith = army.Weaponsmaster = army.IsHero = army.IsUndead = true;
    CStackAtt stack;
    const CArmy& copy = stack.Add(army, "");
    for (const auto& [name, number] : Numbers)
        EXPECT_EQ(copy.*number, army.*number) << name;
    for (const auto& [name, mark] : Marks)
        EXPECT_TRUE(copy.*mark) << name;
    EXPECT_TRUE(copy.Name == "Giants" && copy.IsHero && copy.IsUndead);
    EXPECT_EQ(Checked(copy), "3 0 9 8");
    EXPECT_EQ(copy.MissleShotsLeft, 0);
    EXPECT_FALSE(copy.UsedSpecial || copy.Blacksmith || copy.Weaponsmaster);
    EXPECT_EQ(Checked(stack.Add(CArmy{}, "")), "1 0 1 1") << "a blank record is written, too";
    while (stack.Count() < 9)
        EXPECT_EQ(Checked(stack.Add(stack.Item(1), "")), "3 0 9 8") << "wherever the storage goes";
}

/// Counts a stack's powers: chaos, morale, fear, siege, fortification, leadership; poison, disease, curse.
std::string Count(CStackAtt& stack, Side side, Long city) {
    stack.CountSelfPowers(side, city);
    stack.EvalSelfPowers();
    return Joined({stack.StackChaos, stack.StackMorale, stack.StackFear, stack.StackSiege, stack.StackFortify,
                   stack.StackLeadership, stack.StackPoison, stack.StackDisease, stack.StackCurse});
}

TEST(Stack, TakesTheBestOfSixPowersTheSumOfThreeAndTheCityForTheDefender) {
    using enum Side;
    CStackAtt stack =
        StackOf("Chaos -1 Morale -2 Fear -3 Siege -4 Fortify -5 Leader -16 Poison -6 Disease -7 Curse -11;"
                "Chaos 2 Morale 4 Fear 6 Siege 8 Fortify 10 Leader 32 Poison 12 Disease 14 Curse 22;"
                "Chaos 1 Morale 2 Fear 3 Siege 4 Fortify 5 Leader 16 Poison 6 Disease 7 Curse 11");
    EXPECT_EQ(Count(stack, Attacker, 13), "2 4 6 8 10 32 12 14 22");
    EXPECT_EQ(Count(stack, Defender, 13), "2 4 6 8 13 32 24 28 44") << "the sums count again";
    EXPECT_EQ(Count(stack, Defender, 9), "2 4 6 8 10 32 36 42 66");
    stack.Remove(2);
    stack.Remove(2);
    EXPECT_EQ(Count(stack, Attacker, 3), "0 0 0 0 0 0 30 35 55") << "below zero is none";
    stack.TotalStackBonus = 4;
    stack.Clear();
    EXPECT_EQ(Count(stack, Attacker, 3), "0 0 0 0 0 0 0 0 0") << "a new stack has nothing";
    EXPECT_EQ(stack.TotalStackBonus, 0);
    stack = StackOf("Poison 2147483647;Poison 1");
    EXPECT_THAT([&] { Count(stack, Attacker, 0); },
                Raises(6, {"CStackAtt::AddRegularPowers", "CStackAtt::CountSelfPowers"}));
}

TEST(Stack, BandingArmiesOfOneNameStrengthenEachOther) {
    const struct {
        const char *Armies, *Described, *Reason;
    } cases[] = {
        // clang-format off
        {"Banding 1 Size 1;Banding 1 Size 1;Banding 1 Size 1", "7/3 7/3 7/3",
            "the number of the others, if more"},
        {"Banding 1 Size 1;Banding 3 Size 3;Banding 3 Size 3", "7/3 7/3 7/3",
            "the first size holds for all of a name"},
        {"Banding 3 Size 3;Banding 1 Size 1", "8/3 8/3", "and not the last"},
        {"Banding 5 Size 1;Size 1;Banding 5 Size 1", "6/3 5/3 6/3", "who does not band is not counted"},
        {"Banding 3 Size 3 Strength 13;Banding -1 Size 3 Strength 2", "14/3 5/3",
            "any banding but 0; 14 at most"},
        {"Name a Banding 1 Size 1;Name b Banding 3 Size 3;Name a Banding 1 Size 1;Name A Banding 1 Size 1",
            "6/3 8/3 6/3 6/3", "names are exact"},
        {"Banding -1 Size -1", "5/3", "the number of the others, of whom there are none"},
        // clang-format on
    };
    for (const auto& test : cases) {
        CStackAtt stack = StackOf(test.Armies);
        stack.CountSelfPowers(Side::Attacker, 0);
        EXPECT_EQ(Describe(stack), test.Described) << test.Reason;
    }
}

} // namespace
} // namespace vorhaven::test
