// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/State.h"
#include "tests/support/Errors.h"
#include "tests/support/Player.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

TEST(Setup, StartsWithItsDefaultsAndTheUnitsOfTheCatalogue) {
    Game game;
    const auto items = [](const ComboBox& box) {
        std::string texts;
        for (const ListEntry& item : box.Items())
            texts += item.Text + "=" + ToText(item.Datum) + " ";
        return texts;
    };
    EXPECT_EQ(items(game.Pad.cboTerrain), "city=0 ice=0 hills=0 marsh=0 field=0 woods=0 ");
    EXPECT_EQ(items(game.Pad.cboCityLevel), "Village (+1)=1 Castle (+2)=2 Citadel (+3)=3 ");
    for (const Side side : BothSides)
        EXPECT_EQ(items(game.Pad.cboArmies[side]),
                  "Midges=0 Giants=1 Stalkers=2 Ghouls=3 Colossi=4 Captain=5 Witch=6 None=7 ");
    EXPECT_EQ(game.Pad.Terrain(), "field");
    EXPECT_EQ(game.Pad.txtNumSimulations.Text() + game.Pad.txtCombatDice.Text(), "100020");
    EXPECT_EQ(game.Pad.NumBattles() + game.Pad.CombatDice, 1020);
    EXPECT_FALSE(game.Pad.sschkViewStats.Checked || game.Pad.pbBattleProgress.Visible);
    EXPECT_FALSE(game.Pad.sscAbort.Enabled || game.Pad.sscMoreResults.Enabled);
    EXPECT_EQ(game.Pad.cboArmies[Defender].Text() + game.Pad.cboCityLevel.Text(), "");
}

TEST(Setup, NumbersThatAreNoneAreErrorsOfTheirFields) {
    Game game;
    TextBox& field = game.Pad.txtNumSimulations;
    game.Pad.MoveFocus(&field);
    field.SetText("2147483648");
    EXPECT_THAT([&] { game.Pad.MoveFocus(nullptr); },
                Raises(6, {"frmBrawlpad::txtNumSimulations_LostFocus"}));
    game.Pad.txtCombatDice.SetText("300");
    EXPECT_EQ(game.Pad.CombatDice, 300) << "typing is free";
    EXPECT_THAT([&] { game.Pad.txtCombatDice.SetText(""); },
                Raises(13, {"frmBrawlpad::txtCombatDice_Change"}));
    game.Pad.txtDup[Defender].SetText("two");
    EXPECT_THAT([&] { game.Pad.sscDup[Defender].Press(); }, Raises(13, {"frmBrawlpad::sscDup_Click"}));
}

TEST(Run, HandsLinesConditionsAndGroundToTheEngineAndHeroesToTheirEditor) {
    Game game;
    game.Add(Attacker, {Nobody, Captain, Midges, Witch, Midges, Midges, Midges, Midges, Ghouls});
    game.Add(Defender, {Ghouls, Captain});
    game.Mark(Attacker, {3}, {1, 5, 7});
    game.Pad.mnuPopupItemMedals[4].Choose();
    game.Mark(Attacker, {7}, {3, 6});
    game.Mark(Defender, {0}, {2});
    game.Pad.cboTerrain.Choose(0);
    game.Pad.cboCityLevel.Choose(2);
    game.Pad.sschkViewStats.Toggle();
    game.Pad.txtNumSimulations.SetText("10");
    std::string edited, shown;
    game.Toolkit.OnHero = [&](frmHero& window) {
        const CArmy& hero = *window.Hero;
        edited += window.Whereabouts + ": " + hero.Name.Text() + " " +
                  Joined({hero.Turns, hero.PowerType, hero.PowerValue}) + (hero.IsFlying ? " F\n" : "\n");
        EXPECT_FALSE(game.Pad.cmdAttack.Enabled || game.Pad.sscExit.Enabled);
    };
    game.Toolkit.OnStats = [&](frmStats& window) {
        for (const Side side : BothSides)
            for (const Long row : side == Attacker ? std::vector<Long>{1, 3, 7, 8} : std::vector<Long>{1, 2})
                for (Long column = 0; column < 12; ++column)
                    shown += window.msfgStackStats[side].Text(row, column) + (column == 11 ? "\n" : ",");
        shown += window.Panels.Defender.Raw()[2].Figure.Caption.Get();
    };
    game.Pad.cmdAttack.Press();
    EXPECT_EQ(edited, "Attacking Armies, line 2: Captain 0 1 1\n"
                      "Attacking Armies, line 4: Witch 0 1 1 F\n"
                      "Defending Armies, line 2: Captain 0 1 1\n");
    EXPECT_EQ(shown, "Captain,6,6,3,field,1,power 1,1,False,False,False,0\n"
                     "Witch,5,6,2,woods,2,power 1,1,True,False,False,4\n"
                     "Midges,1,1,2,,0,power 0,0,False,True,False,0\n"
                     ",,,,,,,,,,,\n" // line 8 fights in the second stack
                     "Ghouls,5,8,1,field,2,power 6,2,False,False,True,0\n"
                     "Captain,6,9,3,field,1,power 1,1,False,False,False,0\n3");
    for (const Long row : {Midges, Giants, Ghouls})
        EXPECT_EQ(Units{game.Catalogue}.CheckIfUndead(row), row == Ghouls);
}

TEST(Run, IsOfTheSetUpAtThePressOfAttackWhateverChangesInAHeroEditor) {
    Game game;
    frmBrawlpad& pad = game.Pad;
    game.Add(Attacker, {Captain, Witch});
    game.Add(Defender, {Ghouls});
    pad.txtNumSimulations.SetText("100");
    pad.sschkViewStats.Toggle();
    pad.Settle();
    game.Toolkit.OnHero = [&](frmHero& editor) {
        if (editor.HeroName == "Captain") {
            pad.DeleteArmyFromList(Attacker, 1);
            game.Add(Attacker, {Midges, Midges, Midges});
            game.Mark(Defender, {0}, {2});
            pad.txtCombatDice.SetText("100");
            pad.txtNumSimulations.SetText("10");
            pad.cboTerrain.Choose(0);
            pad.cboCityLevel.Choose(2);
        }
        editor.cmdProceed.Press();
    };
    std::string shown;
    game.Toolkit.OnStats = [&](frmStats& window) {
        for (const auto& [side, row] : {std::pair{Attacker, 1}, {Attacker, 2}, {Defender, 1}})
            shown +=
                window.msfgStackStats[side].Text(row, 0) + window.msfgStackStats[side].Text(row, 2) + " ";
    };
    pad.cmdAttack.Press();
    EXPECT_EQ(shown, "Captain8 Witch5 Ghouls9 ") << "of the field, with one leader, and without a city";
    EXPECT_EQ(MBattleCalc::BattleResults.RowCount() + MBattleCalc::CombatDice, 120);
    std::optional<double> exactWins;
    game.Toolkit.OnMoreResults = [&](frmMoreResults& window) {
        EXPECT_EQ(window.mscAttMore.Remarks.Get().Reachable, 3);
        exactWins = window.mscDefMore.Rows()[1].Exact;
    };
    pad.sscMoreResults.Press();
    pad.Settle();
    EXPECT_EQ(pad.ResultsFrame.lblOutOfDate.Caption.Get(), "before the latest changes");
    pad.Undo();
    EXPECT_EQ(pad.ResultsFrame.lblOutOfDate.Caption.Get(), "");
    EXPECT_EQ(pad.OddsFrame.lblChance.Attacker.Caption.Get(), ToFixedText(exactWins.value(), 1) + "%");
}

TEST(Run, IsLimitedToTheBattlesWhoseLossesCanBeAddedUp) {
    using Lines = std::vector<Long>;
    Lines heroAndNobody(31, Nobody);
    heroAndNobody.push_back(Captain);
    Lines behindNobody(16, Nobody);
    behindNobody[0] = Midges;
    behindNobody.resize(32, Colossi);
    // clang-format off
    const struct { Lines Attackers, Defenders; const char *Typed, *Becomes; } cases[]{
        // 2^31 / 32, of armies: a hero costs no turns
        {Lines(32, Captain), {Midges}, "99999999", "67108860"},
        {{Midges}, Lines(32, Colossi), "99999990", "7456540"},        // 2^31 / (32 * 9)
        {Lines(32, Colossi), Lines(32, Midges), "7456540", "7456540"},
        {heroAndNobody, {Colossi, Colossi}, "99999990", "99999990"},
        {behindNobody, {Midges}, "99999990", "99999990"},             // stacks behind an empty one do not fight
        {Lines(32, Colossi), {}, "99999990", "99999990"},             // which Attack refuses
        {Lines(32, Colossi), {Midges}, "", ""},
    };
    // clang-format on
    for (const auto& c : cases) {
        Player game;
        game.Add(Attacker, c.Attackers);
        game.Add(Defender, c.Defenders);
        game.Pad.txtNumSimulations.SetText(c.Typed);
        game.Pad.LimitNumBattles();
        EXPECT_EQ(game.Pad.txtNumSimulations.Text(), c.Becomes);
        const std::string lowered =
            std::string("Lowered to ") + c.Becomes + " battles, the most whose losses can be added up";
        EXPECT_EQ(game.Notice, c.Typed == std::string(c.Becomes) ? "" : lowered);
    }
}

TEST(Lists, TellWhatALineReallyHasAndHowFullTheyAre) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Attacker, {Midges});
    player.Mark(Attacker, 0, 1);
    pad.mnuPopupItemMedals[2].Choose();
    player.Do([&] { pad.sscDup[Attacker].Press(); });
    const ListBox& list = pad.lstArmies[Attacker];
    EXPECT_EQ(list.Note(0), "blessed, 2 medals");
    EXPECT_EQ(list.Entry(1).Text + list.Note(1), "Midges *") << "a copy has the mark alone";
    EXPECT_EQ(Player::Text(pad.lblCount[Attacker]), "2 of 32");
    EXPECT_EQ(std::exchange(player.Notice, ""),
              "A duplicate has the mark of its line, but none of its conditions");
    pad.txtDup[Attacker].SetText("29");
    pad.lstArmies[Attacker].Select({1, {1}});
    player.Do([&] { pad.sscDup[Attacker].Press(); });
    EXPECT_EQ(Player::Text(pad.lblCount[Attacker]), "31 of 32");
    player.Pick(Attacker, {Midges, Midges});
    EXPECT_EQ(Player::Text(pad.lblCount[Attacker]), "32 of 32, full");
    EXPECT_EQ(player.Notice, "") << "the count says enough, and line 2 has no conditions to miss";
    player.Pick(Defender, {Midges});
    player.Do([&] { pad.sscClearList[Defender].Press(); });
    EXPECT_EQ(list.Entry(0).Text + list.Note(0), "Midges *");
    EXPECT_EQ(std::exchange(player.Notice, ""),
              "Clear List has also removed the conditions of the attacking armies");
    player.Do([&] { pad.sscClearList[Attacker].Press(); });
    EXPECT_EQ(player.Notice, "");
}

} // namespace
} // namespace vorhaven::test
