// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/CStackAtt.h"
#include "model/Catalogue.h"
#include "tests/support/Armies.h"
#include "tests/support/Errors.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <array>

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

constexpr auto blessed = &ArmyEntry::IsBlessed, poisoned = &ArmyEntry::IsPoisoned,
               diseased = &ArmyEntry::IsDiseased, smith = &ArmyEntry::IsBlacksmith,
               master = &ArmyEntry::IsWeaponsmaster;

TEST(ArmyList, StrengthAndHitsComeFromCatalogueAndConditions) {
    const struct {
        std::int32_t strength, hits, bonus;
        const char* terrain;
        std::vector<bool ArmyEntry::*> conditions;
        const char* values;
        /// What is left of poison and disease.
        bool isPoisoned, isDiseased;
        const char* reason;
    } cases[] = {
        // clang-format off
        {5, 2, 2, "Field", {}, "2 0 5 5", false, false, "no bonus elsewhere, nor for another spelling"},
        {5, 2, 2, "field", {}, "2 0 7 5", false, false, "the defender's terrain"},
        {5, 2, 2, "Field", {smith}, "2 0 6 6", false, false, "a blacksmith adds to the base strength"},
        {5, 2, 2, "Field", {master}, "3 0 5 5", false, false, "a weaponsmaster adds a hit"},
        {5, 2, 2, "Field", {blessed}, "2 0 6 5", false, false, "a blessing adds to the strength"},
        {5, 2, 2, "Field", {poisoned}, "2 0 4 5", true, false, "poison takes strength"},
        {5, 2, 2, "Field", {diseased}, "1 0 5 5", false, true, "disease takes a hit"},
        {5, 2, 2, "field", {smith, blessed, poisoned, diseased}, "2 0 9 6", false, false, "a blessing cures"},
        {1, 1, 0, "Field", {poisoned, diseased}, "1 0 1 1", true, true, "neither goes below 1"},
        {5, 4, 0, "Field", {master, diseased}, "3 0 5 5", false, true, "4 hits at most, before the disease"},
        {5, 0, 0, "Field", {master}, "2 0 5 5", false, false, "1 hit at least, before the weaponsmaster"},
        {13, 1, 2, "field", {poisoned}, "1 0 13 13", true, false, "strength is 14 at most, before the poison"},
        {5, 1, -9, "field", {blessed}, "1 0 2 5", false, false, "strength is 1 at least, before the blessing"},
        {0, 1, 0, "Field", {smith}, "1 0 2 2", false, false, "base strength is 1 at least, before the blacksmith"},
        // clang-format on
    };
    ListHost host;
    for (const auto& test : cases) {
        SCOPED_TRACE(test.reason);
        ArmyEntry entry = Plain(test.strength, test.hits);
        entry.CBName = test.terrain;
        entry.CBValue = test.bonus;
        for (const auto condition : test.conditions)
            entry.*condition = true;
        CAttackArmies armies{host};
        const CArmy& army = *armies.Add(entry, "");
        EXPECT_EQ(Checked(army), test.values);
        EXPECT_EQ(army.Blessed, entry.IsBlessed);
        EXPECT_EQ(army.Poisoned, test.isPoisoned);
        EXPECT_EQ(army.Diseased, test.isDiseased);
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
    entry.UnitID = ListHost::armyTypes - 1;
    EXPECT_FALSE(armies.Add(entry, "")->IsHero);
    entry.UnitID = ListHost::armyTypes;
    entry.PowerType = 2;
    entry.PowerValue = 8;
    entry.IsPoisoned = entry.IsBlacksmith = true;
    const CArmy& hero = *armies.Add(entry, "");
    EXPECT_EQ(edited, 1);
    EXPECT_EQ(hero.Chaos, 3);
    EXPECT_EQ(Checked(hero), "2 0 9 10");
}

TEST(ArmyList, ErrorsTellTheirProcedure) {
    ListHost host;
    CAttackArmies armies{host};
    ArmyEntry entry = Plain(5);
    armies.Add(entry, "SN5");
    EXPECT_THAT([&] { armies.Add(entry, "SN5"); }, Raises(457, {"CAttackArmies::Add"}));
    EXPECT_THAT([&] { return armies.Item(2); }, Raises(5, {"CAttackArmies::Item"}));
    EXPECT_THAT([&] { return armies.Item("SN0"); }, Raises(5, {"CAttackArmies::Item"}));
    EXPECT_THAT([&] { armies.Remove("SN0"); }, Raises(5, {"CAttackArmies::Remove"}));
    armies.Remove("SN5");
    EXPECT_EQ(armies.Count(), 0);
    EXPECT_THAT([&] { armies.Remove(1); }, Raises(5, {"CAttackArmies::Remove"}));
    entry.CBName = host.Terrain();
    entry.CBValue = 2147483647;
    EXPECT_THAT([&] { armies.Add(entry, ""); },
                Raises(6, {"CAttackArmies::InterpretCB", "CAttackArmies::Add"}));
}

TEST(Stack, CopyComesWithoutTheMarksOfItsMakingAndOfAnEarlierBattle) {
    CArmy army;
    Long value = 20;
    for (const auto& [name, number] : Numbers)
        army.*number = ++value;
    for (const auto& [name, mark] : Marks)
        army.*mark = true;
    army.Name = "Giants";
    army.Hits = 3;
    army.TotalStrength = 9;
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
}

TEST(Stack, ErrorsTellTheirProcedure) {
    CStackAtt stack;
    stack.Add(CArmy{}, "SN1");
    EXPECT_THAT([&] { stack.Add(CArmy{}, "SN1"); }, Raises(457, {"CStackAtt::Add"}));
    EXPECT_THAT([&] { stack.Remove(2); }, Raises(5, {"CStackAtt::Remove"}));
    EXPECT_THAT([&] { stack.Remove("SN2"); }, Raises(5, {"CStackAtt::Remove"}));
}

/// Counts a stack's powers: chaos, morale, fear, siege, fortification, leadership; poison, disease, curse.
std::array<Long, 9> Count(CStackAtt& stack, CStackAtt::Mode mode, Long city) {
    stack.CountSelfPowers(mode, city);
    stack.EvalSelfPowers();
    return {stack.StackChaos,  stack.StackMorale,  stack.StackFear,
            stack.StackSiege,  stack.StackFortify, stack.StackLeadership,
            stack.StackPoison, stack.StackDisease, stack.StackCurse};
}

TEST(Stack, TakesTheBestOfSixPowersTheSumOfThreeAndTheCityForTheDefender) {
    using enum CStackAtt::Mode;
    using Powers = std::array<Long, 9>;
    CStackAtt stack;
    for (const char* powers :
         {"Chaos -1 Morale -2 Fear -3 Siege -4 Fortify -5 Leader -16 Poison -6 Disease -7 Curse -11",
          "Chaos 2 Morale 4 Fear 6 Siege 8 Fortify 10 Leader 32 Poison 12 Disease 14 Curse 22",
          "Chaos 1 Morale 2 Fear 3 Siege 4 Fortify 5 Leader 16 Poison 6 Disease 7 Curse 11"})
        Give(stack.Add(CArmy{}, ""), powers);
    EXPECT_EQ(Count(stack, Attack, 13), (Powers{2, 4, 6, 8, 10, 32, 12, 14, 22}));
    EXPECT_EQ(Count(stack, Defend, 13), (Powers{2, 4, 6, 8, 13, 32, 24, 28, 44})) << "the sums count again";
    EXPECT_EQ(Count(stack, Defend, 9), (Powers{2, 4, 6, 8, 10, 32, 36, 42, 66}));
    stack.Remove(2);
    stack.Remove(2);
    EXPECT_EQ(Count(stack, Attack, 3), (Powers{0, 0, 0, 0, 0, 0, 30, 35, 55})) << "below zero is none";
    stack.TotalStackBonus = 4;
    stack.Clear();
    EXPECT_EQ(Count(stack, Attack, 3), Powers{}) << "a new stack has nothing";
    EXPECT_EQ(stack.TotalStackBonus, 0);
    Give(stack.Add(CArmy{}, ""), "Poison 2147483647");
    Give(stack.Add(CArmy{}, ""), "Poison 1");
    EXPECT_THAT([&] { Count(stack, Attack, 0); },
                Raises(6, {"CStackAtt::AddRegularPowers", "CStackAtt::CountSelfPowers"}));
}

TEST(Stack, BandingArmiesOfOneNameStrengthenEachOther) {
    struct Banding {
        const char* name;
        std::int32_t banding, size, strength;
    };
    const struct {
        std::vector<Banding> armies;
        std::vector<std::int32_t> strengths;
        const char* reason;
    } cases[] = {
        // clang-format off
        {{{"a", 1, 1, 5}}, {6}, "even alone"},
        {{{"a", 1, 1, 5}, {"a", 1, 1, 5}}, {6, 6}, "the size"},
        {{{"a", 1, 1, 5}, {"a", 1, 1, 5}, {"a", 1, 1, 5}}, {7, 7, 7}, "the number of the others, which is more"},
        {{{"a", 2, 2, 5}, {"a", 2, 2, 5}, {"a", 2, 2, 5}}, {7, 7, 7}, "the size again"},
        {{{"a", 1, 1, 5}, {"a", 3, 3, 5}, {"a", 3, 3, 5}}, {7, 7, 7}, "the first size holds for all of a name"},
        {{{"a", 3, 3, 5}, {"a", 1, 1, 5}}, {8, 8}, "the first size, not the last"},
        {{{"a", 5, 1, 5}, {"a", 0, 1, 5}, {"a", 5, 1, 5}}, {6, 5, 6}, "whoever does not band is not counted"},
        {{{"a", 3, 3, 13}, {"a", -1, 3, 2}}, {14, 5}, "any banding but 0; strength ends at 14"},
        {{{"a", 1, 1, 5}, {"b", 3, 3, 5}, {"a", 1, 1, 5}, {"A", 1, 1, 5}}, {6, 8, 6, 6}, "names are exact"},
        {{{"a", -1, -1, 5}}, {5}, "a size below 0 against the others, of whom there are none"},
        // clang-format on
    };
    for (const auto& test : cases) {
        CStackAtt stack;
        for (const Banding& army : test.armies) {
            CArmy& copy = stack.Add(CArmy{}, "");
            copy.Name = army.name;
            copy.Banding = army.banding;
            copy.PowerValue = army.size;
            copy.TotalStrength = army.strength;
        }
        stack.CountSelfPowers(CStackAtt::Mode::Attack, 0);
        std::vector<std::int32_t> strengths;
        for (const CArmy& army : stack)
            strengths.push_back(army.TotalStrength.Value());
        EXPECT_EQ(strengths, test.strengths) << test.reason;
    }
}

TEST(Table, EmptyCellIsNothingAndACellOutsideAnError) {
    const Table table{{{Cell{}, 7, "2.5"}, {"x", "", -1}}};
    EXPECT_EQ(table.RowCount(), 2);
    EXPECT_EQ(Joined({CellNumber(table(0, 0)), CellNumber(table(0, 1)), CellNumber(table(0, 2))}), "0 7 2");
    EXPECT_EQ(CellText(table(0, 0)) + CellText(table(0, 1)) + CellText(table(0, 2)), "72.5");
    EXPECT_EQ(ErrorOf([&] { return CellNumber(table(1, 0)); }), 13);
    for (const auto& [row, column] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 3}})
        EXPECT_EQ(ErrorOf([&, r = row, c = column] { return table(r, c); }), 9) << row << ' ' << column;
}

} // namespace
} // namespace vorhaven::test
