#include "tests/FakeWindows.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

using MBattleCalc::BattleResults;

/// The editor's fields in the order in which they are stored, and a hero's numbers behind them from the third
/// on.
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
        Window.Unloaded = [this] { Seen += "closed "; };
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
        std::string record = ToText(Army.StartStrength) + " " + ToText(Army.Hits) + " ";
        for (const auto number : numbers)
            record += ToText(Army.*number) + " ";
        return record;
    }
    /// Types into a field and leaves the editor.
    std::string Store(HeroField frmHero::*field, const std::string& text) {
        (Window.*field).txt.SetText(text);
        Window.cmdProceed.Press();
        return Record();
    }

    CArmy Army;
    FakeWindows Toolkit;
    frmHero Window{Toolkit};
    std::string Seen;
};

TEST(HeroEditor, BeginsWithTheRecordAndLeadershipOneAndStoresWhatIsTyped) {
    Editor editor;
    EXPECT_EQ(editor.Screen(), "6 3 1 43 44 45 46 47 48 49 50 51 52 53 ");
    EXPECT_EQ(editor.Window.Missle.lbl.Caption.Get(), "Missle:");
    editor.Window.Fear.txt.SetText("9");
    editor.Window.Unload();
    EXPECT_EQ(editor.Record(), "6 3 42 43 44 45 46 47 48 49 50 51 52 53 ") << "closed by other means";
    EXPECT_EQ(Editor{}.Store(&frmHero::Fear, "46"), "6 3 1 43 44 45 46 47 48 49 50 51 52 53 ");
    EXPECT_EQ(Editor{}.Store(&frmHero::Strength, "300").substr(0, 6), "255 3 ");
    for (const auto& [typed, hits] :
         std::map<std::string, char>{{"2.5", '2'}, {"3.5", '4'}, {"7", '4'}, {"-1", '1'}})
        EXPECT_EQ(Editor{}.Store(&frmHero::Hits, typed)[2], hits) << typed;
    for (std::size_t i = 2; i < fields.size(); ++i) {
        Editor typed;
        typed.Store(fields[i], "-77.5");
        EXPECT_EQ(typed.Army.*numbers[i - 2], -78) << i;
        EXPECT_EQ(typed.Seen, "closed events ");
    }
}

TEST(HeroEditor, TextThatIsNoNumberStoresTheFieldsBeforeIt) {
    for (std::int32_t bad = 0; bad < 14; ++bad) {
        Editor editor;
        std::string expected;
        for (std::int32_t i = 0; i < 14; ++i) {
            (editor.Window.*fields[static_cast<std::size_t>(i)]).txt.SetText("2");
            expected += (i < bad ? "2" : std::to_string(i == 0 ? 6 : i == 1 ? 3 : i + 40)) + " ";
        }
        EXPECT_THAT([&] { editor.Store(fields[static_cast<std::size_t>(bad)], bad == 5 ? "" : "2x"); },
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

/// Percentage and turns that a chart has for some numbers of losses.
std::string Charted(const Chart& chart, const std::vector<std::size_t>& losses) {
    std::string rows;
    for (const std::size_t row : losses)
        rows += chart.Rows().at(row).Label + ":" + ToText(chart.Rows()[row].Values[0]) + "%" +
                ToText(chart.Rows()[row].Values[1]) + " ";
    return rows;
}

TEST(MoreResults, ChartsHowOftenEachLossCameAndWhatItLastCost) {
    FakeWindows toolkit;
    Long numBattles = 1000;
    frmMoreResults window{toolkit, [&] { return numBattles; }};
    BattleResults.Redimension(1000);
    for (Long battle = 1; battle <= 1000; battle += 1) {
        BattleResults(battle, 2) = battle <= 333 ? 2 : battle <= 667 ? 3 : 4;
        BattleResults(battle, 3) = battle;
    }
    window.Extent = {400, 300};
    window.Form_Load();
    EXPECT_EQ(window.Left * 1000 + window.Top, 300250);
    EXPECT_EQ(Charted(window.mscAttMore, {1, 2, 3, 4, 32}), "1:0%0 2:33%333 3:33%667 4:33%1000 32:0%0 ");
    EXPECT_EQ(Charted(window.mscDefMore, {0}), "0:100%0 ");
    EXPECT_EQ(window.mscAttMore.Rows().size(), 33);

    numBattles = 200;
    BattleResults.Redimension(200);
    BattleResults(7, 2) = 32;
    BattleResults(7, 3) = 1;
    for (const Long battle : {3, 100, 200}) {
        BattleResults(battle, 4) = 5;
        BattleResults(battle, 5) = battle;
    }
    window.Form_Load();
    EXPECT_EQ(Charted(window.mscAttMore, {0, 2, 32}), "0:100%0 2:0%0 32:0%1 ")
        << "halves go to the even number";
    EXPECT_EQ(Charted(window.mscDefMore, {0, 4, 5}), "0:98%0 4:0%0 5:2%200 ");
    EXPECT_THAT(window.mscDefMore.Numbers(),
                testing::StartsWith(
                    "Number of Armies Destroyed\t% Chance\tProduction Turns Lost\n0\t98\t0\n1\t0\t0\n"));
    EXPECT_EQ(window.mscAttMore.Description(),
              "Distribution of Number of Attacking Armies Destroyed\n"
              "0 armies destroyed: 199 of 200 battles, 100 %, 0 production turns lost\n"
              "32 armies destroyed: 1 of 200 battles, 0 %, 1 production turn lost");

    const auto load = [&] { window.Form_Load(); };
    BattleResults(200, 4) = 33;
    EXPECT_THAT(load, Raises(9, {"frmMoreResults::ConvertResults", "frmHero::Form_Load"}));
    BattleResults.Redimension(199);
    EXPECT_THAT(load, Raises(9, {"frmMoreResults::ConvertResults", "frmHero::Form_Load"}));
    numBattles = 0;
    EXPECT_THAT(load, Raises(11, {"frmHero::CalculateResultPercent", "frmHero::Form_Load"}));
}

TEST(Stats, ShowTheArmiesAndTheRawAdjustedAndTotalValues) {
    const SmallCatalogue catalogue;
    FakeWindows toolkit;
    frmStats window{toolkit, catalogue};
    CStackAtt attack, defend;
    for (int count = 0; count < 35; ++count)
        (count < 3 ? attack : defend).Add(CArmy{}, "").TotalStrength = 7;
    const std::array values{&CStackAtt::StackLeadership, &CStackAtt::StackMorale, &CStackAtt::StackFortify,
                            &CStackAtt::StackChaos,      &CStackAtt::StackFear,   &CStackAtt::StackSiege};
    const std::array<std::array<Long, 6>, 2> own{{{9, 4, 0, -3, 1, 2}, {1, 2, 3, 7, 6, -8}}};
    for (std::size_t i = 0; i < values.size(); ++i) {
        attack.*values[i] = own[0][i];
        defend.*values[i] = own[1][i];
    }
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
    EXPECT_EQ(seen, "9 4 0 -3 1 2 2 -1 5 -2\n1 2 3 7 6 -8 4 1 1 4\n");
    const Grid& grid = window.msfgStackStats[0];
    EXPECT_EQ(grid.Text(3, 2) + grid.Text(4, 2) + window.msfgStackStats[1].Text(32, 2), "77");
    EXPECT_TRUE(grid.IsEmphasised(3, 2) && !grid.IsEmphasised(4, 2) && !grid.IsEmphasised(3, 1));
    while (attack.Count() < 9)
        attack.Add(CArmy{}, "");
    EXPECT_THAT([&] { window.ShowStats(attack, defend, [] {}); }, Raises(9, {"MBattleCalc::ShowStats"}));

    std::string widths;
    for (const Grid& each : window.msfgStackStats)
        for (const Grid::Column& column : each.Columns())
            widths += column.Header.substr(0, 4) + ToText(column.Width) + " ";
    EXPECT_EQ(widths, "Name30 Init11 Tot 10 Hits10 CB N9 CB V9 Powe12 Powe11 Bles9 Pois10 Dise10 Meda9 "
                      "Name28 Init10 Tot 9 Hits9 CB N9 CB V9 Powe12 Powe11 Bles9 Pois10 Dise10 Meda9 ");
    EXPECT_EQ(window.msfgStackStats[1].ToolTip, "Dsiplays information about defending armies");
    EXPECT_EQ(window.Panels[0].StackBonus.Figure.ToolTip,
              "The final stack bonus, ajusted into the range of -3 to +5, and applied to the stregth of each "
              "army in the stack");
}

TEST(Stats, OpenOnceInARunAndFilterOnceWhereTheEngineFiltersTwice) {
    Game game;
    game.Add(0, {Captain});
    game.Add(1, {Witch});
    int opened = 0;
    game.Toolkit.OnHero = [&](frmHero& window) {
        window.Chaos.txt.SetText(window.lblName.Caption.Get() == "Witch" ? "7" : "0");
        window.Leadership.txt.SetText(window.lblName.Caption.Get() == "Witch" ? "1" : "9");
        window.cmdProceed.Press();
    };
    game.Toolkit.OnStats = [&](frmStats& window) {
        ++opened;
        const StackPanel& panel = window.Panels[0];
        EXPECT_EQ(panel.Raw[0].Figure.Caption.Get() + panel.Adjusted[0].Figure.Caption.Get() +
                      panel.StackBonus.Figure.Caption.Get(),
                  "920");
        EXPECT_EQ(window.Panels[1].StackBonus.Figure.Caption.Get(), "1");
    };
    game.Pad.cmdAttack.Press();
    EXPECT_EQ(opened, 0) << "nobody asked";
    game.Pad.sschkViewStats.Toggle();
    game.Pad.cmdAttack.Press();
    EXPECT_EQ(opened, 1);
    game.Toolkit.OnMoreResults = [&](frmMoreResults& window) {
        EXPECT_TRUE(game.Toolkit.Busy);
        const auto& rows = window.mscAttMore.Rows();
        EXPECT_NEAR((rows[0].Values[0] + rows[1].Values[0]).Value(), 100, 1);
    };
    game.Pad.sscMoreResults.Press();
    EXPECT_FALSE(game.Toolkit.Busy);
}

} // namespace
} // namespace vorhaven::test
