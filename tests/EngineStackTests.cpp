// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/EngineTest.h"
#include "tests/support/Errors.h"

namespace vorhaven::test {
namespace {

using namespace MBattleCalc;

TEST_F(Engine, StacksGoByLineAndAnEmptyOneHidesThoseBehindIt) {
    const struct {
        std::vector<std::int32_t> lines;
        const char* draws;
        Row results;
    } cases[] = {
        {{0, 5, 7, 8}, "D D D D", {0, 4, 24, 0, 0}},
        {{0, 16, 24}, "D", {0, 1, 1, 0, 0}},
        {{0, 8, 24}, "D D", {0, 2, 10, 0, 0}},
        {{0, 8, 16, 24, 31}, "D D D D D", {0, 5, 84, 0, 0}},
    };
    for (const auto& test : cases) {
        host.Clear();
        host.BringDefender();
        for (const std::int32_t line : test.lines)
            Give(host.BringAttacker(line), "Turns " + std::to_string(line + 1));
        const Script script{test.draws};
        Add(host, 1, 20, false, 0);
        EXPECT_EQ(RowOf(1), test.results) << test.lines.size() << " attackers, each costing its line plus 1";
    }
}

TEST_F(Engine, SideWithoutAnArmyForTheFrontIsAnErrorOfTheDuel) {
    const auto expectError = [this](const char* reason) {
        EXPECT_THAT([this] { Add(host, 1, 20, false, 0); },
                    Raises(5, {"MBattleCalc::ResolveAcid", "MBattleCalc::UnitvsUnit", "MBattleCalc::Fight",
                               "MBattleCalc::Add"}))
            << reason;
    };
    host.Clear();
    host.BringDefender();
    expectError("nobody attacks, and nobody is left from the run before");
    host.BringAttacker(8);
    expectError("the first stack is empty");
    host.Clear();
    host.BringAttacker(0);
    expectError("nobody defends");
}

TEST_F(Engine, NewcomerHealsTheHitsOfTheFrontDefenderAlone) {
    CStackAtt* front = nullptr;
    host.OnStats = [&](CStackAtt&, CStackAtt& defenders) { (front = &defenders)->Item(1).Hits = 1; };
    // Disease strikes the defenders first, so 3 of 4 hits is what the front defender gets back; its halved
    // strength, its spent attempt and the shots that it lost stay.
    Fight("Disease 25 Acid 10/", "Hits 4;Hits 4 Assass 1 Missle 2",
          "98% 98% 98% 98% 1 6 1 6 20 5 1 6 1 6 20 5");
    EXPECT_EQ(Describe(*front), "10/1D 5/1D!");
    EXPECT_EQ(RowOf(1), (Row{0, 2, 2, 0, 0}));
    CStackAtt empty;
    EXPECT_EQ(CheckIfVictor(0, 0, empty), Victor::Attacker) << "a battle without survivors is won";
}

TEST_F(Engine, PoisonStrikesBeforeDiseaseAndCurseTheAttackersFirstAndABlessingHoldsUntilTheCurse) {
    const struct {
        const char *attackers, *defenders, *draws, *seen;
    } cases[] = {
        {"Hits 2 Medals 1;Poison 1", "Poison 1 Disease 2 Curse 3;", "3% 4% 7% 8% 11% A A",
         "9/1PD 10/1 10/1 10/1"},
        {"Blessed Strength 14 Medals 2", "Poison 1 Disease 2 Curse 3", "11% 20 1", "13/1 10/1"},
    };
    for (const auto& test : cases) {
        std::string seen;
        host.OnStats = [&](CStackAtt& a, CStackAtt& d) { seen = Describe(a) + ' ' + Describe(d); };
        Fight(test.attackers, test.defenders, test.draws);
        EXPECT_EQ(seen, test.seen);
    }
}

} // namespace
} // namespace vorhaven::test
