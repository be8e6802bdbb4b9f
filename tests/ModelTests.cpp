// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/CStackAtt.h"
#include "tests/TestHost.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

std::string Checked(const CArmy& army) {
    return Joined({army.Hits, army.StartHits, army.TotalStrength, army.StartStrength});
}

TEST(Army, WritesOfHitsAndStrengthAreHeldToTheirRanges) {
    CArmy army;
    EXPECT_EQ(Checked(army), "0 0 0 0");
    for (const auto& [written, read] :
         Cases("-2147483648=1 1 1 1|0=1 1 1 1|1=1 1 1 1|4=4 4 4 4|5=4 4 5 5|14=4 4 14 14|"
               "15=4 4 14 15|255=4 4 14 255|256=4 4 14 255|2147483647=4 4 14 255")) {
        army.Hits = army.StartHits = ToLong(written);
        army.TotalStrength = ToLong(written);
        army.StartStrength = ToLong(written);
        EXPECT_EQ(Checked(army), read) << written;
    }
}

TEST(ArmyList, StrengthAndHitsComeFromCatalogueAndConditions) {
    TestHost host;
    // Smith, weapon Master, Terrain of the bonus, Blessed, Poisoned, Diseased; strength, bonus, hits
    // = hits, start hits, total strength, start strength, what is left of blessing, poison and disease
    for (const auto& [given, expected] :
         Cases("- 5 2 2=2 0 5 5 |T 5 2 2=2 0 7 5 |S 5 2 2=2 0 6 6 |M 5 2 2=3 0 5 5 |B 5 2 2=2 0 6 5 B|"
               "P 5 2 2=2 0 4 5 P|D 5 2 2=1 0 5 5 D|STBPD 5 2 2=2 0 9 6 B|MPD 1 0 1=1 0 1 1 PD|"
               "D 5 0 1=1 0 5 5 D|D 5 0 9=3 0 5 5 D|MD 5 0 4=3 0 5 5 D|M 5 0 0=2 0 5 5 |T 13 2 1=1 0 14 13 |"
               "TB 13 2 1=1 0 14 13 B|TP 13 2 1=1 0 13 13 P|TB 5 -9 1=1 0 2 5 B|S 0 0 1=1 0 2 2 |"
               "S 300 0 1=1 0 14 255 ")) {
        const auto words = Split(given, ' ');
        const auto has = [&words](char letter) { return words[0].find(letter) != std::string::npos; };
        ArmyEntry entry = Plain(ToLong(words[1]), ToLong(words[3]));
        entry.CBName = has('T') ? "field" : "Field";
        entry.CBValue = ToLong(words[2]);
        entry.IsBlacksmith = has('S');
        entry.IsWeaponsmaster = has('M');
        entry.IsBlessed = has('B');
        entry.IsPoisoned = has('P');
        entry.IsDiseased = has('D');
        const CArmy& army = host.Attack(entry);
        EXPECT_EQ(Checked(army) + ' ' + (army.Blessed ? "B" : "") + (army.Poisoned ? "P" : "") +
                      (army.Diseased ? "D" : ""),
                  expected)
            << given;
    }
    ArmyEntry nobody;
    nobody.Name = "None";
    EXPECT_EQ(CAttackArmies{host}.Add(nobody, "SN0"), nullptr);
}

TEST(ArmyList, PowerCodeGivesItsPowerAndNoOther) {
    TestHost host;
    ArmyEntry entry = Plain(5);
    entry.PowerValue = 77;
    std::string powers;
    for (entry.PowerType = -1; entry.PowerType <= 45; ++entry.PowerType) {
        const CArmy& army = host.Defend(entry);
        for (const auto& [name, number] : Numbers)
            if (army.*number == 77 && name != "Size")
                powers += ToText(entry.PowerType) + name + ' ';
    }
    EXPECT_EQ(powers, "2Chaos 3Morale 4Fear 5Siege 6Fortify 26Poison 27Disease 28Assass 30Missle 32Trample "
                      "33Curse 37Banding 38Acid 39Lightning 41Warding ");
}

TEST(ArmyList, HeroIsEditedBeforeItIsStoredAndKeepsItsOwnPowers) {
    TestHost host;
    std::string edited;
    host.OnHero = [&](CArmy& hero) {
        edited += hero.Name.Text() + Checked(hero) + ", " + ToText(host.AttackArmies().Count());
        EXPECT_TRUE(hero.IsHero && hero.Poisoned && hero.Blacksmith);
        hero.Chaos = 3;
        hero.StartStrength = 9;
    };
    ArmyEntry entry = Plain(5, 2);
    entry.UnitID = TestHost::armyTypes - 1;
    EXPECT_FALSE(host.Attack(entry).IsHero);
    entry.UnitID = TestHost::armyTypes;
    entry.PowerType = 2;
    entry.PowerValue = 8;
    entry.IsPoisoned = entry.IsBlacksmith = true;
    const CArmy& hero = host.Attack(entry);
    EXPECT_EQ(edited + ' ' + ToText(hero.Chaos) + ' ' + Checked(hero), "Plain2 0 0 5, 1 3 2 0 9 10");
}

TEST(ArmyList, PlacesAndKeysThatAreNotThereOrTakenAreErrors) {
    const auto check = [](auto armies, auto army) {
        for (const auto& [name, key] : Cases("a=SN0|b=|c=SN5|d=")) {
            army.Name = name;
            armies.Add(army, key);
        }
        EXPECT_EQ(ErrorOf([&] { armies.Add(army, "SN5"); }), 457);
        armies.Remove(1);
        EXPECT_EQ(armies.Item(1).Name.Text() + armies.Item("SN5").Name.Text(), "bc");
        const auto errors = [&](auto place) {
            return ErrorOf([&] { return armies.Item(place); }) + ErrorOf([&] { armies.Remove(place); });
        };
        EXPECT_EQ(Joined({errors(-1), errors(0), errors(4)}), "10 10 10");
        EXPECT_EQ(Joined({errors("SN0"), errors("SN"), errors("")}), "10 10 10");
        armies.Remove("SN5");
        armies.Add(army, "SN5");
        EXPECT_EQ(armies.Item(2).Name.Text() + armies.Item("SN5").Name.Text(), "dd");
    };
    TestHost host;
    check(CAttackArmies{host}, ArmyEntry{});
    check(CStackAtt{}, CArmy{});
}

TEST(Count, ThatDoesNotFitIsAnOverflow) {
    EXPECT_EQ(RunTimeError{ErrorNumber::Overflow}.Headline(), "Run-time error '6':\nOverflow");
    EXPECT_EQ(ErrorOf([] { return Long{2147483647} + 1; }), 6);
    EXPECT_EQ(ErrorOf([] { return Long{-2147483647} - 2; }), 6);
    EXPECT_EQ(ErrorOf([] { return Long{65536} * 32768; }), 6);
}

TEST(Stack, TakesTheBestOfSixPowersTheSumOfThreeAndTheCityForTheDefender) {
    CStackAtt stack;
    for (const char* powers :
         {"Chaos -1 Morale -2 Fear -3 Siege -4 Fortify -5 Leader -16 Poison -6 Disease -7 Curse -11",
          "Chaos 2 Morale 4 Fear 6 Siege 8 Fortify 10 Leader 32 Poison 12 Disease 14 Curse 22",
          "Chaos 1 Morale 2 Fear 3 Siege 4 Fortify 5 Leader 16 Poison 6 Disease 7 Curse 11"})
        Give(stack.Add(CArmy{}, ""), powers);
    const auto count = [&stack](CStackAtt::Mode mode, Long city) {
        stack.CountSelfPowers(mode, city);
        stack.EvalSelfPowers();
        return Joined({stack.StackChaos, stack.StackMorale, stack.StackFear, stack.StackSiege,
                       stack.StackFortify, stack.StackLeadership, stack.StackPoison, stack.StackDisease,
                       stack.StackCurse});
    };
    EXPECT_EQ(count(CStackAtt::Mode::Attack, 13), "2 4 6 8 10 32 12 14 22");
    EXPECT_EQ(count(CStackAtt::Mode::Defend, 13), "2 4 6 8 13 32 24 28 44") << "the sums count again";
    EXPECT_EQ(count(CStackAtt::Mode::Defend, 9), "2 4 6 8 10 32 36 42 66");
    stack.Remove(2);
    stack.Remove(2);
    EXPECT_EQ(count(CStackAtt::Mode::Attack, 3), "0 0 0 0 0 0 30 35 55") << "a power below zero is none";
}

TEST(Stack, BandingArmiesOfOneNameStrengthenEachOther) {
    // name, banding, size and strength of each army = their strengths then; a name's first size holds for all
    for (const auto& [given, expected] : Cases(
             "a 1 1 5=6 |a 1 1 5 a 1 1 5=6 6 |a 1 1 5 a 1 1 5 a 1 1 5=7 7 7 |a 2 2 5 a 2 2 5 a 2 2 5=7 7 7 |"
             "a 1 1 5 a 3 3 5 a 3 3 5=7 7 7 |a 5 1 5 a 0 1 5 a 5 1 5=6 5 6 |a 3 3 13 a -1 3 2=14 5 |"
             "a 1 1 5 b 3 3 5 a 1 1 5 A 1 1 5=6 8 6 6 |a -1 -1 5=5 |a 3 3 5 a 1 1 5=8 8 ")) {
        CStackAtt stack;
        std::istringstream in(given);
        for (std::string name, banding, size, strength; in >> name >> banding >> size >> strength;)
            Give(stack.Add(CArmy{}, ""), "Banding " + banding + " Size " + size + " Strength " + strength)
                .Name = name;
        stack.CountSelfPowers(CStackAtt::Mode::Attack, 0);
        std::string strengths;
        for (const CArmy& army : stack)
            strengths += ToText(army.TotalStrength) + ' ';
        EXPECT_EQ(strengths, expected) << given;
    }
}

TEST(Conversion, TextBecomesTheNearestCountAndAnythingElseAnError) {
    for (const auto& [text, expected] :
         Cases("0=0|2.5=2|3.5=4|2.51=3|-2.5=-2|-3.5=-4| 7 =7|-1=-1|+4=4|1e3=1000|25E-1=2|.5=0|=error 13|"
               " =error 13|12a=error 13|1 2=error 13|1e=error 13|1,5=error 13|inf=error 13|nan=error 13|"
               "0x10=error 13|+-1=error 13|++1=error 13|-=error 13|2147483647.4=2147483647|"
               "-2147483648.5=-2147483648|2147483647.5=error 6|-2147483649=error 6|99999999999=error 6|"
               "1e999=error 6")) {
        std::string result;
        const int error = ErrorOf([&result, given = text] { result = ToText(ToLong(given)); });
        EXPECT_EQ(error == 0 ? result : "error " + std::to_string(error), expected) << text;
    }
    EXPECT_EQ(ToShort(-32768), -32768);
    EXPECT_EQ(ErrorOf([] { return ToShort(32768); }) + ErrorOf([] { return ToShort(-32769); }), 12);
}

TEST(Conversion, NumberBecomesItsSignificantDigitsAndNoMore) {
    for (const auto& [value, text] : {std::pair{100.0 / 3, "33.33333"},
                                      {100, "100"},
                                      {0, "0"},
                                      {-2.5, "-2.5"},
                                      {1e9 + 64, "1000000000"},
                                      {1e-8, "0.00000001"},
                                      {99.9999999, "100"}})
        EXPECT_EQ(ToSignificantText(value, 7), text);
}

} // namespace
} // namespace vorhaven::test
