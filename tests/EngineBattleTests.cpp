// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/State.h"
#include "tests/support/EngineTest.h"
#include "tests/support/Errors.h"

#include <chrono>
#include <cmath>
#include <set>
#include <thread>

namespace vorhaven::test {
namespace {

using namespace MBattleCalc;

TEST(Generator, ReadsItsTimerOnceADrawAndMixesItIntoASequenceThatNeverRestarts) {
    static std::uint64_t readings = 0;
    TimedGenerator counting{1, [] { return ++readings; }}, frozen{1, [] { return std::uint64_t{7}; }},
        other{1, [] { return std::uint64_t{8}; }};
    std::set<std::uint32_t> values, others;
    for (std::uint64_t draw = 1; draw <= 100; ++draw) {
        values.insert(frozen.Draw());
        others.insert(other.Draw());
        EXPECT_LT(counting.Draw(), 1U << 24U);
        EXPECT_EQ(readings, draw);
    }
    EXPECT_EQ(values.size(), 100U) << "a frozen timer repeats no value";
    values.merge(others);
    EXPECT_EQ(values.size(), 200U) << "another timer gives another sequence";
}

TEST(Generator, DrawsTheUpperBitsOfThePublishedSequence) {
    SplitMix64 generator{1234567};
    for (const std::uint64_t published : {6457827717110365317U, 3203168211198807973U, 9817491932198370423U})
        EXPECT_EQ(generator.Draw(0), published >> 40U);
}

TEST(Generator, SystemTimerMovesWithTheKernelsTick) {
    const std::uint64_t start = SystemTimer();
    std::this_thread::sleep_for(std::chrono::milliseconds{50});
    EXPECT_GE(SystemTimer() - start, 30'000'000U) << "nanoseconds, less two ticks at most";
}

TEST_F(Engine, DiceFallAsDoublePrecisionSaysAndPercentagesEndAt98) {
    for (const std::int32_t faces : {1, 6, 20, 99, 1'000'003, 1 << 28, -1, -7})
        for (const char* draw :
             {"0.0", "0.01", "0.123456789", "0.3", "0.5", "0.6789", "0.95", "0.99999999"}) {
            const Script script{draw};
            const double uniform = std::floor(std::ldexp(std::stod(draw), 24)) / 0x1p24;
            EXPECT_EQ(CombatDiceRoll(faces), std::floor(uniform * faces + 1.0)) << faces;
        }
    const Script script{"0.0 0.0 0.5 0.5 0.99999999 0.99999999"};
    for (const auto& [roll, percentage] : {std::pair{1, 0}, {11, 49}, {20, 98}}) {
        EXPECT_EQ(CombatDiceRoll(0), roll) << "the run's die";
        EXPECT_EQ(RandomPercentNum(), percentage);
    }
}

TEST_F(Engine, AMedalGivesTheLowerOfTwoRollsAndMoreMedalsASmallerSecondDie) {
    for (const auto& [medals, roll] : {std::pair{1, 16}, {2, 14}, {3, 12}, {4, 10}}) {
        const Script script{"0.99 0.5"};
        EXPECT_EQ(GetCombatRoll(medals), roll) << medals;
    }
    for (const Long medals : {-1, 0, 5}) {
        const Script script{"0.99"};
        EXPECT_EQ(GetCombatRoll(medals), 20) << "no second die";
    }
}

struct Battle {
    const char *Attackers, *Defenders, *Draws;
    /// Whether the attacker wins; slain attackers and their turns, slain defenders and their turns.
    Row Results;
    const char* Reason;
};

class EngineBattle : public Engine {
protected:
    void Expect(const std::vector<Battle>& battles) {
        for (const Battle& battle : battles) {
            SCOPED_TRACE(battle.Reason);
            Fight(battle.Attackers, battle.Defenders, battle.Draws);
            EXPECT_EQ(RowOf(1), battle.Results);
        }
    }
};

// clang-format off

TEST_F(EngineBattle, LoserOfARoundIsDamagedAndTheTrampleOfTheWinnerStopsAtFlyers) {
    Expect({
        {"Medals 1", "Medals 2", "11 10/30 11 10/26 10 30/30 11 11/26", {1, 0, 0, 1, 1},
            "the attacker rolls first; both hit, nobody loses"},
        {"Hits 2", "Hits 3", "A D N A A",                {1, 0, 0, 1, 1}, "a lost round costs one hit"},
        {"Trample 2", "Hits 3", "A",                     {1, 0, 0, 1, 1}, "trample adds to the damage"},
        {"Hits 3", "Trample 2", "D",                     {0, 1, 1, 0, 0}, "defenders trample as well"},
        {"Trample 2 IsFlying", "Hits 3 Unit 6", "A",     {1, 0, 0, 1, 1},
            "the trampling army may fly itself; a hero that walks"},
        {"Trample 2", "Hits 3 IsFlying", "A A A",        {1, 0, 0, 1, 1}, "marked as flying"},
        {"Trample 2", "Hits 3 Unit 1", "A A A",          {1, 0, 0, 1, 1}, "an army type that flies"},
        {"Hits 3 Unit 7", "Trample 2", "D D D",          {0, 1, 1, 0, 0}, "a hero type that flies"},
        {"Trample 2", "Hits 3 Unit 2", "A",              {1, 0, 0, 1, 1}, "\" fly\" is no flying"},
    });
}

TEST_F(EngineBattle, LastArmyOfAStackFightsFirstAndOnlyANewStackHealsTheFrontDefender) {
    Expect({
        {"Turns 3;Turns 5", "", "D A",                   {1, 1, 5, 1, 1}, "the last attacker first"},
        {"Turns 3", "Turns 5;Turns 7", "A D",            {0, 1, 3, 1, 7}, "the last defender first"},
        {";", "Hits 2", "A D A", {1, 1, 1, 1, 1}, "the wound stays when the next of a stack comes"},
        {"/", "Hits 2", "A D A D",                       {0, 2, 2, 0, 0}, "a new stack heals"},
        {"/", "Hits 2", "D A A", {1, 1, 1, 1, 1}, "what is healed must be wounded again"},
    });
}

TEST_F(EngineBattle, MissileThatHitsSlaysAndAVolleyThatMissesIsTheLast) {
    Expect({
        {"Missle 3", "Hits 4;Hits 4;Hits 4", "N A A A A A A", {1, 0, 0, 3, 3},
            "three shots: a miss, two hits; then rounds"},
        {"Missle 2", ";", "D N A D", {0, 1, 1, 1, 1}, "both shots miss: none is left for the second duel"},
        {"Missle 4", ";Missle 1 Hits 4", "A N N D",      {0, 1, 1, 1, 1},
            "shots are loaded once, by the lead over the first target"},
        {"Hits 4", "Missle 1", "D",                      {0, 1, 1, 0, 0}, "defenders shoot as well"},
        {"Missle 2", "Missle 2 Hits 2", "A A",           {1, 0, 0, 1, 1}, "equal missiles: no shot"},
        {"Missle 1 Medals 4", "Hits 4", "20 10/18 11",   {1, 0, 0, 1, 1}, "a shot is a round with medals"},
        {"Hits 4/", "Missle 3", "D N N D", {0, 2, 2, 0, 0}, "what a hit leaves is shot at the next stack"},
    });
}

TEST_F(EngineBattle, AcidHalvesStrengthAndLightningHitsByTheForceThatWardingLeaves) {
    Expect({
        {"Acid 3", "Strength 11 Acid 1 Warding 1", "9% 1 6",          {1, 0, 0, 1, 1},
            "force 1 strikes on a draw of 9: 11 becomes 5"},
        {"Acid 3", "Strength 11 Acid 1 Warding 1", "10% 1 11 1 12",   {1, 0, 0, 1, 1}, "and fails on 10"},
        {"Acid 1 Warding 1", "Acid 3", "9% 6 1",                      {0, 1, 1, 0, 0}, "defenders' acid"},
        {"Lightning 3", "Hits 4 Lightning 1 Warding 1", "9% A A",     {1, 0, 0, 1, 1}, "4 hits become 2"},
        {"Hits 4 Lightning 1 Warding 1", "Lightning 3", "9% D D", {0, 1, 1, 0, 0}, "defenders' lightning"},
        {"Acid 2 Lightning 2 Assass 2", "Warding 2", "A", {1, 0, 0, 1, 1}, "not above the warding: no draw"},
        {"Acid 2 Lightning 2 Assass 2", "Acid 2 Lightning 2 Assass 2", "A", {1, 0, 0, 1, 1},
            "equal powers do nothing"},
        {"Acid 10;Acid 10", "Strength 9", "0% 20 4 98% 1 3",          {1, 1, 1, 1, 1},
            "acid strikes in every duel, halving the halved"},
        {"Lightning 10;Lightning 10", "Hits 4", "0% D 98% A", {1, 1, 1, 1, 1}, "and so does lightning"},
        {"Acid 1 Lightning 2 Assass 3 Missle 1", "Hits 2", "9% 19% 30% N 1 6", {1, 0, 0, 1, 1},
            "acid, lightning, assassins, missiles"},
    });
}

TEST_F(EngineBattle, AssassinTriesOnceABattleAndHasNoShotsLeft) {
    Expect({
        {"Assass 3", "Hits 4 Assass 1 Warding 1", "9%", {1, 0, 0, 1, 1}, "force 1 slays on a draw of 9"},
        {"Assass 3", "Hits 2 Assass 1 Warding 1", "10% A A",  {1, 0, 0, 1, 1}, "and fails on 10"},
        {"", "Assass 5", "49%",                               {0, 1, 1, 0, 0}, "defending assassins"},
        {"Assass 10", "Hits 4;Hits 4", "98% A A A A",         {1, 0, 0, 2, 2}, "one attempt"},
        {"Hits 4/Hits 2", "Assass 10", "98% D D",             {0, 2, 2, 0, 0}, "a new stack brings no other"},
        {"Missle 3 Assass 1", "", "98% D",                    {0, 1, 1, 0, 0}, "no shots after a failure"},
        {"Missle 3 Assass 2", "Warding 2", "D",               {0, 1, 1, 0, 0},
            "nor against a warding that stops the attempt"},
        {"Missle 3 Assass 1", "Assass 2 Warding 9", "10% D",  {0, 1, 1, 0, 0}, "nor for the lesser assassin"},
    });
}

// clang-format on

TEST_F(Engine, ForceOfAnAssassinIsFormedBeforeItsMarkIsAskedAndMayOverflow) {
    CStackAtt attackers = StackOf("Assass 2147483647"), defenders = StackOf("Assass 2147483646 Warding 2");
    attackers.Item(1).UsedSpecial = true;
    EXPECT_THAT([&] { static_cast<void>(ResolveAssass(1, 1, attackers, defenders, 1)); },
                Raises(6, {"MBattleCalc::ResolveAssass"}));
}

TEST_F(Engine, StacksGoByLineAndAnEmptyOneHidesThoseBehindIt) {
    const struct {
        std::vector<std::int32_t> Lines;
        const char* Draws;
        Row Results;
    } cases[] = {
        {{0, 5, 7, 8}, "D D D D", {0, 4, 24, 0, 0}},
        {{0, 16, 24}, "D", {0, 1, 1, 0, 0}},
        {{0, 8, 24}, "D D", {0, 2, 10, 0, 0}},
        {{0, 8, 16, 24, 31}, "D D D D D", {0, 5, 84, 0, 0}},
    };
    for (const auto& test : cases) {
        host_.Clear();
        host_.BringDefender();
        for (const std::int32_t line : test.Lines)
            host_.BringAttacker(line, "Turns " + std::to_string(line + 1));
        const Script script{test.Draws};
        Add(host_, 1, 20, false, 0);
        EXPECT_EQ(RowOf(1), test.Results) << test.Lines.size() << " attackers, each costing its line plus 1";
    }
}

TEST_F(Engine, SideWithoutAnArmyForTheFrontIsAnErrorOfTheDuel) {
    const auto expectError = [this](const char* reason) {
        EXPECT_THAT([this] { Add(host_, 1, 20, false, 0); },
                    Raises(5, {"MBattleCalc::ResolveAcid", "MBattleCalc::UnitvsUnit", "MBattleCalc::Fight",
                               "MBattleCalc::Add"}))
            << reason;
    };
    host_.Clear();
    host_.BringDefender();
    expectError("nobody attacks, and nobody is left from the run before");
    host_.BringAttacker(8);
    expectError("the first stack is empty");
    host_.Clear();
    host_.BringAttacker(0);
    expectError("nobody defends");
}

TEST_F(Engine, NewcomerHealsTheHitsOfTheFrontDefenderAlone) {
    CStackAtt* front = nullptr;
    host_.OnStats = [&](CStackAtt&, CStackAtt& defenders) { (front = &defenders)->Item(1).Hits = 1; };
    // Disease strikes the defenders first, so 3 of 4 hits is what the front defender gets back; its halved
    // strength, its spent attempt and the shots that it lost stay.
    Fight("Disease 25 Acid 10/", "Hits 4;Hits 4 Assass 1 Missle 2",
          "98% 98% 98% 98% 1 6 1 6 20 5 1 6 1 6 20 5");
    EXPECT_EQ(Describe(*front), "10/1D 5/1D!");
    EXPECT_EQ(RowOf(1), (Row{0, 2, 2, 0, 0}));
    CStackAtt attackers, defenders;
    EXPECT_EQ(CheckIfVictor(0, 0, defenders), Victor::Attacker) << "a battle without survivors is won";

    Fight("/", "", "D D");
    attackers.CopyFrom(Masters.AttackStacks[0]);
    defenders.CopyFrom(Masters.DefendStack);
    NextAttackStack = 1;
    const Script script{"D D"};
    EXPECT_EQ(MBattleCalc::Fight(attackers, defenders, 1), Victor::Defender) << "in fronts of one's own, too";
}

TEST_F(Engine, PoisonStrikesBeforeDiseaseAndCurseTheAttackersFirstAndABlessingHoldsUntilTheCurse) {
    const struct {
        const char *Attackers, *Defenders, *Draws, *Seen;
    } cases[] = {
        {"Hits 2 Medals 1;Poison 1", "Poison 1 Disease 2 Curse 3;", "3% 4% 7% 8% 11% A A",
         "9/1PD 10/1 10/1 10/1"},
        {"Blessed Strength 14 Medals 2", "Poison 1 Disease 2 Curse 3", "11% 20 1", "13/1 10/1"},
    };
    for (const auto& test : cases) {
        std::string seen;
        host_.OnStats = [&](CStackAtt& a, CStackAtt& d) { seen = Describe(a) + ' ' + Describe(d); };
        Fight(test.Attackers, test.Defenders, test.Draws);
        EXPECT_EQ(seen, test.Seen);
    }
}

} // namespace
} // namespace vorhaven::test
