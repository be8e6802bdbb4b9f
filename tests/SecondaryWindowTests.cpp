// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/Armies.h"
#include "tests/support/Errors.h"
#include "tests/support/FakeToolkit.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorhaven::test {
namespace {

using MBattleCalc::BattleResults;

/// The editor's fields in the order in which they are stored, and a hero's numbers from the third one on.
const std::vector<std::string> Fields =
    Split("Strength Hits Leadership Morale Fortification Chaos Fear Siege Assass Missle Curse Acid Lightning "
          "Trample",
          ' ');
constexpr std::array EditedNumbers{&CArmy::Leadership, &CArmy::Morale, &CArmy::Fortify,   &CArmy::Chaos,
                                   &CArmy::Fear,       &CArmy::Siege,  &CArmy::Assass,    &CArmy::Missle,
                                   &CArmy::Curse,      &CArmy::Acid,   &CArmy::Lightning, &CArmy::Trample};

/// An editor on a hero of strength 6 with 3 hits, who has 42, 43, ... of everything else.
struct Editor {
    Editor() {
        Army.StartStrength = 6;
        Army.Hits = 3;
        for (std::size_t i = 0; i < EditedNumbers.size(); ++i)
            Army.*EditedNumbers[i] = static_cast<std::int32_t>(i) + 42;
        Window.Hero = &Army;
        Toolkit.OnEvents = [this] { Seen += "events "; };
        Window.Form_Load();
    }
    HeroField& Field(const std::string& name) {
        return *std::ranges::find_if(Window.Fields, [&](const HeroField& field) {
            return field.txt.Name == "txt" + name && field.upd.Name == "upd" + name;
        });
    }
    std::string Screen() {
        std::string screen;
        for (const std::string& name : Fields) {
            EXPECT_EQ(Field(name).lbl.Caption.Get(), (name == "Assass" ? "Assassination" : name) + ":");
            screen += Field(name).txt.Text() + " ";
        }
        return screen;
    }
    std::string Record() const {
        std::string record = Joined({Army.StartStrength, Army.Hits}) + " ";
        for (const auto number : EditedNumbers)
            record += ToText(Army.*number) + " ";
        return record;
    }

    CArmy Army;
    FakeToolkit Toolkit;
    frmHero Window{Toolkit};
    std::string Seen;
    Connection Closing = Window.Unloading.Connect([this] { Seen += "closed "; });
};

TEST(HeroEditor, BeginsWithTheRecordAndLeadershipOneAndStoresWhatIsTyped) {
    Editor editor;
    std::string loaded;
    std::vector<Connection> loading;
    for (HeroField& field : editor.Window.Fields) {
        field.txt.SetText("");
        loading.push_back(field.txt.Changed.Connect([&] { loaded += field.txt.Name.substr(3) + " "; }));
    }
    editor.Window.Form_Load();
    loading.clear();
    EXPECT_EQ(loaded,
              "Strength Hits Leadership Morale Fortification Chaos Fear Siege Assass Missle Curse Trample "
              "Acid Lightning ");
    EXPECT_EQ(editor.Screen(), "6 3 1 43 44 45 46 47 48 49 50 51 52 53 ");
    editor.Field("Fear").txt.SetText("9");
    editor.Window.Unload();
    EXPECT_EQ(editor.Record(), "6 3 42 43 44 45 46 47 48 49 50 51 52 53 ") << "closed by other means";
    editor.Seen.clear();
    editor.Window.cmdProceed.Press();
    EXPECT_EQ(editor.Record(), "6 3 1 43 44 45 9 47 48 49 50 51 52 53 ");
    EXPECT_EQ(editor.Seen, "closed events ");
    for (std::size_t i = 0; i < Fields.size(); ++i)
        editor.Field(Fields[i]).txt.SetText("-7" + std::to_string(i) + ".5");
    editor.Window.cmdProceed.Press();
    EXPECT_EQ(editor.Record(), "1 1 -72 -74 -74 -76 -76 -78 -78 -80 -710 -712 -712 -714 ");
}

TEST(HeroEditor, TextThatIsNoNumberStoresTheFieldsBeforeIt) {
    for (std::size_t bad = 0; bad < Fields.size(); ++bad) {
        Editor editor;
        std::string expected;
        for (std::size_t i = 0; i < Fields.size(); ++i) {
            editor.Field(Fields[i]).txt.SetText(i == bad ? bad == 5 ? "" : "2x" : "2");
            expected += (i < bad ? "2" : std::to_string(i == 0 ? 6 : i == 1 ? 3 : i + 40)) + " ";
        }
        EXPECT_THAT([&] { editor.Window.cmdProceed.Press(); },
                    Raises(13, {"frmHero::SendPropsToHero", "frmHero::cmdProceed_Click"}));
        EXPECT_EQ(editor.Record() + editor.Seen, expected);
    }
}

TEST(HeroEditor, FillsItsFieldsWithTheLastValuesOnDemand) {
    Editor editor;
    const std::string begun = editor.Screen(), stored = editor.Record();
    EXPECT_FALSE(editor.Window.cmdLastValues.Enabled);
    CArmy last;
    Give(last,
         "Leader 60 Morale 61 Fortify 62 Chaos 63 Fear 64 Siege 65 Assass 66 Missle 67 Curse 68 Acid 69 "
         "Lightning 70 Trample 71 Hits 2");
    last.StartStrength = 7;
    editor.Window.LastValues = HeroValues::From(last);
    editor.Window.Form_Load();
    EXPECT_EQ(editor.Screen(), begun) << "not before they are asked for";
    editor.Window.cmdLastValues.Press();
    EXPECT_EQ(editor.Screen(), "7 2 60 61 62 63 64 65 66 67 68 69 70 71 ");
    EXPECT_EQ(editor.Record(), stored) << "not before Done";
}

TEST(Stats, LimitADifferenceOnceAndTakeTheLongestStacks) {
    const SmallCatalogue catalogue;
    FakeToolkit toolkit;
    frmStats window{toolkit, catalogue, "field"};
    CStackAtt attack = StackOf("Leader 9"), defend = StackOf("Chaos 3");
    for (CStackAtt* stack : {&attack, &defend})
        stack->CountSelfPowers(Side::Attacker, 0);
    while (defend.Count() < MaxLines)
        defend.Add(CArmy{}, "");
    window.ShowStats(attack, defend, [] {});
    EXPECT_EQ(window.Panels.Attacker.Adjusted()[0].Figure.Caption.Get(), "5")
        << "the engine limits 9 before it takes 3 off, the window only afterwards";
    EXPECT_EQ(window.msfgStackStats.Defender.LastFilledRow(), MaxLines);
    while (attack.Count() <= LinesPerStack)
        attack.Add(CArmy{}, "");
    EXPECT_THAT([&] { window.ShowStats(attack, defend, [] {}); }, Raises(9, {"MBattleCalc::ShowStats"}));
    EXPECT_EQ(window.Panels.Attacker.Total()[0].Figure.ToolTip,
              "The final stack bonus, ajusted into the range of -3 to +5, and applied to the stregth of each "
              "army in the stack")
        << "it is spelled so";
}

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

/// Percentage and turns that are charted for some numbers of losses.
std::string Charted(const Chart& chart, const std::vector<std::size_t>& losses) {
    std::string rows;
    for (const std::size_t row : losses)
        rows += chart.Rows().at(row).Label + ":" + ToText(chart.Rows()[row].Values[0]) + "%" +
                ToText(chart.Rows()[row].Values[1]) + " ";
    return rows;
}

TEST(MoreResults, ChartHowOftenEachLossCameAndWhatItLastCost) {
    Results results{200, {{1, {0, 32, 1, 5, 3}}, {197, {}}, {1, {0, 0, 0, 5, 100}}, {1, {0, 0, 0, 5, 200}}}};
    const auto load = [&] { results.Window.Form_Load(); };
    load();
    // Halves of a percent go to the even number.
    EXPECT_EQ(Charted(results.Window.mscAttMore, {0, 2, 32}), "0:100%0 2:0%0 32:0%1 ");
    EXPECT_EQ(Charted(results.Window.mscDefMore, {0, 4, 5}), "0:98%0 4:0%0 5:2%200 ");
    EXPECT_EQ(results.Window.mscAttMore.Description(), "The attacker won no battle\nmean 0.2\n" +
                                                           results.Attack(0).Details + "\n" +
                                                           results.Attack(32).Details);
    EXPECT_EQ(results.Attack(32).Details, "32 armies destroyed: 1 of 200 battles, 1 production turn lost\n"
                                          "exactly 32: 0.5%\nat most 32: 100.0%\nat least 32: 0.5%");
    BattleResults(200, 4) = 33;
    EXPECT_THAT(load, Raises(9, {"frmMoreResults::ConvertResults", "frmHero::Form_Load"}));
    results.NumBattles = 0;
    EXPECT_THAT(load, Raises(11, {"frmHero::CalculateResultPercent", "frmHero::Form_Load"}));
}

TEST(MoreResults, TellHowOftenExactlyAtMostAndAtLeastSoManyFell) {
    Results results{1000, {{3, {1, 0, 0, 2, 5}}, {564, {1, 2, 7, 2, 5}}, {433, {0, 3, 9, 1, 4}}}};
    results.Window.Form_Load();
    EXPECT_EQ(results.Attack(2).Details, "2 armies destroyed: 564 of 1000 battles, 7 production turns lost\n"
                                         "exactly 2: 56.4%\nat most 2: 56.7%\nat least 2: 99.7%");
    EXPECT_EQ(results.Attack(0).Figure + " " + results.Attack(1).Figure + " " + results.Attack(2).Figure,
              "<1  56");
    EXPECT_TRUE(results.Attack(1).IsEmpty);
    EXPECT_FALSE(results.Attack(0).IsEmpty);
    const ChartRemarks& attack = results.Window.mscAttMore.Remarks;
    const ChartRemarks& defend = results.Window.mscDefMore.Remarks;
    EXPECT_EQ(attack.MeanText, "mean 2.4");
    EXPECT_EQ(attack.Sentence, "When the attacker wins (567 of 1000): 2.0 armies, 7.0 turns lost");
    EXPECT_EQ(defend.Sentence, "When the defender wins (433 of 1000): 1.0 armies, 4.0 turns lost");
    EXPECT_EQ(attack.Highest, (std::array{57.0, 9.0}));
    EXPECT_EQ(defend.Highest, attack.Highest);
    EXPECT_EQ(results.Window.lblScales.Caption.Get(), "");
    EXPECT_EQ(attack.Reachable, 33) << "nothing is known about the lists";
    EXPECT_THAT(results.Window.mscAttMore.Numbers(),
                testing::EndsWith("\n32\t0\t0\t0\t\nNumber of Battles\t1000\n"
                                  "Mean Number of Armies Destroyed\t2.427\n" +
                                  attack.Sentence + "\n"));
}

TEST(MoreResults, ShowWhatIsRareOrUnlikeTheOtherSide) {
    Results results{1000, {{2, {1, 21, 28, 1, 5}}, {998, {1, 0, 0, 1, 5}}}};
    const ChartRemarks& attack = results.Window.mscAttMore.Remarks;
    const ChartRemarks& defend = results.Window.mscDefMore.Remarks;
    results.Window.Form_Load();
    EXPECT_EQ(attack.MeanText, "mean 0.042");
    EXPECT_EQ(results.Attack(0).Figure + results.Attack(21).Figure + results.Defend(1).Figure, ">99<1100");
    EXPECT_THAT(results.Attack(21).Details, testing::EndsWith("exactly 21: 0.2%\nat most 21: 100.0%\n"
                                                              "at least 21: 0.2%"));
    EXPECT_EQ(attack.Sentence, "When the attacker wins (1000 of 1000): 0.042 armies, 0.056 turns lost");
    EXPECT_EQ(attack.Highest, (std::array{100.0, 28.0}));
    EXPECT_EQ(defend.Highest, (std::array{100.0, 5.0})) << "28 turns are more than three times 5";
    EXPECT_EQ(results.Window.lblScales.Caption.Get(),
              "The charts have different scales for Production Turns Lost");
}

TEST(MoreResults, TellWhatAnAbortedRunHasNotFought) {
    Results results{1000, {{200, {0, 1, 3, 0, 0}}, {100, {1, 0, 0, 2, 6}}}};
    results.Window.Form_Load();
    EXPECT_EQ(results.Attack(0).Values[0], 80) << "charted by the rule";
    EXPECT_EQ(results.Attack(0).Details,
              "0 armies destroyed: 100 of 300 battles, 0 production turns lost\n"
              "exactly 0: 33.3%\nat most 0: 33.3%\nat least 0: 100.0%\n"
              "not fought: 700 of 1000 battles, charted as battles without losses");
    EXPECT_THAT(results.Attack(1).Details, testing::EndsWith("at most 1: 100.0%\nat least 1: 66.7%\n"
                                                             "not fought: 700 of 1000 battles"));
    const ChartRemarks& attack = results.Window.mscAttMore.Remarks;
    EXPECT_EQ(attack.Sentence, "300 of 1000 battles were fought. "
                               "When the attacker wins (100 of 300): 0.0 armies, 0.0 turns lost");
    EXPECT_EQ(attack.MeanText, "mean 0.7");
    EXPECT_THAT(results.Window.mscDefMore.Numbers(),
                testing::HasSubstr("Number of Battles\t1000\nBattles Fought\t300\nMean"));

    Results none{10, {}};
    none.Window.Form_Load();
    EXPECT_EQ(none.Window.mscDefMore.Remarks.Get().Sentence,
              "0 of 10 battles were fought. The defender won no battle");
    EXPECT_FALSE(none.Window.mscDefMore.Remarks.Get().Mean);
    EXPECT_THAT(none.Defend(0).Details, testing::HasSubstr("0 of 0 battles, 0 production turns lost\n"
                                                           "exactly 0: no battle\n"));
}

TEST(MoreResults, TellWhatIsKnownBesideTheRun) {
    Results results{10, {{10, {1, 1, 2, 1, 2}}}};
    frmMoreResults::Background known{{3, 1}, PerSide<LossOdds>{}};
    LossOdds& odds = known.ExactLosses->Attacker;
    odds[0] = 0.0004;
    odds[1] = 0.9;
    odds[2] = 0.0006;
    odds[3] = 0.099;
    known.ExactLosses->Defender[1] = 1.0;
    results.Window.RunBackground = known;
    results.Window.Form_Load();
    EXPECT_FALSE(results.Attack(0).HasExactMark());
    EXPECT_TRUE(results.Attack(2).HasExactMark());
    EXPECT_THAT(results.Window.mscAttMore.Numbers(),
                testing::StartsWith("Number of Armies Destroyed\t% Chance\tProduction Turns Lost\tBattles\t"
                                    "Exact % Chance\n0\t0\t0\t0\t0.040000\n1\t100\t2\t10\t90.000000\n"));
    EXPECT_THAT(results.Attack(1).Details, testing::HasSubstr("exactly 1: 100.0% (exact odds 90.0%)\n"
                                                              "at most 1: 100.0% (exact odds 90.0%)\n"
                                                              "at least 1: 100.0% (exact odds > 99.9%)"));
    EXPECT_EQ(results.Window.mscAttMore.Remarks.Get().WhyUnreachable, "only 3 armies were in the list");
    EXPECT_EQ(results.Window.mscDefMore.Remarks.Get().WhyUnreachable, "only 1 army was in the list");
    EXPECT_EQ(results.Window.mscDefMore.Remarks.Get().Reachable, 2);
    EXPECT_EQ(results.Defend(2).Details, "2 armies destroyed: only 1 army was in the list");

    EXPECT_EQ(results.Window.lblNewerRun.Caption.Get(), "");
    results.Window.RunFinished();
    EXPECT_EQ(results.Window.lblNewerRun.Caption.Get(), "A newer run exists: press More Results to see it");
    results.Window.RunBackground.reset();
    results.Window.Form_Load();
    EXPECT_EQ(results.Window.lblNewerRun.Caption.Get(), "");
    EXPECT_FALSE(results.Attack(1).Exact);
    EXPECT_EQ(results.Window.mscAttMore.Remarks.Get().WhyUnreachable, "");
}

} // namespace
} // namespace vorhaven::test
