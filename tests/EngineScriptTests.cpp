// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"
#include "tests/TestHost.h"

#include <gtest/gtest.h>

#include <array>

namespace vorhaven::test {
namespace {

using namespace MBattleCalc;

/// Chance as a test foresees it. "7" is a roll of the 20-faced combat die, "7/30" of another die, "35%" a
/// percentage draw, "0.5" the bare value; "A", "D" and "N" are rounds of strength 10 that the attacker, the
/// defender or nobody wins. A draw too many throws, a draw too few fails.
class Script final : public UniformSource {
public:
    explicit Script(const std::string& text) {
        std::istringstream words(text);
        for (std::string word; words >> word;) {
            const auto slash = word.find('/');
            const double faces = slash == std::string::npos ? 20.0 : std::stod(word.substr(slash + 1));
            if (word == "A" || word == "N" || word == "D")
                draws_.insert(draws_.end(), {word == "A" ? 0.0F : 0.9F, word == "D" ? 0.0F : 0.9F});
            else if (word.find('.') != std::string::npos)
                draws_.push_back(std::stof(word));
            else if (word.back() == '%')
                draws_.push_back(static_cast<float>((std::stod(word) + 0.5) / 99.0));
            else
                draws_.push_back(static_cast<float>((std::stod(word) - 0.5) / faces));
        }
        DrawFrom(*this);
    }
    ~Script() override {
        DrawFrom(ProcessGenerator());
        EXPECT_EQ(next_, draws_.size()) << "draws made, draws foreseen";
    }
    [[nodiscard]] float Draw() override { return draws_.at(next_++); }

private:
    std::vector<float> draws_;
    std::size_t next_ = 0;
};

/// Every army of a stack as strength/hits, its ailments and blessing by letter, its medals.
std::string Told(const CStackAtt& stack) {
    std::string told;
    for (const CArmy& army : stack)
        told += (told.empty() ? "" : " ") + ToText(army.TotalStrength) + '/' + ToText(army.Hits) +
                (army.Poisoned ? "P" : "") + (army.Diseased ? "D" : "") + (army.Blessed ? "B" : "") +
                std::string(static_cast<std::size_t>(army.HasMedal.Value()), '*') +
                (army.UsedSpecial ? "!" : "");
    return told;
}

CStackAtt StackOf(const std::string& armies) {
    CStackAtt stack;
    for (const std::string& army : Split(armies, ';'))
        Give(stack.Add(CArmy{}, ""), "Strength 5 Hits 3 " + army);
    return stack;
}

std::string Row(Long battle) {
    return Joined({BattleResults(battle, 1), BattleResults(battle, 2), BattleResults(battle, 3),
                   BattleResults(battle, 4), BattleResults(battle, 5)});
}

/// Begins with one trivial battle, which leaves the engine with a 20-faced die and the test's window.
class Engine : public testing::Test {
protected:
    Engine() { Fight("", "", "A"); }

    void Fight(const std::string& attackers, const std::string& defenders, const std::string& draws,
               Long battles = 1, Long city = 0) {
        host.Clear();
        host.Bring(attackers, defenders);
        const Script script{draws};
        Add(host, battles, 20, true, city);
        host.OnStats = [](CStackAtt&, CStackAtt&) {};
    }

    TestHost host;
};

TEST_F(Engine, DiceHaveAllTheirFacesPercentagesEndAt98AndAMedalGivesTheLowerOfTwoRolls) {
    // The product is formed in double precision: in single, the value just below 1/20 would round up to a 2.
    for (const auto& [u, results] : Cases("0.0=1 1 1 0|0.049999997=1 1 1 4|0.05=2 2 1 4|0.5=11 11 4 49|"
                                          "0.99999994=20 20 7 98")) {
        const Script script{u + ' ' + u + ' ' + u + ' ' + u};
        const Long ordinary = CombatDiceRoll(0), twenty = CombatDiceRoll(20), seven = CombatDiceRoll(7);
        EXPECT_EQ(Joined({ordinary, twenty, seven, RandomPercentNum()}), results) << u;
    }
    for (const auto& [medals, roll] : Cases("0=20|1=16|2=14|3=12|4=10|5=20|-1=20")) {
        const Script script{roll == "20" ? "0.99" : "0.99 0.5"};
        EXPECT_EQ(ToText(GetCombatRoll(ToLong(medals))), roll) << medals;
    }
}

TEST_F(Engine, BattlesFollowTheirDraws) {
    for (const auto& [battle, row] : Cases(
             // Of two rolls each, the attacker's come first; when both sides hit, nobody loses
             "Medals 1:Medals 2:11 10/30 11 10/26 10 30/30 11 11/26=1 0 0 1 1|"
             // Damage, and trample against walkers and flyers by mark and by nature (types 1 and 7)
             "Hits 2:Hits 3:A D N A A=1 0 0 1 1|Trample 2:Hits 3:A=1 0 0 1 1|Trample 2:Hits 4:A A=1 0 0 1 1|"
             "Hits 3:Trample 2:D=0 1 1 0 0|Trample 2 IsFlying:Hits 3 Unit 6:A=1 0 0 1 1|"
             "Trample 2:Hits 3 IsFlying:A A A=1 0 0 1 1|Trample 2:Hits 3 Unit 1:A A A=1 0 0 1 1|"
             "Hits 3 Unit 7:Trample 2:D D D=0 1 1 0 0|Trample 2:Hits 3 Unit 2:A=1 0 0 1 1|"
             "Trample -1:Hits 2:A A=1 0 0 1 1|"
             // The last army of a stack fights first; only a new stack heals the front defender
             "Turns 3;Turns 5::D A=1 1 5 1 1|Turns 3:Turns 5;Turns 7:A D=0 1 3 1 7|"
             ";:Hits 2:A D A=1 1 1 1 1|/:Hits 2:A D A D=0 2 2 0 0|/:Hits 2:D A A=1 1 1 1 1|"
             // A volley: every round uses a shot up, a hit slays and leaves the others, misses end it
             "Missle 3:Hits 4;Hits 4;Hits 4:N A A A A A A=1 0 0 3 3|Missle 2:;:D N A D=0 1 1 1 1|"
             "Missle 4:;Missle 1 Hits 4:A N N D=0 1 1 1 1|Missle 1:Hits 4 Warding 9:A=1 0 0 1 1|"
             "Hits 4:Missle 1:D=0 1 1 0 0|Missle 2:Missle 2 Hits 2:A A=1 0 0 1 1|"
             "Missle 1 Medals 4:Hits 4:20 10/18 11=1 0 0 1 1|Hits 4/:Missle 3:D N N D=0 2 2 0 0|"
             // Special attacks must exceed warding, which takes off their force
             "Acid 3:Strength 11 Acid 1 Warding 1:9% 1 6=1 0 0 1 1|Acid 9:Strength 1:89% 1 2=1 0 0 1 1|"
             "Acid 3:Strength 11 Acid 1 Warding 1:10% 1 11 1 12=1 0 0 1 1|Acid 1 Warding 1:Acid 3:9% 6 1=0 1 "
             "1 0 0|"
             "Lightning 3:Hits 4 Lightning 1 Warding 1:9% A A=1 0 0 1 1|Lightning 9::89% A=1 0 0 1 1|"
             "Lightning 3:Hits 2 Lightning 1 Warding 1:10% A A=1 0 0 1 1|"
             "Hits 4 Lightning 1 Warding 1:Lightning 3:9% D D=0 1 1 0 0|"
             "Acid 2 Lightning 2 Assass 2:Warding 2:A=1 0 0 1 1|Warding 2:Acid 2 Lightning 2:A=1 0 0 1 1|"
             "Acid 2 Lightning 2 Assass 2:Acid 2 Lightning 2 Assass 2:A=1 0 0 1 1|"
             "Assass 3:Hits 4 Assass 1 Warding 1:9%=1 0 0 1 1|:Assass 5:49%=0 1 1 0 0|"
             "Assass 3:Hits 2 Assass 1 Warding 1:10% A A=1 0 0 1 1|"
             // Assassins have no shots left, whatever came of them, and try once a battle
             "Missle 3 Assass 1::98% D=0 1 1 0 0|Missle 3 Assass 2:Assass 2:D=0 1 1 0 0|"
             "Missle 3 Assass 2:Warding 2:D=0 1 1 0 0|Missle 3 Assass 1:Assass 2 Warding 9:10% D=0 1 1 0 0|"
             "Assass 10:Hits 4;Hits 4:98% A A A A=1 0 0 2 2|Hits 4/Hits 2:Assass 10:98% D D=0 2 2 0 0|"
             // Acid and lightning open every duel; acid, lightning, assassins, missiles
             "Acid 10;Acid 10:Strength 9:0% 20 4 98% 1 3=1 1 1 1 1|"
             "Lightning 10;Lightning 10:Hits 4:0% D 98% A=1 1 1 1 1|"
             "Acid 1 Lightning 2 Assass 3 Missle 1:Hits 2:9% 19% 30% N 1 6=1 0 0 1 1")) {
        const auto parts = Split(battle, ':');
        Fight(parts[0], parts[1], parts[2]);
        EXPECT_EQ(Row(1), row) << battle;
    }
}

TEST_F(Engine, StacksGoByLineAndAnEmptyOneHidesThoseBehindIt) {
    // The lines of the attackers, of whom each costs its line plus one in turns, and the draws.
    for (const auto& [given, row] :
         Cases("0 5:D D=0 2 7 0 0|0 7 8:D D D=0 3 18 0 0|0 16 24:D=0 1 1 0 0|8:=error 5|"
               "0 8 24:D D=0 2 10 0 0|0 8 16 24 31:D D D D D=0 5 84 0 0")) {
        host.Clear();
        host.Defend(Plain(10));
        for (const std::string& line : Split(Split(given, ':')[0], ' '))
            host.AttackOnLine(ToLong(line), Plain(10, 1, ToLong(line) + 1));
        const Script script{Split(given, ':')[1]};
        const int error = ErrorOf([this] { Add(host, 1, 20, false, 0); });
        EXPECT_EQ(error == 0 ? Row(1) : "error " + std::to_string(error), row) << given;
    }
}

TEST_F(Engine, NewcomerHealsTheHitsOfTheFrontDefenderAlone) {
    CStackAtt* front = nullptr;
    host.OnStats = [&](CStackAtt&, CStackAtt& defenders) { (front = &defenders)->Item(1).Hits = 1; };
    // Disease strikes the defenders first, so 3 of 4 hits is what the front defender gets back; its halved
    // strength, its spent attempt and the shots that it lost stay.
    Fight("Disease 25 Acid 10/", "Hits 4;Hits 4 Assass 1 Missle 2",
          "98% 98% 98% 98% 1 6 1 6 20 5 1 6 1 6 20 5");
    EXPECT_EQ(Told(*front) + ", " + Row(1), "10/1D 5/1D!, 0 2 2 0 0");
    CStackAtt empty;
    EXPECT_EQ(static_cast<int>(CheckIfVictor(0, 0, empty)), 1) << "a battle without survivors is won";
}

TEST_F(Engine, LaterStacksComeWithoutBonusBandingOrStrikes) {
    CStackAtt* front = nullptr;
    host.OnStats = [&](CStackAtt& attackers, CStackAtt&) { front = &attackers; };
    Fight("Morale 2/Morale 3 Banding 2 Size 2 Poison 25;Morale 3", "Fortify 1 Morale 1",
          "20 12 13 13 10 12 13 13 10 13");
    EXPECT_EQ(Told(*front), "10/1 10/1");
}

TEST_F(Engine, AfflictionsTestTheEligibleAloneAndTheDefenderStrikesFirst) {
    const std::pair<void (*)(CStackAtt&, CStackAtt&), std::string> afflictions[] = {
        {CheckIfPoisoned,
         ";Poison 1;Medals 1;Blessed;Poisoned;Diseased:Strength 1:4/3P 5/3 4/3P* 5/3B 5/3P 5/3D 1/3P"},
        {CheckIfDiseased,
         ";Disease 1;Medals 1;Blessed;Diseased;Poisoned:Hits 1:5/2D 5/3 5/2D* 5/3B 5/3D 5/3P 5/1D"},
        {CheckIfCursed, "Medals 2;Curse 1 Blessed;Blessed Medals 3;;Poisoned;Blessed:Strength 1 Blessed:"
                        "5/3 5/3B 4/3 5/3 5/3P 5/3B 1/3"}};
    for (const auto& [strike, armies] : afflictions) {
        const auto parts = Split(armies, ':');
        CStackAtt a = StackOf(parts[0]), d = StackOf(parts[1]);
        a.StackPoison = a.StackDisease = a.StackCurse = 25;
        d.StackPoison = d.StackDisease = d.StackCurse = 2;
        const Script script{"7% 7% 8% 98%"};
        strike(a, d);
        EXPECT_EQ(Told(a) + ' ' + Told(d), parts[2]);
    }
}

TEST_F(Engine, PoisonStrikesBeforeDiseaseAndCurseAndABlessingHoldsUntilTheCurse) {
    for (const auto& [army, told] :
         Cases("Hits 2 Medals 1:3% 7% 11%=9/1PD|Blessed Strength 14 Medals 2:11%=13/1")) {
        const auto parts = Split(army, ':');
        std::string seen;
        host.OnStats = [&](CStackAtt& attackers, CStackAtt&) { seen = Told(attackers); };
        Fight(parts[0], "Poison 1 Disease 2 Curse 3", parts[1] + " 20 1");
        EXPECT_EQ(seen, told);
    }
}

TEST_F(Engine, StackBonusIsLimitedBeforeAndAfterTheEnemysPowersAndAsASum) {
    // leadership, morale, fortification, and the enemy's chaos, fear, siege = what is left of 5 and 13
    for (const auto& [given, told] :
         Cases("7 0 0 0 0 0=10/3 14/3|0 0 0 3 0 0=4/3 12/3|2 0 0 -4 0 0=8/3 14/3|7 0 0 3 0 0=7/3 14/3|"
               "9 9 9 0 0 0=10/3 14/3|0 0 0 5 5 5=2/3 10/3|0 2 0 0 1 0=6/3 14/3|0 0 3 0 0 1=7/3 14/3|"
               "2 3 0 0 0 9=9/3 14/3|-4 0 0 0 0 0=4/3 12/3|0 4 0 5 0 0=8/3 14/3|3 0 0 0 5 0=7/3 14/3")) {
        for (const bool attacks : {true, false}) {
            CStackAtt own = StackOf(";Strength 13"), enemy = StackOf("");
            std::istringstream in(given);
            std::string value;
            for (Long* power : {&own.StackLeadership, &own.StackMorale, &own.StackFortify, &enemy.StackChaos,
                                &enemy.StackFear, &enemy.StackSiege})
                *power = ToLong((in >> value, value));
            attacks ? ApplyMutualPowers(own, enemy) : ApplyMutualPowers(enemy, own);
            EXPECT_EQ(Told(own), told) << given;
        }
    }
    for (const auto& [city, told] : Cases("0=11/1 11/1|1=11/1 11/1|3=11/1 13/1")) {
        std::string seen;
        host.OnStats = [&](CStackAtt& a, CStackAtt& d) { seen = Told(a) + ' ' + Told(d); };
        Fight("Fortify 1", "Fortify 1", "1 20", 1, ToLong(city));
        EXPECT_EQ(seen, told);
    }
}

TEST_F(Engine, QuickResultsAreTheirShortestTexts) {
    const auto show = [this](Long battles, const std::array<Long, 5>& totals) {
        BattleResults.Redimension(battles);
        for (std::int32_t column = 1; column <= 5; ++column)
            BattleResults(battles, column) = totals[static_cast<std::size_t>(column) - 1];
        DisplayResults(battles);
        return host.Quick;
    };
    EXPECT_EQ(show(1000, {573, 1234, 4500, 2000, 0}), "57.3% 2:1.234 3:4.5 4:2 5:0");
    EXPECT_EQ(show(3, {1, 1, 2, 100, 2147483}),
              "33.3333333333333% 2:0.3333333 3:0.6666667 4:33.33333 5:715827.7");
    BattleResults(1, 3) = BattleResults(2, 3) = 2147483647;
    EXPECT_EQ(ErrorOf([] { DisplayResults(3); }), 6);
    EXPECT_EQ(ErrorOf([this] { Add(host, 0, 20, false, 0); }), 11);
    EXPECT_EQ(ErrorOf([] { return BattleResults(1, 1); }), 9);
}

TEST_F(Engine, ProgressIsShownEveryHundredthPartAndPumpsAfterBarAndText) {
    // battles and battle = the bar and the text that the first and the second pump see; the text of 40 and 23
    // falls below the half in double precision
    for (const auto& [given, expected] :
         Cases("150 1=1 x 1 1%|150 150=100 x 100 100%|8 1=12 x 12 12%|8 3=38 x 38 38%|40 23=57 x 57 57%|"
               "1000 370=37 x 37 37%|1000 375=|199 1=1 x 1 1%|200 1=|250 2=1 x 1 1%|1 1=100 x 100 100%")) {
        std::string seen;
        host.Progress.clear();
        host.ProgressText = "x";
        host.OnEvents = [&] {
            seen += (seen.empty() ? "" : " ") + ToText(host.Progress.back()) + ' ' + host.ProgressText;
        };
        ShowProgress(ToLong(Split(given, ' ')[0]), ToLong(Split(given, ' ')[1]));
        EXPECT_EQ(seen, expected.empty() ? "" : expected + " Completed") << given;
    }
}

TEST_F(Engine, EveryBattleAndEveryRunBeginsAfresh) {
    std::string shown;
    host.OnStats = [&](CStackAtt& a, CStackAtt& d) {
        shown += Told(a) + ' ' + Told(d) + (host.Busy ? " busy" : "");
    };
    Fight("Hits 4 Missle 1 Assass 10", "Hits 3 Acid 10", "98% 98% 98% 98%", 2);
    EXPECT_EQ(shown + '|' + Row(1) + '|' + Row(2), "10/4 10/3 busy|1 0 0 1 1|1 0 0 1 1");
    Fight(";Hits 2", "", "D D D");
    EXPECT_EQ(Row(1) + ' ' + host.Quick + ToText(BattleResults.RowCount()), "0 2 2 0 0 0% 2:2 3:2 4:0 5:01");
}

} // namespace
} // namespace vorhaven::test
