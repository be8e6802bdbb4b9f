// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FakeToolkit.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

/// The main window, its user, and what the user sees.
struct Desk : Game {
    /// A list: ">" at the current line, brackets around selected ones, "+" at those that have a condition.
    std::string Look(std::size_t side) {
        const ListBox& list = Pad.lstArmies[side];
        std::string look;
        for (Long line = 0; line < list.ListCount(); ++line)
            look += std::string(line == list.ListIndex(), '>') + std::string(list.Selected(line), '[') +
                    list.Entry(line).Text + (Pad.Health(Side{side})(line + 1) == HealthRow{} ? "" : "+") +
                    (list.Selected(line) ? "] " : " ");
        return look;
    }
    /// The enabled buttons of Attack, aBort, eXit and More results, and the quick results.
    std::string Results() {
        std::string seen = std::string(Pad.cmdAttack.Enabled, 'A') + std::string(Pad.sscAbort.Enabled, 'B') +
                           std::string(Pad.sscExit.Enabled, 'X') +
                           std::string(Pad.sscMoreResults.Enabled, 'M');
        seen += " " + Pad.lblAttWinPercent.Caption.Get();
        for (std::size_t column = 2; column <= 5; ++column)
            seen += " " + Pad.lblAvg[column].Caption.Get();
        return seen;
    }
};

TEST(Setup, StartsWithItsDefaults) {
    Desk desk;
    EXPECT_EQ(desk.Pad.Terrain() + desk.Results(), "fieldAX     ");
    EXPECT_EQ(desk.Pad.txtNumSimulations.Text() + desk.Pad.txtCombatDice.Text(), "100020");
    EXPECT_EQ(desk.Pad.NumBattles() + desk.Pad.CombatDice, 1020);
    EXPECT_FALSE(desk.Pad.sschkViewStats.Checked || desk.Pad.pbBattleProgress.Visible);
    EXPECT_EQ(desk.Pad.cboArmies[1].Text() + desk.Pad.cboCityLevel.Text(), "");
}

TEST(Setup, NumbersThatAreNoneAreErrorsOfTheirFields) {
    Desk desk;
    TextBox& field = desk.Pad.txtNumSimulations;
    desk.Pad.MoveFocus(&field);
    field.SetText("2147483648");
    EXPECT_THAT([&] { desk.Pad.MoveFocus(nullptr); },
                Raises(6, {"frmBrawlpad::txtNumSimulations_LostFocus"}));
    desk.Pad.txtCombatDice.SetText("300");
    EXPECT_EQ(desk.Pad.CombatDice, 300) << "typing is free";
    EXPECT_THAT([&] { desk.Pad.txtCombatDice.SetText(""); },
                Raises(13, {"frmBrawlpad::txtCombatDice_Change"}));
    desk.Pad.txtDup[1].SetText("two");
    EXPECT_THAT([&] { desk.Pad.sscDup[1].Press(); }, Raises(13, {"frmBrawlpad::sscDup_Click"}));
}

TEST(Run, HandsLinesConditionsAndGroundToTheEngineAndHeroesToTheirEditor) {
    Desk desk;
    desk.Add(0, {Nobody, Captain, Midges, Witch, Midges, Midges, Midges, Midges, Ghouls});
    desk.Add(1, {Ghouls, Captain});
    desk.Mark(0, {3}, {1, 5, 6, 7});
    desk.Pad.mnuPopupItemMedals[4].Choose();
    desk.Mark(0, {7}, {3});
    desk.Mark(1, {0}, {2});
    desk.Pad.cboTerrain.Choose(0);
    desk.Pad.cboCityLevel.Choose(2);
    desk.Pad.sschkViewStats.Toggle();
    desk.Pad.txtNumSimulations.SetText("10");
    std::string edited, shown;
    desk.Toolkit.OnHero = [&](frmHero& window) {
        const CArmy& hero = *window.Hero;
        edited += window.Whereabouts + desk.Results() + hero.Name.Text() +
                  Joined({hero.Turns, hero.PowerType, hero.PowerValue}) + (hero.IsFlying ? "F\n" : "\n") +
                  desk.Look(window.Whereabouts[0] == 'A' ? 0 : 1) + "\n";
    };
    desk.Toolkit.OnStats = [&](frmStats& window) {
        for (const auto& [grid, row] : {std::pair{0U, 1}, {0U, 3}, {0U, 7}, {0U, 8}, {1U, 1}, {1U, 2}})
            for (Long column = 0; column < 12; ++column)
                shown += window.msfgStackStats[grid].Text(row, column) + (column == 11 ? "\n" : ",");
        shown += window.Panels[1].Raw[2].Figure.Caption.Get();
    };
    desk.Pad.cmdAttack.Press();
    EXPECT_EQ(desk.Results().substr(0, 3), "AXM");
    EXPECT_EQ(edited, "Attacking Armies, line 2     Captain0 1 1\n"
                      "None >[Captain] Midges Witch *+ Midges Midges Midges Midges *+ Ghouls \n"
                      "Attacking Armies, line 4     Witch0 1 1F\n"
                      "None Captain Midges >[Witch *+] Midges Midges Midges Midges *+ Ghouls \n"
                      "Defending Armies, line 2     Captain0 1 1\nGhouls *+ >[Captain] \n");
    EXPECT_EQ(shown, "Captain,6,6,3,field,1,power 1,1,False,False,False,0\n"
                     "Witch,5,6,3,woods,2,power 1,1,True,False,False,4\n"
                     "Midges,1,1,1,,0,power 0,0,False,True,False,0\n"
                     ",,,,,,,,,,,\n" // line 8 fights in the second stack
                     "Ghouls,5,8,1,field,2,power 6,2,False,False,True,0\n"
                     "Captain,6,9,3,field,1,power 1,1,False,False,False,0\n3");
    for (const Long row : {Midges, Giants, Ghouls})
        EXPECT_EQ(desk.Pad.CheckIfUndead(row), row == Ghouls);
}

TEST(Run, ErrorOfTheAssemblyTellsItsWay) {
    Desk desk;
    desk.Add(0, {Midges, Colossi});
    desk.Add(1, {Midges});
    desk.Pad.cboTerrain.Choose(3);
    EXPECT_THAT([&] { desk.Pad.cmdAttack.Press(); },
                Raises(6, {"CAttackArmies::InterpretCB", "CAttackArmies::Add", "frmBrawlpad::AddAttacker",
                           "frmBrawlpad::FillArmyCollections", "frmBrawlpad::cmdAttack_Click"}));
}

} // namespace
} // namespace vorhaven::test
