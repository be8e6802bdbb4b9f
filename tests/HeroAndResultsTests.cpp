// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FakeToolkit.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

using MBattleCalc::BattleResults;

/// The editor's fields in the order in which they are stored, and a hero's numbers from the third one on.
constexpr std::array fields{&frmHero::Strength,      &frmHero::Hits,   &frmHero::Leadership, &frmHero::Morale,
                            &frmHero::Fortification, &frmHero::Chaos,  &frmHero::Fear,       &frmHero::Siege,
                            &frmHero::Assass,        &frmHero::Missle, &frmHero::Curse,      &frmHero::Acid,
                            &frmHero::Lightning,     &frmHero::Trample};
constexpr std::array numbers{&CArmy::Leadership, &CArmy::Morale, &CArmy::Fortify,   &CArmy::Chaos,
                             &CArmy::Fear,       &CArmy::Siege,  &CArmy::Assass,    &CArmy::Missle,
                             &CArmy::Curse,      &CArmy::Acid,   &CArmy::Lightning, &CArmy::Trample};

/// An editor on a hero of strength 6 with 3 hits, who has 42, 43, ... of everything else.
struct Editor {
    Editor() {
        Army.StartStrength = 6;
        Army.Hits = 3;
        for (std::size_t i = 0; i < numbers.size(); ++i)
            Army.*numbers[i] = static_cast<std::int32_t>(i) + 42;
        Window.Hero = &Army;
        Toolkit.OnEvents = [this] { Seen += "events "; };
        Window.Form_Load();
    }
    std::string Screen() const {
        std::string screen;
        for (const auto field : fields)
            screen += (Window.*field).txt.Text() + " ";
        return screen;
    }
    std::string Record() const {
        std::string record = Joined({Army.StartStrength, Army.Hits}) + " ";
        for (const auto number : numbers)
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
    EXPECT_EQ(editor.Screen(), "6 3 1 43 44 45 46 47 48 49 50 51 52 53 ");
    editor.Window.Fear.txt.SetText("9");
    editor.Window.Unload();
    EXPECT_EQ(editor.Record(), "6 3 42 43 44 45 46 47 48 49 50 51 52 53 ") << "closed by other means";
    editor.Seen.clear();
    editor.Window.cmdProceed.Press();
    EXPECT_EQ(editor.Record(), "6 3 1 43 44 45 9 47 48 49 50 51 52 53 ");
    EXPECT_EQ(editor.Seen, "closed events ");
    for (std::size_t i = 0; i < fields.size(); ++i)
        (editor.Window.*fields[i]).txt.SetText("-7" + std::to_string(i) + ".5");
    editor.Window.cmdProceed.Press();
    EXPECT_EQ(editor.Record(), "1 1 -72 -74 -74 -76 -76 -78 -78 -80 -710 -712 -712 -714 ");
}

TEST(HeroEditor, TextThatIsNoNumberStoresTheFieldsBeforeIt) {
    for (std::size_t bad = 0; bad < fields.size(); ++bad) {
        Editor editor;
        std::string expected;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            (editor.Window.*fields[i]).txt.SetText(i == bad ? bad == 5 ? "" : "2x" : "2");
            expected += (i < bad ? "2" : std::to_string(i == 0 ? 6 : i == 1 ? 3 : i + 40)) + " ";
        }
        EXPECT_THAT([&] { editor.Window.cmdProceed.Press(); },
                    Raises(13, {"frmHero::SendPropsToHero", "frmHero::cmdProceed_Click"}));
        EXPECT_EQ(editor.Record() + editor.Seen, expected);
    }
}

TEST(HeroEditor, ArrowsStepWithinTheirLimits) {
    Editor editor;
    const auto step = [&](Long steps) {
        for (const auto field : fields)
            (editor.Window.*field).upd.Step(steps);
        return editor.Screen();
    };
    EXPECT_EQ(step(1000), "255 4 5 5 5 5 5 5 10 10 10 10 10 3 ");
    EXPECT_EQ(step(-1), "254 3 4 4 4 4 4 4 9 9 9 9 9 2 ");
    EXPECT_EQ(step(-1000), "1 1 1 0 0 0 0 0 0 0 0 0 0 0 ");
}

TEST(HeroEditor, FillsItsFieldsWithTheLastValuesOnDemand) {
    Editor editor;
    EXPECT_FALSE(editor.Window.cmdLastValues.Enabled);
    CArmy last;
    last.StartStrength = 7;
    last.Hits = 2;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        last.*numbers[i] = static_cast<std::int32_t>(i) + 60;
    editor.Window.LastValues = HeroValues::From(last);
    editor.Window.Form_Load();
    EXPECT_EQ(editor.Screen(), "6 3 1 43 44 45 46 47 48 49 50 51 52 53 ") << "not before they are asked for";
    editor.Window.Strength.txt.SetText("x");
    editor.Window.cmdLastValues.Press();
    EXPECT_EQ(editor.Screen(), "7 2 60 61 62 63 64 65 66 67 68 69 70 71 ");
    EXPECT_EQ(editor.Record(), "6 3 42 43 44 45 46 47 48 49 50 51 52 53 ") << "not before Done";
    editor.Window.cmdProceed.Press();
    EXPECT_EQ(editor.Record(), editor.Screen());
    CArmy another;
    HeroValues::From(last).ApplyTo(another);
    EXPECT_EQ(HeroValues::From(another), HeroValues::From(last));
}

/// Percentage and turns that a chart has for some numbers of losses.
std::string Charted(const Chart& chart, const std::vector<std::size_t>& losses) {
    std::string rows;
    for (const std::size_t row : losses)
        rows += chart.Rows().at(row).Label + ":" + ToText(chart.Rows()[row].Values[0]) + "%" +
                ToText(chart.Rows()[row].Values[1]) + " ";
    return rows;
}

TEST(MoreResults, ChartsHowOftenEachLossCameAndWhatItLastCost) {
    FakeToolkit toolkit;
    Long numBattles = 200;
    frmMoreResults window{toolkit, [&] { return numBattles; }};
    BattleResults.Redimension(200);
    BattleResults(7, 2) = 32;
    BattleResults(7, 3) = 1;
    for (const Long battle : {3, 100, 200}) {
        BattleResults(battle, 4) = 5;
        BattleResults(battle, 5) = battle;
    }
    window.Form_Load();
    // Halves of a percent go to the even number.
    EXPECT_EQ(Charted(window.mscAttMore, {0, 2, 32}), "0:100%0 2:0%0 32:0%1 ");
    EXPECT_EQ(Charted(window.mscDefMore, {0, 4, 5}), "0:98%0 4:0%0 5:2%200 ");
    EXPECT_THAT(window.mscDefMore.Numbers(),
                testing::StartsWith(
                    "Number of Armies Destroyed\t% Chance\tProduction Turns Lost\n0\t98\t0\n1\t0\t0\n"));
    EXPECT_EQ(window.mscAttMore.Description(),
              "Distribution of Number of Attacking Armies Destroyed\n"
              "0 armies destroyed: 199 of 200 battles, 0 production turns lost\n"
              "exactly 0: 99.5%\nat most 0: 99.5%\nat least 0: 100.0%\n"
              "32 armies destroyed: 1 of 200 battles, 1 production turn lost\n"
              "exactly 32: 0.5%\nat most 32: 100.0%\nat least 32: 0.5%\n"
              "mean 0.2\nThe attacker won no battle");

    const auto load = [&] { window.Form_Load(); };
    BattleResults(200, 4) = 33;
    EXPECT_THAT(load, Raises(9, {"frmMoreResults::ConvertResults", "frmHero::Form_Load"}));
    numBattles = 0;
    EXPECT_THAT(load, Raises(11, {"frmHero::CalculateResultPercent", "frmHero::Form_Load"}));
}

TEST(Stats, ShowTheArmiesAndTheRawAdjustedAndTotalValues) {
    const SmallCatalogue catalogue;
    FakeToolkit toolkit;
    frmStats window{toolkit, catalogue, "field"};
    CStackAtt attack, defend;
    for (int count = 0; count < 35; ++count)
        (count < 3 ? attack : defend).Add(CArmy{}, "").TotalStrength = 7;
    Give(attack.Item(1), "Leader 9 Morale 7 Fear 1 Siege 2 Chaos 3");
    Give(defend.Item(1), "Leader 1 Morale 2 Fear 6 Siege 8 Chaos 2 Fortify 3");
    attack.CountSelfPowers(CStackAtt::Mode::Attack, 0);
    defend.CountSelfPowers(CStackAtt::Mode::Defend, 0);
    attack.TotalStackBonus = -2;
    defend.TotalStackBonus = 4;
    std::string seen;
    window.ShowStats(attack, defend, [&] {
        for (StackPanel& panel : window.Panels) {
            for (const auto& value : panel.Raw)
                seen += value.Figure.Caption.Get() + " ";
            for (const auto& value : panel.Adjusted)
                seen += value.Figure.Caption.Get() + " ";
            seen += panel.StackBonus.Figure.Caption.Get() + "\n";
        }
    });
    // The engine limits a value before it takes the enemy's off, too; the window only afterwards.
    EXPECT_EQ(seen, "9 7 0 3 1 2 5 1 -1 -2\n1 2 3 2 6 8 -1 1 1 4\n");
    const Grid& grid = window.msfgStackStats[0];
    EXPECT_EQ(grid.Text(3, 2) + grid.Text(4, 2) + window.msfgStackStats[1].Text(32, 2), "77");
    EXPECT_TRUE(grid.IsEmphasised(3, 2) && !grid.IsEmphasised(4, 2) && !grid.IsEmphasised(3, 1));
    EXPECT_TRUE(grid.IsQuiet(1, 9) && !grid.IsQuiet(1, 2));
    EXPECT_EQ(grid.LastFilledRow() + window.msfgStackStats[1].LastFilledRow(), 3 + 32);
    EXPECT_EQ(window.lblStrength[1].Caption.Get(), "Select an army to see how its Tot Str came about");
    EXPECT_THAT(
        grid.Numbers(),
        testing::AllOf(
            testing::StartsWith(
                "Name\tInit Str\tTot Str\tHits\tCB Name\tCB Val\tPower Name\tPower Val\tBlessed\tPoisoned\tDiseased\tMedals\n\t1\t7\t1\t"),
            testing::EndsWith("False\tFalse\tFalse\t0\n")));
    while (attack.Count() < 9)
        attack.Add(CArmy{}, "");
    EXPECT_THAT([&] { window.ShowStats(attack, defend, [] {}); }, Raises(9, {"MBattleCalc::ShowStats"}));

    // These texts are spelled so.
    EXPECT_EQ(window.msfgStackStats[1].ToolTip, "Dsiplays information about defending armies");
    EXPECT_EQ(window.Panels[0].StackBonus.Figure.ToolTip,
              "The final stack bonus, ajusted into the range of -3 to +5, and applied to the stregth of each "
              "army in the stack");
}

} // namespace
} // namespace vorhaven::test
