// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/Budget.h"
#include "tests/support/FakeToolkit.h"
#include "ui/setup/BattleText.h"
#include "ui/setup/WinMargin.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace vorhaven::test {
namespace {

/// The main window whose user's every action is taken in, as the view does it.
struct Player final : Game {
    void Do(const std::function<void()>& action) {
        action();
        Pad.Settle();
    }
    void Mark(Side side, Long line, std::size_t item) {
        Do([&] { Game::Mark(side, {line}, {item}); });
    }
    void Pick(Side side, const std::vector<Long>& entries) {
        Do([&] { Add(side, entries); });
    }
    void Paste(Side side, const std::string& text) {
        Do([&] { Pad.Paste(side, text); });
    }
    void Fight() {
        Pad.txtNumSimulations.SetText("10");
        Do([&] { Pad.cmdAttack.Press(); });
    }
    std::string Chances() const {
        return Text(Pad.OddsFrame.lblChance.Attacker) + " " + Text(Pad.OddsFrame.lblChance.Defender);
    }
    std::string OutOfDate() const { return Text(Pad.lblOutOfDate); }
    std::string OddsState() const { return Text(Pad.OddsFrame.lblState); }
    std::string Change() const {
        return Text(Pad.OddsFrame.lblChange) + ": " + Pad.OddsFrame.ChangeInWords.Get();
    }
    static std::string Text(const Label& label) { return label.Caption; }

    std::string Notice;

private:
    Connection noticing_ = Pad.Noticed.Connect([this](const std::string& text) { Notice = text; });
};

std::string MidgesAsText(int count) {
    std::string lines;
    while (count-- > 0)
        lines += "Midges\n";
    return lines;
}

TEST(Undo, PutsBackEveryKindOfChangeAndRedoGoesForwardAgain) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    const std::vector<std::function<void()>> actions{
        [&] { player.Add(Attacker, {Midges}); },
        [&] { player.Add(Attacker, {Captain}); },
        [&] { player.Mark(Attacker, 1, 1); },
        [&] { pad.mnuPopupItemMedals[3].Choose(); },
        [&] { pad.sscListArrow[0].Press(); },
        [&] { pad.sscDup[Attacker].Press(); },
        [&] { pad.mnuPopupDelete.Choose(); },
        [&] { player.Add(Defender, std::vector<Long>(9, Ghouls)); },
        [&] { pad.cboCityLevel.Choose(2); },
        [&] { pad.sscSwapSides.Press(); },
        [&] { pad.sscClearList[Defender].Press(); },
        [&] { pad.cboTerrain.Choose(3); },
        [&] { pad.updCombatDice.Step(1); },
        [&] { pad.txtNumSimulations.SetText("500"); },
    };
    std::vector<vorhaven::Setup> states{pad.CurrentSetup()};
    for (const auto& action : actions) {
        player.Do(action);
        states.push_back(pad.CurrentSetup());
        ASSERT_NE(states[states.size() - 2], states.back()) << "action " << states.size() - 2;
    }
    for (std::size_t state = states.size() - 1; state-- > 0;) {
        pad.mnuUndo.Choose();
        EXPECT_EQ(pad.CurrentSetup(), states[state]) << state;
    }
    EXPECT_FALSE(pad.mnuUndo.Enabled);
    for (std::size_t state = 1; state < states.size(); ++state) {
        pad.mnuRedo.Choose();
        EXPECT_EQ(pad.CurrentSetup(), states[state]) << state;
    }
    EXPECT_FALSE(pad.mnuRedo.Enabled);
}

TEST(Undo, TakesTheKeysOfOneNumberTogetherAndForgetsWhatWasUndoneOnceSomethingElseIsDone) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    for (const char* typed : {"25", "24", "23"})
        player.Do([&] { pad.txtCombatDice.SetText(typed); });
    player.Do([&] { pad.cboTerrain.Choose(1); });
    for (const int dice : {23, 20}) {
        pad.Undo();
        EXPECT_EQ(pad.CombatDice, dice);
    }
    player.Pick(Attacker, {Midges, Giants});
    EXPECT_FALSE(pad.mnuRedo.Enabled);
    // What is typed after an undo is a step of its own, and undoing it leaves the selection where it is.
    pad.lstArmies[Attacker].Select({1, {1}});
    for (const char* typed : {"30", "31"}) {
        player.Do([&] { pad.txtCombatDice.SetText(typed); });
        pad.Undo();
        EXPECT_EQ(pad.CombatDice, 20);
    }
    EXPECT_EQ(pad.lstArmies[Attacker].ListIndex(), 1);
    EXPECT_EQ(pad.lstArmies[Attacker].SelectedLines(), std::vector<Long>{1});
    // What stood in a field in the midst of typing is completed when it comes back after the field was left.
    player.Do([&] { pad.txtNumSimulations.SetText(""); });
    player.Pick(Attacker, {Midges});
    player.Do([&] { pad.txtNumSimulations.SetText("70"); });
    pad.Undo();
    EXPECT_EQ(pad.NumBattles(), 10);
}

TEST(Undo, BringsBackWhatWasEnteredForAHero) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Attacker, {Captain});
    player.Pick(Defender, {Midges});
    std::string offered;
    const auto fightWith = [&](const std::function<void(frmHero&)>& leave) {
        player.Toolkit.OnHero = [&](frmHero& editor) {
            offered += editor.LastValues ? ToText(editor.LastValues->Strength) + " " : "none ";
            leave(editor);
        };
        player.Fight();
    };
    fightWith([](frmHero& editor) {
        editor.Field(&HeroValues::Strength).txt.SetText("9");
        editor.cmdProceed.Press();
    });
    fightWith([](frmHero& editor) { editor.cmdProceed.Press(); });
    pad.Undo();
    EXPECT_EQ(player.OutOfDate(), "before the latest changes") << "6 fought, 9 is set up";
    const std::string odds = player.Chances() + player.OddsState();
    fightWith([](frmHero& /*editor*/) {});
    EXPECT_EQ(player.OutOfDate(), "with a hero's editor cancelled") << "nothing was entered, 6 fought";
    EXPECT_EQ(player.Chances() + player.OddsState(), odds);
    pad.lstArmies.Attacker.Select({0, {0}});
    player.Do([&] { pad.sscDup.Attacker.Press(); });
    fightWith([](frmHero& /*editor*/) {});
    EXPECT_EQ(offered, "none 9 9 9 none ") << "a copy begins anew";
}

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
    pad.txtDup[Attacker].SetText("31");
    pad.lstArmies[Attacker].Select({1, {1}});
    player.Do([&] { pad.sscDup[Attacker].Press(); });
    player.Pick(Attacker, {Midges});
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

TEST(QuickResults, SayWhenTheyBelongToAnEarlierSetUp) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Attacker, {Midges, Midges});
    player.Pick(Defender, {Midges});
    EXPECT_EQ(pad.WinMarginInWords.Get(), "");
    bool isTouched = false;
    const Connection touched = pad.SetupTouched.Connect([&] { isTouched = true; });
    player.Fight();
    EXPECT_TRUE(isTouched) << "a view has to take in that there are new results";
    EXPECT_NE(pad.WinMarginInWords.Get(), "");
    const std::pair<const char*, std::function<void()>> changes[]{
        {"armies", [&] { player.Add(Attacker, {Midges}); }},
        {"conditions", [&] { player.Mark(Attacker, 0, 2); }},
        {"order",
         [&] { player.Add(Attacker, {Giants}), pad.Settle(), pad.Undo(), player.Mark(Attacker, 0, 7); }},
        {"terrain", [&] { pad.cboTerrain.Choose(0); }},
        {"dice", [&] { pad.txtCombatDice.SetText("30"); }},
    };
    for (const auto& [name, change] : changes) {
        EXPECT_EQ(player.OutOfDate(), "") << name;
        player.Do(change);
        EXPECT_EQ(player.OutOfDate(), "before the latest changes") << name;
        EXPECT_NE(pad.BattleAsText().find("(before the latest changes)"), std::string::npos);
        pad.Undo();
    }
    player.Do([&] { pad.txtNumSimulations.SetText("20"); });
    EXPECT_EQ(player.OutOfDate(), "") << "the number of battles is no part of the battle";
    EXPECT_NE(pad.BattleAsText().find("\nNumber of Battles: 20\n"), std::string::npos);
    EXPECT_NE(pad.BattleAsText().find(") of 10 battles\n"), std::string::npos) << "those of the run";
    player.Do([&] { pad.cboTerrain.Choose(0); });
    player.Fight();
    EXPECT_EQ(player.OutOfDate(), "");
}

TEST(QuickResults, SayWhenTheLastRunWasAborted) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Attacker, {Midges});
    player.Pick(Defender, {Midges});
    const auto abort = [&] {
        player.Toolkit.OnEvents = [&] {
            pad.sscAbort.Press();
            pad.Settle();
        };
        player.Fight();
        player.Toolkit.OnEvents = [] {};
        return player.OutOfDate();
    };
    const auto fight = [&] {
        player.Fight();
        return player.OutOfDate();
    };
    EXPECT_EQ(abort() + Player::Text(pad.lblAttWinPercent), "aborted");
    EXPECT_EQ(fight(), "");
    EXPECT_EQ(abort(), "before the aborted run");
    EXPECT_NE(pad.BattleAsText().find("(before the aborted run)"), std::string::npos);
    player.Pick(Attacker, {Midges});
    EXPECT_EQ(player.OutOfDate(), "before the abort and changes");
    EXPECT_EQ(fight(), "");
}

TEST(QuickResults, AreOfOtherHeroesWhenAHeroOfOtherValuesTakesALine) {
    Player player;
    frmBrawlpad& pad = player.Pad;
    player.Pick(Attacker, {Captain, Captain});
    player.Pick(Defender, {Midges});
    player.Toolkit.OnHero = [](frmHero& editor) { editor.cmdProceed.Press(); };
    player.Fight();
    player.Do([&] { pad.DeleteArmyFromList(Attacker, 1); });
    EXPECT_EQ(player.OutOfDate(), "before the latest changes");
    player.Pick(Attacker, {Captain});
    EXPECT_EQ(player.OutOfDate(), "") << "the same as the one that went: both as they begin";

    int strength = 6;
    player.Toolkit.OnHero = [&](frmHero& editor) {
        editor.Field(&HeroValues::Strength).txt.SetText(std::to_string(++strength));
        editor.cmdProceed.Press();
    };
    player.Fight();
    EXPECT_EQ(player.OutOfDate(), "");
    pad.lstArmies[Attacker].Select({0, {0}});
    player.Do([&] { pad.sscListArrow[1].Press(); });
    EXPECT_EQ(player.OutOfDate(), "before the latest changes");
    pad.Undo();
    EXPECT_EQ(player.OutOfDate(), "");
    player.Paste(Attacker, "Attacking Armies\nCaptain\nCaptain\nDefending Armies\nMidges");
    EXPECT_EQ(player.OutOfDate(), "before the latest changes");
}

TEST(LastRun, KnowsWhatItsResultsAndTheirOddsAreOfAndSaysOnceHowItEnded) {
    const SmallCatalogue catalogue;
    const Units units{catalogue};
    vorhaven::Setup now;
    now.Sides = {{{Captain, "Captain"}}, {{Midges, "Midges"}}};
    now.CombatDice = 20;
    HeroValues strongest = HeroOf(now.Sides.Attacker[0], units).value();
    strongest.Strength = 14;
    LastRun run;
    std::string told = run.TakeAnnouncement();
    const auto fight = [&](bool isEntered, bool isAborted) {
        run.Begin(now);
        run.TakeHero(Attacker, 0, strongest, isEntered);
        if (!isAborted)
            run.ShowResults();
        run.End();
        told += run.TakeAnnouncement() + run.TakeAnnouncement() + " " + run.RemarkOnResults(now, units);
        now.Sides.Attacker[0].Hero = strongest;
        told += "/" + run.RemarkOnResults(now, units) + "\n";
        now.Sides.Attacker[0].Hero.reset();
    };
    fight(true, true);
    EXPECT_EQ(run.Shown(), nullptr);
    fight(false, false);
    const frmMoreResults::Background background = run.Background({1, 1}, units);
    fight(true, false);
    fight(false, true);
    EXPECT_EQ(told, "The run was aborted. aborted/aborted\n"
                    "The run has ended. with a hero's editor cancelled/\n"
                    "The run has ended. before the latest changes/\n"
                    "The run was aborted. before the abort and changes/before the aborted run\n");
    now.Sides.Attacker[0].Hero = strongest;
    Odds::Budget budget{LiveOdds::StepsWhileTyping};
    EXPECT_EQ(background.ExactLosses.value().Defender[1], OddsOf(now, units, budget).value().Won)
        << "as the hero fought, entered or not";
}

TEST(WinMargin, IsHalfTheScoreIntervalAndNeverNothing) {
    // clang-format off
    const struct { std::int32_t Wins, Battles; const char* Figure; } cases[]{
        {520, 1000, "\u00B1 3.1"},
        {5, 10, "\u00B1 26.3"},              // 1.96 / 1.384 * sqrt(0.025 + 0.0096)
        {1, 1000, "\u00B1 0.3"},
        {4'500'000, 9'000'000, "\u00B1 < 0.1"},
        {0, 1000, "at most 0.3%"},           // 1.645^2 / 1002.7
        {1000, 1000, "at least 99.7%"},
        {0, 10, "at most 21.3%"},
        {0, 9'000'000, "below 0.1%"},
        {9'000'000, 9'000'000, "above 99.9%"},
    };
    // clang-format on
    for (const auto& [wins, battles, figure] : cases)
        EXPECT_EQ(MarginOf(wins, battles).Figure, figure) << wins << " of " << battles;
    EXPECT_EQ(MarginOf(4'500'000, 9'000'000).Sentence,
              "With a confidence of 95%, the attacker's chance of winning is within 0.1 points of this "
              "percentage");
    EXPECT_EQ(MarginOf(1, 10).Sentence,
              "With a confidence of 95%, the attacker's chance of winning is between 1.8% and 40.4%");
}

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
    player.Paste(Defender, "Midges\nNone\n");
    EXPECT_EQ(pad.lstArmies[Defender].Entry(1).Text, "None");
    pad.lstArmies[Attacker].Select({});
    pad.mnuCopy.Choose();
    EXPECT_EQ(player.Toolkit.Clipboard, "Midges\n") << "there was nothing else to copy";
    pad.txtNumSimulations.SetText("5");
    player.Paste(Attacker, pad.BattleAsText());
    EXPECT_EQ(player.Toolkit.Message, "") << "a number that is still being typed is left out";
}

TEST(BattleText, TakesUnitsByTheirWholeNamesAndKeepsAnyValueOfAHero) {
    struct Guards final : CatalogueProvider {
        const Table& GetTable(Selector name) const override {
            return name == Selector::Armies ? Armies : Heroes;
        }
        std::string PowerName(std::int16_t /*code*/) const override { return ""; }
        const Table Armies = SmallCatalogue::Spread(
            {0, 1}, {{0, "Guard, blessed"}, {1, "GUARD"}, {2, "3 Guard"}, {3, "- Guard"}});
        const Table Heroes = SmallCatalogue::Spread({0, 1}, {{0, "Guard"}, {1, "Guard, bl"}});
    };
    const Guards guards;
    const Units units{guards};
    HeroValues entered;
    entered.Strength = 1;
    entered.Hits = 3;
    entered.Morale = -3;
    const HeroValues all{7, 2, 60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70, 71};
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
        "siege 65, assassination 66, missle 67, curse 68, acid 69, lightning 70, trample 71\n");
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
        {"Captain, acid 10, assassination 2147483647", "Line 1: \"assassination 2147483647\" is outside what a hero's editor can hold"},
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

    // What can be read does not always fit.
    for (const std::string& text : {MidgesAsText(32), "Midges\nAttacking Armies\n" + MidgesAsText(32)}) {
        player.Pad.Paste(Attacker, text);
        EXPECT_EQ(std::exchange(player.Notice, ""),
                  "The list would hold more than 32 armies, so nothing was pasted");
        EXPECT_EQ(player.Pad.CurrentSetup(), before);
    }
    player.Pad.Paste(Attacker, "\r\n ");
    EXPECT_EQ(player.Notice, "The clipboard holds no text to paste");
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

    // Whoever fights later survives more often; a line without an army has no figure.
    player.Pick(Attacker, {Nobody, Midges});
    const auto figure = [&](Long line) { return pad.lstArmies[Attacker].FigureOf(line).Text; };
    EXPECT_EQ(figure(0) + "|" + figure(1) + "|" + figure(2), "66%||33%");
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
