// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FakeToolkit.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

using MBattleCalc::BattleResults;

/// The results of a battle: winner (1 the attacker), attackers slain and their turns, defenders likewise.
using Outcome = std::array<std::int32_t, 5>;

/// The detailed results of a run of which some battles were fought.
struct Results {
    Results(Long numBattles, const std::vector<std::pair<int, Outcome>>& fought) : NumBattles(numBattles) {
        BattleResults.Redimension(numBattles);
        Long battle;
        for (const auto& [times, outcome] : fought)
            for (int i = 0; i < times; ++i) {
                ++battle;
                for (Long column = 1; column <= 5; ++column)
                    BattleResults(battle, column) = outcome[column.Index() - 1];
            }
    }
    const Chart::Row& Attack(std::size_t losses) const { return Window.mscAttMore.Rows().at(losses); }
    const Chart::Row& Defend(std::size_t losses) const { return Window.mscDefMore.Rows().at(losses); }

    Long NumBattles;
    FakeToolkit Toolkit;
    frmMoreResults Window{Toolkit, [this] { return NumBattles; }};
};

TEST(MoreResults, TellHowOftenExactlyAtMostAndAtLeastSoManyFell) {
    Results results{1000, {{3, {1, 0, 0, 2, 5}}, {564, {1, 2, 7, 2, 5}}, {433, {0, 3, 9, 1, 4}}}};
    results.Window.Form_Load();
    EXPECT_EQ(results.Attack(2).Details, "2 armies destroyed: 564 of 1000 battles, 7 production turns lost\n"
                                         "exactly 2: 56.4%\nat most 2: 56.7%\nat least 2: 99.7%");
    EXPECT_EQ(results.Attack(0).Figure + " " + results.Attack(1).Figure + " " + results.Attack(2).Figure,
              "<1  56");
    EXPECT_TRUE(results.Attack(1).IsEmpty);
    EXPECT_FALSE(results.Attack(0).IsEmpty);
    const Chart::Remarks& attack = results.Window.mscAttMore.Beside;
    const Chart::Remarks& defend = results.Window.mscDefMore.Beside;
    EXPECT_EQ(attack.MeanText, "mean 2.4");
    EXPECT_EQ(attack.Sentence, "When the attacker wins (567 of 1000): 2.0 armies, 7.0 turns lost");
    EXPECT_EQ(defend.Sentence, "When the defender wins (433 of 1000): 1.0 armies, 4.0 turns lost");
    EXPECT_EQ(attack.Highest, (std::array{57.0, 9.0}));
    EXPECT_EQ(defend.Highest, attack.Highest);
    EXPECT_EQ(attack.Reachable, 33) << "nothing is known about the lists";
    EXPECT_THAT(results.Window.mscAttMore.Numbers(),
                testing::EndsWith("\n32\t0\t0\nNumber of Battles\t1000\n"));
}

TEST(MoreResults, TellWhatAnAbortedRunHasNotFought) {
    Results results{1000, {{200, {0, 1, 3, 0, 0}}, {100, {1, 0, 0, 2, 6}}}};
    results.Window.Form_Load();
    EXPECT_EQ(results.Attack(0).Values[0], 80) << "charted by the rule";
    EXPECT_EQ(results.Attack(0).Details, "0 armies destroyed: 100 of 1000 battles, 0 production turns lost\n"
                                         "exactly 0: 10.0%\nat most 0: 10.0%\nat least 0: 30.0%\n"
                                         "not fought: 70.0%, charted as battles without losses");
    EXPECT_THAT(results.Attack(1).Details, testing::EndsWith("at most 1: 30.0%\nat least 1: 20.0%\n"
                                                             "not fought: 70.0%"));
    const Chart::Remarks& attack = results.Window.mscAttMore.Beside;
    EXPECT_EQ(attack.Sentence, "300 of 1000 battles were fought. "
                               "When the attacker wins (100 of 300): 0.0 armies, 0.0 turns lost");
    EXPECT_EQ(attack.MeanText, "mean 0.7");
    EXPECT_THAT(results.Window.mscDefMore.Numbers(),
                testing::EndsWith("Number of Battles\t1000\nBattles Fought\t300\n"));

    Results none{10, {}};
    none.Window.Form_Load();
    EXPECT_EQ(none.Window.mscDefMore.Beside.Get().Sentence,
              "0 of 10 battles were fought. The defender won no battle");
    EXPECT_FALSE(none.Window.mscDefMore.Beside.Get().Mean);
}

TEST(MoreResults, TellWhatIsKnownBesideTheRun) {
    Results results{10, {{10, {1, 1, 2, 1, 2}}}};
    frmMoreResults::Background known{{3, 1}, std::array<LossOdds, 2>{}};
    LossOdds& odds = (*known.ExactLosses)[0];
    odds[0] = 0.0004;
    odds[1] = 0.9;
    odds[2] = 0.0006;
    odds[3] = 0.099;
    (*known.ExactLosses)[1][1] = 1.0;
    results.Window.Known = known;
    results.Window.Form_Load();
    EXPECT_FALSE(results.Attack(0).Exact);
    EXPECT_NEAR(results.Attack(2).Exact.value_or(0.0), 0.06, 1e-12);
    EXPECT_THAT(results.Attack(1).Details, testing::HasSubstr("exactly 1: 100.0% (exact odds 90.0%)\n"
                                                              "at most 1: 100.0% (exact odds 90.0%)\n"
                                                              "at least 1: 100.0% (exact odds 100.0%)"));
    EXPECT_EQ(results.Window.mscAttMore.Beside.Get().WhyUnreachable, "only 3 armies were in the list");
    EXPECT_EQ(results.Window.mscDefMore.Beside.Get().WhyUnreachable, "only 1 army was in the list");
    EXPECT_EQ(results.Window.mscDefMore.Beside.Get().Reachable, 2);
    EXPECT_EQ(results.Defend(2).Details, "2 armies destroyed: only 1 army was in the list");

    EXPECT_EQ(results.Window.lblNewerRun.Caption.Get(), "");
    results.Window.RunFinished();
    EXPECT_EQ(results.Window.lblNewerRun.Caption.Get(), "A newer run exists: press More Results to see it");
    results.Window.Known.reset();
    results.Window.Form_Load();
    EXPECT_EQ(results.Window.lblNewerRun.Caption.Get(), "");
    EXPECT_FALSE(results.Attack(1).Exact);
    EXPECT_EQ(results.Window.mscAttMore.Beside.Get().WhyUnreachable, "");
}

} // namespace
} // namespace vorhaven::test
