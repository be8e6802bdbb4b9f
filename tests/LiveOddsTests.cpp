// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CsvCatalogue.h"
#include "tests/support/Player.h"
#include "ui/setup/BattleText.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

TEST(Heroes, AreEditedWithoutARunOnTheValuesOfTheOdds) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Attacker, {Captain, Midges});
    player.Pick(Defender, {Giants, Captain});
    std::string began;
    std::function<void(frmHero&)> leave;
    player.Toolkit.OnHero = [&](frmHero& editor) {
        began += editor.Description() + ":";
        for (const HeroField* field : {editor.UnitFields[0], editor.StackFields[0], editor.StackFields[1]})
            began += " " + field->txt.Text();
        began += editor.cmdLastValues.Enabled ? " again\n" : "\n";
        leave(editor);
    };
    const auto edit = [&](Side side, Long line, const std::string& morale) {
        player.Game::Mark(side, {line}, {});
        const bool isOffered = pad.mnuEditHero.Enabled;
        leave = [&](frmHero& editor) {
            editor.Field(&HeroValues::Morale).txt.SetText(morale);
            if (!morale.empty())
                editor.cmdProceed.Press();
        };
        player.Do([&] { pad.mnuEditHero.Choose(); });
        return isOffered;
    };
    const std::string asTheyBegin = player.Chances();
    EXPECT_TRUE(edit(Defender, 1, ""));
    EXPECT_EQ(player.Chances() + player.OddsState(), asTheyBegin + "Heroes at their starting values");
    EXPECT_TRUE(edit(Attacker, 0, "4"));
    EXPECT_NE(player.Chances(), asTheyBegin);
    EXPECT_FALSE(edit(Attacker, 1, "4") || edit(Defender, 0, "4")) << "no heroes";
    EXPECT_TRUE(edit(Attacker, 0, "5"));
    EXPECT_EQ(began, "Captain, Defending Armies, line 2: 6 1 0\n"
                     "Captain, Attacking Armies, line 1: 6 1 0\n"
                     "Captain, Attacking Armies, line 1: 6 1 4\n");
    pad.Undo();
    pad.Undo();
    EXPECT_EQ(player.Chances(), asTheyBegin) << "each is one step";
    pad.Redo();
    began.clear();
    leave = [&](frmHero& editor) {
        pad.mnuEditHero.Choose(); // while a run is assembled
        editor.cmdProceed.Press();
    };
    player.Fight();
    EXPECT_EQ(began, "Captain, Attacking Armies, line 1: 6 1 0 again\n"
                     "Captain, Defending Armies, line 2: 6 1 0\n");
}

/// The attacker's chance in percent where one army with one hit meets one like it: who alone misses loses.
std::string DuelChances(double attackStrength, double defendStrength, double faces = 20.0) {
    const double won = attackStrength * (faces - defendStrength);
    const double lost = defendStrength * (faces - attackStrength);
    const double percent = 100.0 * won / (won + lost);
    return ToFixedText(percent, 1) + "% " + ToFixedText(100.0 - percent, 1) + "%";
}

TEST(LiveOdds, FollowEveryChangeOfTheBattle) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    EXPECT_EQ(player.Chances(), "– –");
    player.Pick(Attacker, {Midges});
    EXPECT_EQ(player.OddsState(), "Pick armies for both sides");
    EXPECT_EQ(Player::Text(pad.lblSurvives[Attacker]), "");
    player.Pick(Defender, {Midges});
    EXPECT_EQ(player.Chances(), DuelChances(1, 1));
    EXPECT_EQ(player.Change(), ": ") << "there is nothing to compare with";
    EXPECT_EQ(Player::Text(pad.lblSurvives[Attacker]), "survives");
    player.Mark(Attacker, 0, 1);
    EXPECT_EQ(player.Chances(), DuelChances(2, 1));
    EXPECT_EQ(player.Change(), "+17.9: 17.9 points more than before the last change (50.0%)");
    pad.lstArmies[Attacker].Select({});
    pad.Settle();
    EXPECT_EQ(player.Change().substr(0, 5), "+17.9") << "a selection is no change";
    player.Do([&] { pad.txtCombatDice.SetText("25"); });
    player.Do([&] { pad.txtCombatDice.SetText("30"); });
    EXPECT_EQ(player.Chances(), DuelChances(2, 1, 30));
    EXPECT_EQ(player.Change(), "\u22120.4: 0.4 points less than before the last change (67.9%)")
        << "one number that is made up of several keys is one change";
    player.Do([&] { pad.cboTerrain.Choose(0); });
    EXPECT_EQ(player.Chances(), DuelChances(2, 2, 30)) << "the village fortifies the defender";
    player.Do([&] { pad.cboCityLevel.Choose(2); });
    EXPECT_EQ(player.Chances(), DuelChances(2, 4, 30));
    EXPECT_EQ(
        pad.OddsFrame.AsText(),
        "The attacker wins 31.7% of battles, the defender 68.3%\n"
        "Expected losses, overall: attacker 0.7 armies, 2.0 turns; defender 0.3 armies, 1.0 turns\n"
        "Expected losses, when the attacker wins: attacker 0.0 armies, 0.0 turns; defender 1.0 armies, 3.0 "
        "turns\n"
        "Expected losses, when the defender wins: attacker 1.0 armies, 3.0 turns; defender 0.0 armies, 0.0 "
        "turns\n");
    EXPECT_EQ(player.Change().substr(0, 7), "\u221218.3");
    EXPECT_EQ(pad.lstArmies[Attacker].FigureOf(0),
              (ListBox::Figure{"32%", "Survives 31.7% of battles", "survives 31.7%"}));
    EXPECT_EQ(pad.lstArmies[Defender].FigureOf(0).Text, "68%");
    pad.Undo();
    EXPECT_EQ(player.Chances(), DuelChances(2, 2, 30));
    EXPECT_EQ(player.Change().substr(0, 5), "+18.3");
    int shown = 0;
    const Connection showing = pad.OddsFrame.fraOdds.Changed.Connect([&] { ++shown; });
    player.Do([&] { pad.txtNumSimulations.SetText("10"); });
    EXPECT_EQ(shown, 0) << "odds that stand are not computed again";
    EXPECT_EQ(player.Change().substr(0, 4), "+0.0");
}

TEST(LiveOdds, TellTheLinesAndTheDetailedResults) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Attacker, {Midges});
    player.Pick(Defender, {Midges});
    // Whoever fights later survives more often; a line without an army has no figure.
    player.Pick(Attacker, {Nobody, Midges});
    const auto figure = [&](Long line) { return pad.lstArmies[Attacker].FigureOf(line).Text; };
    EXPECT_EQ(figure(0) + "|" + figure(1) + "|" + figure(2), "75%||50%");
    pad.Undo();

    // The detailed results get them side by side: the attacker cannot lose two armies, the defender can.
    player.Pick(Defender, {Midges});
    pad.cmdAttack.Press();
    player.Toolkit.OnMoreResults = [](frmMoreResults& results) {
        EXPECT_EQ(results.mscAttMore.Remarks.Get().Reachable, 2);
        EXPECT_EQ(results.mscDefMore.Remarks.Get().Reachable, 3);
        EXPECT_FALSE(results.mscAttMore.Rows()[2].HasExactMark());
        EXPECT_TRUE(results.mscDefMore.Rows()[2].HasExactMark());
    };
    pad.sscMoreResults.Press();

    player.Do([&] { pad.sscClearList[Attacker].Press(); });
    EXPECT_EQ(player.Chances(), "– –");
    EXPECT_EQ(pad.OddsFrame.AttackerShare(), std::nullopt);
}

// The battle that docs/combat-rules.md works out by hand, with the fractions given there.
TEST(LiveOdds, OfTheWorkedExampleAreThoseOfTheRulesForPlayers) {
    const CsvCatalogue catalogue = CsvCatalogue::BuiltIn();
    const Units units{catalogue};
    const std::string text = "Attacking Armies\nDale Lancers\nDefending Armies\nGate Wardens\nReed Spears\n"
                             "Terrain: field\nCombat Dice: 20\n";
    const auto example = BattleText{units}.Read(text, {}, Attacker);
    Odds::Budget budget{LiveOdds::StepsWhileTyping};
    const Odds::BattleOdds odds = OddsOf(example.Battle, units, budget).value();
    EXPECT_NEAR(odds.Won, 213.0 / 361.0, 1e-12);
    EXPECT_NEAR(odds.Lost, 148.0 / 361.0, 1e-12);
    ASSERT_EQ(odds.Defenders.ChanceOfLosing.size(), 3U);
    EXPECT_NEAR(odds.Defenders.ChanceOfLosing[0], 1.0 / 4.0, 1e-12);
    EXPECT_NEAR(odds.Attackers.Overall.value().Turns, 3.0 * 148.0 / 361.0, 1e-12);
    EXPECT_NEAR(odds.Defenders.Overall.value().Armies, 3.0 / 4.0 + 213.0 / 361.0, 1e-12);
    EXPECT_NEAR(odds.Defenders.Overall.value().Turns, 2.0 * (3.0 / 4.0 + 213.0 / 361.0), 1e-12);
}

TEST(OddsPanel, NeverCallsThePossibleImpossibleNorTheLikelyCertain) {
    OddsPanel panel;
    // clang-format off
    const struct { double Won, Lost, Endless; const char *Chances, *State; double Share; } cases[]{
        {1.0, 0.0, 0.0, "100.0% 0.0%", "state", 1.0},
        {0.9996, 0.0004, 0.0, "> 99.9% < 0.1%", "state", 0.9996},
        {0.3, 0.1, 0.6, "30.0% 10.0%", "In 60.0% of battles neither side can ever win. state", 0.75},
    };
    // clang-format on
    for (const auto& [won, lost, endless, chances, state, share] : cases) {
        Odds::BattleOdds odds;
        odds.Won = won;
        odds.Lost = lost;
        odds.Endless = endless;
        panel.Show(odds, "state");
        EXPECT_EQ(Player::Text(panel.lblChance.Attacker) + " " + Player::Text(panel.lblChance.Defender),
                  chances);
        EXPECT_EQ(Player::Text(panel.lblState), state);
        EXPECT_DOUBLE_EQ(panel.AttackerShare().value(), share);
    }
}

TEST(LiveOdds, CountHeroesAsTheirEditorsBeginUntilTheyHaveBeenEntered) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Attacker, {Midges, Captain});
    player.Pick(Defender, {Midges});
    const std::string asTheyBegin = player.Chances();
    EXPECT_EQ(player.OddsState(), "Heroes at their starting values");
    std::string during;
    player.Toolkit.OnHero = [](frmHero& editor) {
        for (HeroField* field : {&editor.Field(&HeroValues::Strength), &editor.Field(&HeroValues::Hits)})
            field->txt.SetText("1");
        editor.cmdProceed.Press();
    };
    player.Toolkit.OnEvents = [&] {
        pad.Settle();
        during = player.Chances();
    };
    player.Fight();
    EXPECT_NE(player.Chances(), asTheyBegin);
    EXPECT_EQ(player.Chances(), during) << "the odds of the lists that fight, already while they do";
    EXPECT_EQ(player.OddsState(), "Heroes as last entered");
    player.Pick(Attacker, {Captain});
    EXPECT_EQ(player.OddsState(), "Heroes as last entered, others at their starting values");
    // Both heroes go, and with them what was entered; a new one begins anew.
    for (const Long line : {2, 1})
        player.Do([&] { pad.DeleteArmyFromList(Attacker, line); });
    player.Pick(Attacker, {Captain});
    EXPECT_EQ(player.Chances(), asTheyBegin);

    // The next editor offers what was entered for its own line, wherever that line is by now.
    player.Fight();
    pad.lstArmies[Attacker].Select({1, {1}});
    player.Do([&] { pad.sscListArrow[0].Press(); });
    std::string offered;
    player.Toolkit.OnHero = [&](frmHero& editor) {
        editor.cmdLastValues.Press();
        offered =
            editor.Field(&HeroValues::Strength).txt.Text() + "/" + editor.Field(&HeroValues::Hits).txt.Text();
        editor.cmdProceed.Press();
    };
    player.Fight();
    EXPECT_EQ(offered, "1/1");
}

TEST(LiveOdds, ThatCannotBeToldSayWhyAndRaiseNothing) {
    Player player;
    player.Pick(Attacker, {Colossi, Midges});
    player.Pick(Defender, {Giants, Midges});
    player.Do([&] { player.Pad.cboTerrain.Choose(3); });
    EXPECT_EQ(player.Chances(), "– –");
    EXPECT_EQ(player.OddsState(), "There are no odds of this battle: Overflow");
}

TEST(LiveOdds, OfAVolleyOfThousandsAreLeftToTheDetailedResultsAndOfMoreToTheRun) {
    Player player;
    player.Toolkit.OnHero = [](frmHero& editor) {
        editor.cmdLastValues.Press();
        editor.cmdProceed.Press();
    };
    for (const auto& [missiles, isExact] : {std::pair{"1000", true}, {"99999", false}}) {
        player.Paste(Attacker,
                     std::string("Attacking Armies\nCaptain, strength 1, hits 1, leadership 1, missle ") +
                         missiles + "\nDefending Armies\n" + MidgesAsText(4));
        player.Do([&] { player.Pad.txtCombatDice.SetText(missiles); });
        EXPECT_EQ(player.OddsState(), "Too many outcomes for exact odds: press Attack for an estimate");
        player.Fight();
        player.Toolkit.OnMoreResults = [&](frmMoreResults& results) {
            EXPECT_EQ(results.mscDefMore.HasExactMarks(), isExact);
            const std::string remark = ". There are no exact odds: too many outcomes to sum up";
            EXPECT_EQ(results.mscDefMore.Remarks.Get().Sentence.ends_with(remark), !isExact);
        };
        player.Pad.sscMoreResults.Press();
    }
}

} // namespace
} // namespace vorhaven::test
