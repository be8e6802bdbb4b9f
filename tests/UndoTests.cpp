// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/Player.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

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

} // namespace
} // namespace vorhaven::test
