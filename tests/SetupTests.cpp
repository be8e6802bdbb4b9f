#include "tests/FakeWindows.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

/// What a line and the menu have, in codes: "B2F" is blessed, has two medals, and flies.
constexpr std::string_view codes = " BDP-SWF";
std::string Conditions(const HealthRow& row) {
    std::string own =
        std::string(row.Blessed, 'B') + std::string(row.Diseased, 'D') + std::string(row.Poisoned, 'P');
    own += row.Medals == 0 ? "" : std::to_string(row.Medals);
    return own + std::string(row.Blacksmith, 'S') + std::string(row.Weaponsmaster, 'W') +
           std::string(row.Flying, 'F');
}

/// The main window, its user, and what the user sees.
struct Desk : Game {
    /// A list: ">" at the current line, brackets around selected ones, and the lines' conditions after their
    /// texts; last what conditions there are behind the last line.
    std::string Look(Side side) {
        const ListBox& list = Pad.lstArmies[static_cast<std::size_t>(side)];
        std::string look;
        for (Long line = 0; line < HealthArray::RowCount; line += 1) {
            const bool real = line < list.ListCount();
            const bool selected = real && list.Selected(line);
            look += std::string(line == list.ListIndex(), '>') + std::string(selected, '[') +
                    (real ? list.Entry(line).Text : "") + Conditions(Pad.Health(side)(line + 1)) +
                    std::string(selected, ']') + std::string(real, ' ');
        }
        return look;
    }
    std::string Ground() {
        return Pad.Terrain() + (Pad.cboTerrain.Enabled ? ", " : " locked, ") + Pad.cboCityLevel.Text() +
               (Pad.cboCityLevel.Enabled ? "" : "none");
    }
    /// The menu: what is checked, and what is disabled.
    std::string Menu() {
        std::string checked, disabled;
        for (std::size_t item = 1; item < codes.size(); ++item) {
            checked += std::string(Pad.mnuPopupItem[item].Checked, codes[item]);
            disabled += std::string(!Pad.mnuPopupItem[item].Enabled, codes[item]);
        }
        return checked + "-" + disabled + " ";
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

    /// Does what the words say: who ("a" attackers, "d" defenders, "g" ground, "r" run), what, and figures.
    /// Tells what is to be seen then, or how the menu looked whenever it was opened.
    std::string Do(const std::string& script) {
        std::string seen, menus;
        std::istringstream words(script);
        for (std::string word; words >> word;) {
            const char what = word[1];
            const std::string figures = word.substr(2);
            const std::size_t i = word[0] == 'd' ? 1 : 0;
            const std::array buttons{&Pad.sscListArrow[2 * i], &Pad.sscListArrow[2 * i + 1],
                                     &Pad.sscClearList[i], &Pad.sscDup[i], &Pad.cmdAttack};
            std::vector<Long> numbers;
            for (const char figure : figures)
                numbers.push_back(figure - '0');
            if (what == '+') // picks entries
                Add(i, numbers);
            else if (what == 's') // makes the first line current and selects the others; "/" is none
                Pad.lstArmies[i].Select({numbers[0], {numbers.begin() + 1, numbers.end()}});
            else if (what == 'x')
                Pad.lstArmies[i].DoubleClick();
            else if (what == 't' || what == 'l') // chooses terrain or city level
                (what == 't' ? Pad.cboTerrain : Pad.cboCityLevel).Choose(numbers[0]);
            else if (what != 'm') // up, down, clear, duplicate, attack
                buttons[std::string("^vcd!").find(what)]->Press();
            else { // opens the menu, and chooses an item by the code of a condition
                Pad.MoveFocus(&Pad.lstArmies[i]);
                Pad.lstArmies_MouseUp(Side{i}, frmBrawlpad::MouseButton::Right);
                if (figures.empty())
                    menus += Menu();
                else if (const std::size_t item = codes.find(figures); item < codes.size())
                    Pad.mnuPopupItem[item].Choose();
                else
                    Pad.mnuPopupItemMedals[static_cast<std::size_t>(numbers[0].Value())].Choose();
            }
            seen = word[0] == 'g' ? Ground() : word[0] == 'r' ? Results() : Look(Side{i});
        }
        return menus.empty() ? seen : menus;
    }
    void Play(const std::vector<std::pair<std::string, std::string>>& story) {
        for (const auto& [script, seen] : story)
            EXPECT_EQ(Do(script), seen) << script;
    }
};

TEST(Setup, StartsWithItsDefaultsAndTheUnitsOfTheCatalogue) {
    Desk desk;
    const auto items = [](const ComboBox& box) {
        std::string texts;
        for (const ListEntry& item : box.Items())
            texts += item.Text + "=" + ToText(item.Datum) + " ";
        return texts + box.Text();
    };
    EXPECT_EQ(desk.Ground() + ", " + desk.Results(), "field, none, AX     ");
    EXPECT_EQ(desk.Pad.txtNumSimulations.Text() + desk.Pad.txtCombatDice.Text(), "100020");
    EXPECT_EQ(desk.Pad.NumBattles() + desk.Pad.CombatDice, 1020);
    EXPECT_FALSE(desk.Pad.sschkViewStats.Checked || desk.Pad.pbBattleProgress.Visible);
    EXPECT_EQ(items(desk.Pad.cboTerrain), "city=0 ice=0 hills=0 marsh=0 field=0 woods=0 field");
    EXPECT_EQ(items(desk.Pad.cboCityLevel), "Village (+1)=1 Castle (+2)=2 Citadel (+3)=3 ");
    for (const ComboBox& picker : desk.Pad.cboArmies)
        EXPECT_EQ(items(picker), "Midges=0 Giants=1 Stalkers=2 Ghouls=3 Colossi=4 Captain=5 Witch=6 None=7 ");
}

TEST(Setup, NumbersFollowTheirFieldsAndBattlesAreCutToTens) {
    Desk desk;
    TextBox& field = desk.Pad.txtNumSimulations;
    for (int key = 0; key < 256; ++key)
        EXPECT_EQ(field.Admits(key), key == 8 || key == 27 || (key >= 48 && key <= 57)) << key;
    std::istringstream battles("7 10  9 10  19 10  105 100  1000 1000  1234 1230  99999 99990");
    for (std::string typed, left = "10"; battles; battles >> typed >> left) {
        desk.Pad.MoveFocus(&field);
        field.SetText(typed);
        EXPECT_TRUE(typed.empty() || ToText(desk.Pad.NumBattles()) == typed) << "every change counts";
        desk.Pad.MoveFocus(&desk.Pad.cmdAttack);
        EXPECT_EQ(field.Text() + "=" + ToText(desk.Pad.NumBattles()), left + "=" + left) << typed;
    }
    desk.Pad.MoveFocus(&field);
    field.SetText("2147483648");
    EXPECT_THAT([&] { desk.Pad.MoveFocus(nullptr); },
                Raises(6, {"frmBrawlpad::txtNumSimulations_LostFocus"}));

    std::istringstream dice("35 1 36  99 5 100  100 1 100  16 -3 15  7 1 16  300 -1 99");
    for (std::int32_t typed = 0, steps = 0, after = 0; dice >> typed >> steps >> after;) {
        desk.Pad.txtCombatDice.SetText(ToText(typed));
        EXPECT_EQ(desk.Pad.CombatDice, typed) << "typing is free";
        desk.Pad.updCombatDice.Step(steps);
        EXPECT_EQ(desk.Pad.CombatDice, after) << typed;
    }
    EXPECT_THAT([&] { desk.Pad.txtCombatDice.SetText(""); },
                Raises(13, {"frmBrawlpad::txtCombatDice_Change"}));
    EXPECT_EQ(desk.Pad.CombatDice, 99);
    desk.Pad.txtDup[1].SetText("two");
    EXPECT_THAT([&] { desk.Do("d+0 ds0 dd"); }, Raises(13, {"frmBrawlpad::sscDup_Click"}));
    EXPECT_EQ(desk.Look(Side::Defend), ">Midges ");
}

TEST(Lists, KeepConditionsWithTheirLines) {
    Desk desk;
    desk.Pad.txtDup[0].SetText("2");
    desk.Play({{"a+0157 d+13", "Giants Ghouls "},
               {"as112 amB as11 am2", "Midges >[Giants *B2] Captain *B None "},
               {"as00 ax", ">[Giants *B2] Captain *B None "},
               {"av av", "Captain *B None >[Giants *B2] "},
               {"av", "Captain *B None >[Giants *B2] "},
               {"as2012 a^", "Captain *B >[Giants *B2] None "},
               {"as002 a^", ">[Captain *B] Giants *B2 [None] "},
               {"as/1 a^ av ax ad", "Captain *B [Giants *B2] None "},
               {"as0 ad", ">Captain *B Giants *B2 None Captain * Captain * "},
               {"ds11 dmF d^ dv", "Giants >[Ghouls *F] "},
               {"ac", ""},
               {"ds1", "Giants >Ghouls * "}});
    desk.Pad.txtDup[0].SetText("40");
    desk.Do("a+0 as0 ad as//");
    ListBox& list = desk.Pad.lstArmies[0];
    list.Select({31, {31}});
    EXPECT_EQ(desk.Do("amP a+1 as0 ax a+7").substr(29 * 7), " Midges Midges *P None ") << "32 lines at most";
}

TEST(Ground, CityHasALevelAndNineDefendersAreInACity) {
    Desk desk;
    desk.Play({{"gt5 gl2", "woods, none"},
               {"gt0", "city, Village (+1)"},
               {"gl2 gt0", "city, Citadel (+3)"},
               {"gt3", "marsh, none"},
               {"a+000000000 d+00000000 gl0", "marsh, none"},
               {"d+7 gt3", "city locked, Village (+1)"},
               {"gl2 ds8 dd gt1", "city locked, Citadel (+3)"},
               {"dx gt1", "city locked, Citadel (+3)"},
               {"dx gl2", "city, Citadel (+3)"},
               {"gt1", "ice, none"},
               {"dd dc gt1", "city locked, Village (+1)"},
               {"d+0 gt1", "ice, none"}});
}

TEST(Conditions, MenuKeepsBlessedApartFromTheAilingAndMarksAppearOnce) {
    Desk desk;
    int opened = 0;
    desk.Pad.PopupMenu = [&](Side side) { opened += side == Side::Attack ? 1 : 100; };
    desk.Do("am a+00000 am as0");
    desk.Pad.lstArmies_MouseUp(Side::Attack, frmBrawlpad::MouseButton::Left);
    EXPECT_EQ(opened, 0) << "there is nothing to open it on";
    desk.Do("as11 amB as22 amD as33 amP amD as44 amS amW amF am3 am4");
    desk.Play({{"as/", "Midges Midges *B Midges *D Midges *DP Midges *4SWF "},
               {"as0 am as1 am as2 am as33 am as440 am", "- B-DP D-B DP-B SWF- "},
               {"as014 am as402 am as023 am as112 am as0 am", "-DP SWF-B -B B-BDP - "},
               {"as112 amB amD am-", "Midges >[Midges *B] [Midges *D] Midges *DP Midges *4SWF "},
               {"as001 amB", ">[Midges *B] [Midges *B] Midges *D Midges *DP Midges *4SWF "},
               {"as11 am1 amB", "Midges *B >[Midges *1] Midges *D Midges *DP Midges *4SWF "},
               {"am0", "Midges *B >[Midges] Midges *D Midges *DP Midges *4SWF "},
               {"as001 amB", ">[Midges] [Midges] Midges *D Midges *DP Midges *4SWF "}});
    desk.Do("d+567 ds212 as00 am");
    desk.Pad.MoveFocus(&desk.Pad.txtDup[1]);
    desk.Pad.mnuPopupItem[7].Choose();
    EXPECT_EQ(desk.Look(Side::Defend), "Captain [Witch *F] >[None *F] ") << "where the focus is";
    desk.Pad.mnuPopupDelete.Choose();
    EXPECT_EQ(desk.Look(Side::Defend), ">[Captain] ");
}

/// Rolls 11 on the combat die: a strength from 11 on always hits, another never; an assassin always slays.
struct FixedDice final : MBattleCalc::UniformSource {
    FixedDice() { MBattleCalc::DrawFrom(*this); }
    ~FixedDice() override { MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator()); }
    float Draw() override { return 0.5F; }
};

TEST(Run, NeedsBothListsAndSwitchesTheButtonsAsItGoes) {
    Desk desk;
    const FixedDice dice;
    desk.Pad.txtNumSimulations.SetText("10");
    EXPECT_EQ(desk.Do("a+20 r!") + desk.Toolkit.Message,
              "AX     You need to specify attacking and defending armies.");
    std::string during;
    desk.Toolkit.OnEvents = [&] {
        during = desk.Results() + (desk.Toolkit.Busy && desk.Pad.pbBattleProgress.Visible ? "busy" : "");
    };
    desk.Play({{"d+01 r!", "AXM 100% 1 3 2 10"}, {"as0 ax r!", "AXM 0% 1 3 0 0"}});
    EXPECT_EQ(during, "B 100% 1 3 2 10busy");
    EXPECT_EQ(desk.Pad.sbrBrawlpad[1].Text.Get() + ToText(desk.Pad.pbBattleProgress.Value),
              "100% Completed100");
    desk.Toolkit.OnEvents = [&] { desk.Pad.sscAbort.Press(); };
    EXPECT_EQ(desk.Do("a+2 r!"), "AXM 0% 1 3 0 0") << "an aborted run has no quick results";
    EXPECT_EQ(MBattleCalc::BattleResults(1, 4) * 10 + MBattleCalc::BattleResults(2, 4), 20);
    EXPECT_EQ(desk.Do("dc r!"), "AX 0% 1 3 0 0");
}

TEST(Run, HandsLinesConditionsAndGroundToTheEngineAndHeroesToTheirEditor) {
    Desk desk;
    desk.Do("a+750600003 d+35 as33 amB am4 amS amW amF as77 amP ds00 dmP dmD dmP gt0 gl2");
    desk.Pad.sschkViewStats.Toggle();
    desk.Pad.txtNumSimulations.SetText("10");
    std::string edited, shown;
    desk.Toolkit.OnHero = [&](frmHero& window) {
        const CArmy& hero = *window.Hero;
        edited += window.Whereabouts + desk.Results() + hero.Name.Text() + ToText(hero.Turns) +
                  ToText(hero.PowerType) + ToText(hero.PowerValue) + (hero.IsFlying ? "F\n" : "\n") +
                  desk.Look(Side::Attack) + "/ " + desk.Look(Side::Defend) + "\n";
    };
    desk.Toolkit.OnStats = [&](frmStats& window) {
        for (const auto& [grid, row] : {std::pair{0U, 1}, {0U, 3}, {0U, 7}, {0U, 8}, {1U, 1}, {1U, 2}})
            for (Long column = 0; column < 12; column += 1)
                shown += window.msfgStackStats[grid].Text(row, column) + (column == 11 ? "\n" : ",");
        shown += window.Panels[1].Raw[2].Figure.Caption.Get();
    };
    EXPECT_EQ(desk.Do("r!").substr(0, 3), "AXM");
    EXPECT_EQ(edited, "Attacking Armies, 2     Captain011\nNone >[Captain] Midges Witch *B4SWF Midges Midges "
                      "Midges Midges *P Ghouls / >[Ghouls *D] Captain \n"
                      "Attacking Armies, 4     Witch011F\nNone Captain Midges >[Witch *B4SWF] Midges Midges "
                      "Midges Midges *P Ghouls / >[Ghouls *D] Captain \n"
                      "Defending Armies, 2     Captain011\nNone Captain Midges Witch *B4SWF Midges Midges "
                      "Midges >[Midges *P] Ghouls / Ghouls *D >[Captain] \n");
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
    desk.Do("a+04 d+0 gt3");
    EXPECT_THAT([&] { desk.Do("r!"); },
                Raises(6, {"CAttackArmies::InterpretCB", "CAttackArmies::Add", "frmBrawlpad::AddAttacker",
                           "frmBrawlpad::FillArmyCollections", "frmBrawlpad::cmdAttack_Click"}));
}

} // namespace
} // namespace vorhaven::test
