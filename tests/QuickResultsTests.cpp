// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/Budget.h"
#include "tests/support/Player.h"
#include "ui/setup/WinMargin.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

TEST(QuickResults, SayWhenTheyAreNotThoseOfTheLastRunOfTheSetUp) {
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
    EXPECT_EQ(abort() + Player::Text(pad.ResultsFrame.lblAttWinPercent), "aborted");
    EXPECT_EQ(fight(), "");
    EXPECT_EQ(abort(), "before the aborted run");
    EXPECT_NE(pad.BattleAsText().find("(before the aborted run)"), std::string::npos);
    player.Pick(Attacker, {Midges});
    EXPECT_EQ(player.OutOfDate(), "before the abort and changes");
    EXPECT_EQ(fight(), "");
    const auto isCopied = [&](const char* words) {
        return pad.BattleAsText().find(words) != std::string::npos;
    };
    player.Do([&] { pad.txtNumSimulations.SetText("20"); });
    EXPECT_EQ(player.OutOfDate(), "") << "the number of battles is no part of the battle";
    EXPECT_TRUE(isCopied("\nNumber of Battles: 20\n") && isCopied(") of 10 battles\n")) << "those of the run";
    player.Pick(Attacker, {Midges});
    EXPECT_TRUE(isCopied("(before the latest changes)"));
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

} // namespace
} // namespace vorhaven::test
