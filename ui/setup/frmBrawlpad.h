// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/BattleHost.h"
#include "model/CAttackArmies.h"
#include "ui/controls/Form.h"
#include "ui/controls/ListBox.h"
#include "ui/results/frmMoreResults.h"
#include "ui/setup/BattleText.h"
#include "ui/setup/HealthArray.h"
#include "ui/setup/History.h"
#include "ui/setup/OddsPanel.h"
#include "ui/setup/Setup.h"
#include "ui/setup/Toolkit.h"

#include <array>
#include <chrono>
#include <map>
#include <optional>
#include <string>

namespace vorhaven {

/// The side that a paired control belongs to, which is its place in its control array.
enum class Side : std::size_t { Attack = 0, Defend = 1 };

/// The main window: settings, the two army lists with their conditions, and the runs. What concerns the
/// window as a whole is in frmBrawlpad.cpp; the other sources go by topic: Settings.cpp, Lists.cpp,
/// Conditions.cpp, Assembly.cpp, Changes.cpp, LiveOdds.cpp, Exchange.cpp.
class frmBrawlpad final : public Form, private ArmyListHost, private MBattleCalc::BattleHost {
public:
    /// `provider` and `toolkit` must outlive the window.
    frmBrawlpad(const CatalogueProvider& provider, Toolkit& toolkit);

    // frmBrawlpad.cpp

    void Form_Load() override;
    /// The user closes the window: a run that is under way stops before its next battle.
    void Close();

    // Settings.cpp

    /// Number of battles, the text of its field. Reading it raises error 13 when it is no number and error 6
    /// when it is too large.
    [[nodiscard]] Long NumBattles() const;
    void SetNumBattles(const std::string& text) { numBattles_ = text; }
    /// Faces of a combat die.
    Long CombatDice;
    /// The defender's terrain.
    [[nodiscard]] const std::string& Terrain() const override { return terrain_; }
    void SetTerrain(const std::string& terrain) { terrain_ = terrain; }
    /// Numbers of army types and hero types; a list line whose datum is their sum stands for no army.
    [[nodiscard]] Long NumArmies() const override { return Armies().RowCount(); }
    [[nodiscard]] Long NumHeroes() const { return Heroes().RowCount(); }
    /// The catalogue's tables.
    [[nodiscard]] const Table& Armies() const override { return *armies_; }
    [[nodiscard]] const Table& Heroes() const override { return *heroes_; }

    void txtNumSimulations_LostFocus();

    /// Whether the last run has as many battles as the field asks More Results to show.
    [[nodiscard]] bool HasResultsToShow() const;
    /// A defending list of more than eight lines stands in a city and nowhere else.
    void AdjustDefTerrain(Side side, Long lineCount);

    // Lists.cpp

    /// What the picker tells about a unit beside its name: strength, hits, turns, terrain bonus and power,
    /// each empty where there is nothing to tell.
    [[nodiscard]] std::vector<std::string> UnitDetails(Long datum) const;
    /// Appends the picker's current entry to the list of a side.
    void AddArmyToList(Side side);
    /// Removes a line, with its conditions.
    void DeleteArmyFromList(Side side, Long line);
    /// Moves the rows behind a removed line's row up by `shift`.
    static void ShuffleArray(HealthArray& health, Long line, Long shift);
    /// Reduces the selection to the current line.
    void MoveOnlyOne(Side side);
    /// Exchanges two lines with their conditions; `to` becomes the current and selected one.
    void MoveArmyInList(Side side, Long from, Long to);
    static void MoveArmyInHealthArray(HealthArray& health, Long rowA, Long rowB);

    // Conditions.cpp

    /// Clears the conditions of both sides.
    void RefreshHealthArray();
    /// The right button on a list, or the menu key: loads the menu's items and opens it.
    enum class MouseButton { Left = 1, Right = 2 };
    void lstArmies_MouseUp(Side side, MouseButton button);
    /// Enables and disables the menu's Blessed, Diseased and Poisoned for the selected lines of a side.
    void EvaluateHealthConflicts(Side side);

    [[nodiscard]] const HealthArray& Health(Side side) const { return health_[Of(side)]; }

    // Assembly.cpp

    /// The undead test of a catalogue row.
    [[nodiscard]] bool CheckIfUndead(Long row) const;

    // Changes.cpp

    /// What the player has set up.
    [[nodiscard]] Setup CurrentSetup() const;
    /// Raised when something may have changed that Settle is to take in.
    Signal<> SetupTouched;
    /// The most time that computing the exact odds may take.
    std::chrono::milliseconds OddsBudget{12};
    /// Takes in what has changed since the last call: one step of undo, the notes and counts of the lists,
    /// and whether the quick results are out of date. A view calls it once the user's action is over.
    void Settle();
    /// Puts the set-up back that stood before the last change, or that the last Undo left.
    void Undo();
    void Redo();

    // Exchange.cpp

    /// The selected lines of a side as text; empty without any.
    [[nodiscard]] std::string SelectedLinesAsText(Side side) const;
    /// Copies the selected lines of a side; without any, what was copied before stays.
    void Copy(Side side);
    /// The whole set-up as text, with the quick results below it.
    [[nodiscard]] std::string BattleAsText() const;
    /// Takes a text as SelectedLinesAsText and BattleAsText write them: lines alone are added to a side, a
    /// battle takes the set-up's place. A text that cannot be read, or does not fit, is told in one message,
    /// and nothing is changed.
    void Paste(Side side, const std::string& text);

    // The controls, by group from the top of the window.

    ProgressBar pbBattleProgress;
    std::array<StatusPanel, 4> sbrBrawlpad{
        StatusPanel{"Progress Indicator"}, StatusPanel{"Percent Completed"},
        StatusPanel{"", StatusPanel::Style::Date}, StatusPanel{"", StatusPanel::Style::Time}};

    Button sscMoreResults{"&More Results",
                          "See a chart detailing the frequency distribution of the loss of armies"};
    Button cmdAttack{"&Attack", "Start simulating this battle"};
    Button sscAbort{"A&bort", "Stop simulating this battle"};
    Button sscExit{"E&xit", "Exit the Combat Calculator"};
    Button sscSwapSides{"S&wap Sides", "Let the defending armies attack the attacking ones"};
    MenuItem mnuUndo{"Undo"};
    MenuItem mnuRedo{"Redo"};
    MenuItem mnuCopy{"Copy"};
    MenuItem mnuCopyBattle{"Copy Battle"};
    MenuItem mnuPaste{"Paste"};
    /// Raised with one sentence on why an action did nothing.
    Signal<std::string> Noticed;

    Frame fraSetup{"Setup Options"};
    Label lblCombatDice{"Combat Dice:"};
    TextBox txtCombatDice{MaxNumberLength, "Select # of combat dice"};
    /// No army is stronger than 14, so from 15 faces on every battle ends.
    UpDown updCombatDice{txtCombatDice, 15, 100, 20, UpDown::Typing::WithinLimits, "Select # of combat dice"};
    CheckButton sschkViewStats{"View Stack Statistics", "See detailed info on stacks"};
    Label lblTerrain{"Defender's Terrain:"};
    ComboBox cboTerrain{"Select defender's terrain"};
    Label lblNumSimulations{"Number of Battles:"};
    /// Eight digits fit into a count whatever they are.
    TextBox txtNumSimulations{8, "Indicate # of battles to simulate"};
    Label lblCityLevel{"City Level:"};
    ComboBox cboCityLevel{"Select level of city"};

    OddsPanel OddsFrame;

    Frame fraQuickResults{"Quick Results"};
    Label lblAttWinPercentCaption{"Attacker Wins:"};
    /// How far the percentage can be trusted, with the same in words.
    Label lblWinMargin;
    Property<std::string> WinMarginInWords{lblWinMargin, {}};
    /// Says that the quick results belong to an earlier set-up; empty while they do not.
    Label lblOutOfDate;
    Label lblAttWinPercent{"", "The attacker should win approximately this percentage of battles"};
    /// The averages of the results columns 2 to 5, indexed by column; 0 and 1 are not used.
    static constexpr std::int32_t FirstAverage = 2;
    static constexpr std::int32_t LastAverage = 5;
    std::array<Label, LastAverage + 1> lblAvgCaption{Label{},
                                                     Label{},
                                                     Label{"Avg. Att. Units Lost:"},
                                                     Label{"Avg. Att. Prod. Turns Lost:"},
                                                     Label{"Avg. Def Units Lost:"},
                                                     Label{"Avg. Def. Prod. Turns Lost:"}};
    std::array<Label, LastAverage + 1> lblAvg{
        Label{},
        Label{},
        Label{"", "The attacker should lose, on average, approximately this number of units"},
        Label{"", "The units lost, on average, by the attacker add up to this many turns of production"},
        Label{"", "The defender should lose, on average, approximately this number of units"},
        Label{"", "The units lost, on average, by the defender add up to this many turns of production"}};

    /// Why the terrain cannot be chosen; empty while it can.
    Label lblTerrainLocked;
    /// How many lines each list has, of how many at most.
    std::array<Label, 2> lblCount;

    Frame fraAttack{"Attacking Armies"};
    Frame fraDefend{"Defending Armies"};
    [[nodiscard]] Frame& FrameOf(Side side) { return side == Side::Attack ? fraAttack : fraDefend; }

    // Paired: 0 attack, 1 defence.
    std::array<Label, 2> lblArmies{Label{"Select Attacking Armies"}, Label{"Select Defending Armies"}};
    std::array<ComboBox, 2> cboArmies{ComboBox{"Select attacking armies"},
                                      ComboBox{"Select defending armies"}};
    std::array<ListBox, 2> lstArmies{ListBox{"Double click armies to delete, right click for options"},
                                     ListBox{"Double click armies to delete, right click for options"}};
    /// Beside the attacking list, where each of its stacks of eight lines begins.
    std::array<Label, MaxStacks> lblStack{Label{"Stack 1"}, Label{"Stack 2"}, Label{"Stack 3"},
                                          Label{"Stack 4"}};
    /// Beside the defending list, which is one stack.
    Label lblDefStack{"Stack 1"};
    std::array<Button, 2> sscClearList{Button{"Clear List", "Remove all armies from the list"},
                                       Button{"Clear List", "Remove all armies from the list"}};
    std::array<Button, 2> sscDup{
        Button{"Duplicate", "Add to the list the specified number of copies of the selected army"},
        Button{"Duplicate", "Add to the list the specified number of copies of the selected army"}};
    std::array<Label, 2> lblDup{Label{"Number of Duplicates"}, Label{"Number of Duplicates"}};
    std::array<TextBox, 2> txtDup{TextBox{MaxNumberLength, "Select # of times to duplicate army"},
                                  TextBox{MaxNumberLength, "Select # of times to duplicate army"}};
    std::array<UpDown, 2> updDup{UpDown{txtDup[0], 1, MaxLines, 1, UpDown::Typing::WithinLimits,
                                        "Select # of times to duplicate army"},
                                 UpDown{txtDup[1], 1, MaxLines, 1, UpDown::Typing::WithinLimits,
                                        "Select # of times to duplicate army"}};
    /// 0 attacking up, 1 attacking down, 2 defending up, 3 defending down.
    std::array<Button, 4> sscListArrow{Button{"Army Up", "Move the selected army up in the list"},
                                       Button{"Army Dn", "Move the selected army down in the list"},
                                       Button{"Army Up", "Move the selected army up in the list"},
                                       Button{"Army Dn", "Move the selected army down in the list"}};

    /// The pop-up menu of the lists. Its items 1 to 7 are the columns of the conditions; 0 is not used, 4 is
    /// the heading of the medals.
    std::array<MenuItem, 8> mnuPopupItem{
        MenuItem{""},      MenuItem{"Blessed"},    MenuItem{"Diseased"},      MenuItem{"Poisoned"},
        MenuItem{"Medal"}, MenuItem{"Blacksmith"}, MenuItem{"Weaponsmaster"}, MenuItem{"Flying"}};
    static constexpr std::size_t MedalItem = 4;
    std::array<MenuItem, 5> mnuPopupItemMedals{MenuItem{"0 Medals"}, MenuItem{"1 Medal"},
                                               MenuItem{"2 Medals"}, MenuItem{"3 Medals"},
                                               MenuItem{"4 Medals"}};
    MenuItem mnuPopupDelete{"Delete"};
    /// Raised when the pop-up menu is loaded for a list and is to be opened.
    Signal<Side> PopupMenuRequested;

private:
    [[nodiscard]] static constexpr std::size_t Of(Side side) { return static_cast<std::size_t>(side); }

    // frmBrawlpad.cpp
    void sscMoreResults_Click();
    void sscExit_Click();

    // Settings.cpp
    void LoadArmyCombos();
    void LoadTerrainCombo();
    void LoadCityLevelCombo();
    void cboArmies_Click(Side side);
    void txtCombatDice_Change();
    [[nodiscard]] static int txtNumSimulations_KeyPress(int key);
    void txtNumSimulations_Change();
    void cboTerrain_Click();

    // Lists.cpp
    void lstArmies_DblClick(Side side);
    void sscClearList_Click(Side side);
    void sscDup_Click(Side side);
    void sscListArrow_Click(std::size_t index);

    // Conditions.cpp
    void mnuPopupItem_Click(std::size_t index);
    void mnuPopupItemMedals_Click(std::size_t index);
    void mnuPopupDelete_Click();
    void DisableMenuItems();
    void EnableMenuItems();
    /// The list that the menu acts on.
    [[nodiscard]] Side FocusedSide() const;
    /// Puts the mark on a line's text, or takes it off, as far as the line's state calls for it.
    void MarkLine(Side side, Long line);
    void UnmarkLine(Side side, Long line);

    // Assembly.cpp
    void cmdAttack_Click();
    [[nodiscard]] bool VerifyForm();
    /// Whether both sides have an army to send: one line of the attackers' first stack, and one of the
    /// defenders, is more than "None". Warns like VerifyForm otherwise.
    [[nodiscard]] bool VerifyArmies();
    [[nodiscard]] bool HasArmy(Side side, Long lineCount) const;
    void WarnOfMissingArmies();
    void FillArmyCollections();
    void AddAttacker(Long row, Long position);
    void AddDefender(Long row, Long position);
    void AddEntry(Side side, Long row, Long position);
    /// What a catalogue row and a line's conditions give to an army list.
    [[nodiscard]] ArmyEntry EntryOf(Long row, const HealthRow& health) const;
    void sscAbort_Click();

    // Changes.cpp
    void ShowState();
    /// Whether the quick results are of another battle than the one that is set up. A hero of other values
    /// makes it another one, the number of battles and the marks behind the names do not.
    [[nodiscard]] bool AreResultsOutOfDate() const;
    void Restore(const Setup& setup);
    void sscSwapSides_Click();
    /// A new line's entry, told apart from all others.
    [[nodiscard]] ListEntry NewLine(std::string text, Long datum) {
        return {std::move(text), datum, ++lastLineId_};
    }

    // LiveOdds.cpp
    /// Shows the odds of what is set up, if they are not shown already.
    void ShowOdds();
    /// The odds of a battle, or nothing where they take too long.
    [[nodiscard]] std::optional<Odds::BattleOdds> ComputeOdds(const BattleDescription& battle) const;
    /// What the detailed results are told about the last run.
    [[nodiscard]] frmMoreResults::Background BackgroundOfRun() const;
    /// How the heroes count in the odds.
    [[nodiscard]] std::string HeroesInWords(const BattleDescription& battle) const;

    // Exchange.cpp
    [[nodiscard]] BattleText TextFormat() const;
    [[nodiscard]] BattleDescription::Line DescriptionOf(Side side, Long line) const;
    /// All that is set up but for the number of battles.
    [[nodiscard]] BattleDescription DescribeBattle() const;
    [[nodiscard]] std::string ResultsAsText() const;
    void AddLines(Side side, const std::vector<BattleDescription::Line>& lines);
    /// The values that a hero type's editor leaves when it is confirmed untouched; nothing for other units.
    [[nodiscard]] std::optional<HeroValues> UntouchedHero(Long datum) const;

    // What the army lists ask for.
    void EditHero(CArmy& hero) override;

    // What the engine asks for.
    [[nodiscard]] const CAttackArmies& AttackArmies() const override { return *gobjCAttArmies; }
    [[nodiscard]] const CAttackArmies& DefendArmies() const override { return *gobjCDefArmies; }
    void ShowBusy(bool busy) override { toolkit_->ShowBusy(busy); }
    void ShowProgressBar() override { pbBattleProgress.Visible = true; }
    void ShowProgress(Long percent) override { pbBattleProgress.Value = percent; }
    void ShowProgressText(const std::string& text) override { sbrBrawlpad[1].Text = text; }
    void ProcessEvents() override { toolkit_->ProcessEvents(); }
    void ShowWinPercent(const std::string& text) override;
    void ShowAverage(Long column, const std::string& text) override;
    void ShowStats(CStackAtt& attackStack, CStackAtt& defendStack) override;

    const CatalogueProvider* provider_;
    Toolkit* toolkit_;
    const Table* armies_ = nullptr;
    const Table* heroes_ = nullptr;
    std::string numBattles_;
    std::string terrain_;
    std::array<HealthArray, 2> health_;
    std::optional<CAttackArmies> gobjCAttArmies;
    std::optional<CAttackArmies> gobjCDefArmies;
    frmMoreResults moreResults_;
    Setup settled_;
    History<Setup, std::string Setup::*> history_;
    std::int32_t lastLineId_ = 0;
    /// What was entered for heroes in the last run, or pasted with them, by their line's identity.
    std::map<std::int32_t, HeroValues> heroValues_;
    /// The battle of the last run, under way or over, and that of the run whose quick results are shown: an
    /// aborted run shows none. The heroes are as they were entered.
    BattleDescription assembled_;
    std::optional<BattleDescription> fought_;
    /// The battle whose odds are shown.
    BattleDescription oddsOf_;
    std::vector<Connection> touching_;
    /// What was set up when the run's assembly began.
    Setup assembledSetup_;
    /// The line that is being put into its army list.
    Side assembledSide_ = Side::Attack;
    Long assembledLine_;
};

} // namespace vorhaven
