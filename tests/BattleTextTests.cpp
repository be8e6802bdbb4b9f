// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/Player.h"
#include "ui/setup/BattleText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace vorhaven::test {
namespace {

TEST(BattleText, ReadsBackAsTheSameBattleWhateverIsSetUp) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    const Units units{player.Catalogue};
    const auto none = SizeOf(units.Entries()) - 1;
    std::mt19937 random{20260101};
    const auto any = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    player.Toolkit.OnHero = [&](frmHero& editor) {
        for (HeroField* field : editor.UnitFields)
            field->upd.Step(any(5));
        editor.cmdProceed.Press();
    };
    for (int round = 0; round < 60; ++round) {
        for (const Side side : BothSides)
            pad.lstArmies[side].Clear();
        pad.RefreshHealthArray();
        for (const Side side : BothSides)
            for (int line = any(33); line >= 0; --line) {
                player.Add(side, {any(none.Value())});
                player.Mark(side, any(line + 1), static_cast<std::size_t>(any(7) + 1));
                pad.mnuPopupItemMedals[static_cast<std::size_t>(any(5))].Choose();
            }
        pad.cboTerrain.Choose(any(6));
        pad.cboCityLevel.Choose(any(3));
        pad.updCombatDice.Step(any(30) - 15);
        if (round % 4 == 0)
            player.Fight();
        pad.Settle();
        const vorhaven::Setup copied = pad.CurrentSetup();
        const std::string text = pad.BattleAsText();
        pad.sscClearList[Attacker].Press();
        pad.sscClearList[Defender].Press();
        pad.cboTerrain.Choose(2);
        pad.updCombatDice.Step(100);
        player.Paste(Attacker, text);
        EXPECT_EQ(player.Toolkit.Message, "");
        EXPECT_TRUE(IsSameBattle(pad.CurrentSetup(), copied, units)) << text;
        EXPECT_EQ(pad.BattleAsText(), text);
    }
}

TEST(BattleText, IsPlainAndTakesWhatAPersonTypes) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Attacker, {Midges});
    player.Paste(Attacker,
                 "defending armies :\r\n - giants * , BLESSED,2 medal\n\n-2 Captain*, strength 9\r\n"
                 "3\tMidges, flying, 1 medals\nTerrain: City\nCity Level: castle\nCombat Dice: 25\n"
                 "Number of Battles: 1239\nQuick Results:\nMidge");
    const std::string text = "Attacking Armies\nMidges\n\nDefending Armies\nGiants, blessed, 2 medals\n"
                             "Captain, strength 9, hits 3, leadership 1\n"
                             "Captain, strength 9, hits 3, leadership 1\n"
                             "Midges, 1 medal, flying\nMidges, 1 medal, flying\nMidges, 1 medal, flying\n\n"
                             "Terrain: city\nCity Level: Castle (+2)\nCombat Dice: 25\n"
                             "Number of Battles: 1230\n";
    EXPECT_TRUE(pad.BattleAsText().starts_with(text)) << pad.BattleAsText();
    player.Paste(Attacker, "\xEF\xBB\xBF"
                           "Attacking Armies\nNumber of\xC2\xA0"
                           "Battles: 7"); // from a mail
    EXPECT_EQ(pad.lstArmies[Attacker].ListCount(), 0) << "a heading without lines empties its list";
    EXPECT_EQ(pad.NumBattles(), 10);
    player.Paste(Attacker, text + "\nexact odds\nMidge");
    EXPECT_TRUE(pad.BattleAsText().starts_with(text + "\nExact Odds\nThe attacker wins "))
        << pad.BattleAsText();
    for (int step = 0; step < 3; ++step)
        pad.Undo();
    EXPECT_EQ(pad.lstArmies[Attacker].ListCount() + pad.lstArmies[Defender].ListCount(), 1);
    pad.lstArmies[Attacker].Select({0, {0}});
    pad.mnuCopy.Choose();
    player.Paste(Defender, "\tMidges\nNone\n");
    EXPECT_EQ(pad.lstArmies[Defender].Entry(1).Text, "None");
    pad.lstArmies[Attacker].Select({});
    pad.mnuCopy.Choose();
    EXPECT_EQ(player.Toolkit.Clipboard, "Midges\n") << "there was nothing else to copy";
    pad.txtNumSimulations.SetText("5");
    player.Paste(Attacker, pad.BattleAsText());
    EXPECT_EQ(player.Toolkit.Message, "") << "a number that is still being typed is left out";
}

TEST(BattleText, TakesUnitsByTheirWholeNamesAndKeepsAnyValueOfAHero) {
    const TableCatalogue guards{
        TableOf({0, 1}, {{0, "Guard, blessed"}, {1, "GUARD"}, {2, "3 Guard"}, {3, "- Guard"}}),
        TableOf({0, 1}, {{0, "Guard"}, {1, "Guard, bl"}})};
    const Units units{guards};
    HeroValues entered;
    entered.Strength = 1;
    entered.Hits = 3;
    entered.Morale = -3;
    const HeroValues all{7, 2, 60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70, -120'000'000}; // "-12e7"
    vorhaven::Setup battle;
    battle.Sides.Attacker = {{0, "Guard, blessed"},
                             {1, "GUARD"},
                             {2, "3 Guard"},
                             {3, "- Guard"},
                             {4, "Guard *", HealthRow{.Flying = true}, entered},
                             {5, "Guard, bl", {}, all}};
    const std::string text = BattleText{units}.Write(battle.Sides.Attacker);
    EXPECT_EQ(
        text,
        "Guard, blessed\nGUARD\n3 Guard\n- Guard\nGuard, flying, strength 1, hits 3, leadership 0, morale -3\n"
        "Guard, bl, strength 7, hits 2, leadership 60, morale 61, fortification 62, chaos 63, fear 64, "
        "siege 65, assassination 66, missle 67, curse 68, acid 69, lightning 70, trample -120000000\n");
    EXPECT_EQ(BattleText{units}.Read(text, {}, Attacker).Battle, battle);
}

TEST(BattleText, OfABattleTakesThePlaceOfAllThatWasSetUp) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Defender, {Midges, Midges});
    player.Mark(Defender, 1, 1);
    player.Paste(Attacker, "Defending Armies\n" + MidgesAsText(9));
    EXPECT_EQ(pad.Terrain(), "city");
    EXPECT_FALSE(pad.cboTerrain.Enabled);
    EXPECT_EQ(Player::Text(pad.lblTerrainLocked), "More than 8 defenders are always in a city");
    player.Do([&] { pad.sscClearList[Defender].Press(); });
    EXPECT_FALSE(pad.cboTerrain.Enabled);
    EXPECT_EQ(Player::Text(pad.lblTerrainLocked), "Pick a defender to free the terrain");
    player.Pick(Defender, {Midges});
    EXPECT_EQ(Player::Text(pad.lblTerrainLocked), "");
    for (int step = 0; step < 2; ++step)
        pad.Undo();
    player.Mark(Defender, 8, 1);
    player.Paste(Attacker, "Terrain: hills\nDefending Armies\n" + MidgesAsText(9));
    EXPECT_EQ(pad.Terrain() + ": " + player.Notice,
              "city: More than 8 defenders are always in a city, so the terrain \"hills\" was not taken");
    player.Paste(Attacker, "Defending Armies\nGhouls\nTerrain: ice");
    EXPECT_EQ(pad.Terrain() + Player::Text(pad.lblTerrainLocked), "ice");
    player.Pick(Defender, std::vector<Long>(8, Midges));
    EXPECT_EQ(pad.lstArmies[Defender].Note(8), "") << "the conditions of a line that is gone";
}

TEST(BattleText, ThatCannotBeReadChangesNothingAndSaysWhereItFails) {
    Player player;
    player.Pick(Attacker, {Midges});
    // clang-format off
    const struct { std::string Text, Fault; } cases[]{
        {"Midges\nMidge\n", "Line 2: \"Midge\" is not a unit of the catalogue"},
        {"Midges, angry", "Line 1: \"angry\" is not a condition"},
        {"Midges, strength 4", "Line 1: \"strength 4\" is not a condition"},          // no hero
        {"Captain, strength x", "Line 1: \"strength x\" is neither a condition nor a hero's value"},
        {"Captain, 9 medals", "Line 1: \"9 medals\" is neither a condition nor a hero's value"},
        {"\n\nTerrain: moon", "Line 3: \"moon\" is not a terrain"},
        {"City Level: hut", "Line 1: \"hut\" is not a city level"},
        {"Combat Dice: 14", "Line 1: \"14\" is not a number from 15 to 100"},
        {"Number of Battles: ", "Line 1: \"\" is not a whole number up to 99999999"},
        {"Number of Battles: 1e3", "Line 1: \"1e3\" is not a whole number up to 99999999"},
        {"Number of Battles: 100000000", "Line 1: \"100000000\" is not a whole number up to 99999999"},
        {"\nCity Level: castle\nTerrain: ice", "Line 2: only a city has a city level"},
        {"Midges, poisoned, blessed", "Line 1: \"blessed\": a blessed army is neither diseased nor poisoned"},
        {"Midges, flying, Flying", "Line 1: \"Flying\": a line gives each condition at most once"},
        {"Midges, 1 medal, 3 medals", "Line 1: \"3 medals\": a line gives each condition at most once"},
        {"Captain, hits 2, hits 2", "Line 1: \"hits 2\": a line gives each value at most once"},
        {"0 Midges", "Line 1: \"0\" is not a number from 1 to 32"},
        {"Midges\n32 Midges", "Line 2: a list holds 32 armies at most"},
        {"Captain, acid 10, assassination 2147483647",
            "Line 1: \"assassination 2147483647\" is outside what a hero's editor can hold"},
        {"Captain, strength 300", "Line 1: \"strength 300\" is outside what a hero's editor can hold"},
        {std::string("Midges\0", 7), "Line 1: \"Midges\uFFFD\" is not a unit of the catalogue"},
        {MidgesAsText(20'000), "The text is too long to be a battle"},
        {"Attacking Armies\n" + MidgesAsText(33), "Line 34: a list holds 32 armies at most"},
    };
    // clang-format on
    const vorhaven::Setup before = player.Pad.CurrentSetup();
    for (const auto& [text, fault] : cases) {
        player.Pad.Paste(Defender, text);
        EXPECT_EQ(player.Toolkit.Message, fault + ".\nNothing was pasted.");
        EXPECT_EQ(player.Pad.CurrentSetup(), before) << fault;
    }
}

TEST(BattleText, ThatDoesNotFitIsNotPasted) {
    Player player;
    player.Pick(Attacker, {Midges});
    const vorhaven::Setup before = player.Pad.CurrentSetup();
    for (const std::string& text : {MidgesAsText(32), "Midges\nAttacking Armies\n" + MidgesAsText(32)}) {
        player.Pad.Paste(Attacker, text);
        EXPECT_EQ(std::exchange(player.Notice, ""),
                  "The list would hold more than 32 armies, so nothing was pasted");
        EXPECT_EQ(player.Pad.CurrentSetup(), before);
    }
    player.Pad.Paste(Attacker, "\r\n ");
    EXPECT_EQ(player.Notice, "The clipboard holds no text to paste");
}

} // namespace
} // namespace vorhaven::test
