// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/BattleHost.h"
#include "model/CAttackArmies.h"
#include "model/Side.h"
#include "ui/advice/BestOrder.h"
#include "ui/advice/frmAdvice.h"
#include "ui/controls/Form.h"
#include "ui/controls/ListBox.h"
#include "ui/results/frmMoreResults.h"
#include "ui/setup/Battle.h"
#include "ui/setup/HealthArray.h"
#include "ui/setup/LastRun.h"
#include "ui/setup/LiveOdds.h"
#include "ui/setup/OddsPanel.h"
#include "ui/setup/QuickResultsPanel.h"
#include "ui/setup/Setup.h"
#include "ui/setup/SetupHistory.h"
#include "ui/setup/Toolkit.h"
#include "ui/setup/Units.h"

#include <array>
#include <map>
#include <optional>
#include <string>

namespace vorhaven {

/// The main window: settings, the two army lists with their conditions, and the runs. What concerns the
/// window as a whole is in frmBrawlpad.cpp; the other sources go by topic: Settings.cpp, Lists.cpp,
/// Conditions.cpp, Heroes.cpp, Run.cpp, CurrentSetup.cpp, Undo.cpp, ShowState.cpp, Clipboard.cpp,
/// Advice.cpp.
class frmBrawlpad final : public Form, private MBattleCalc::BattleHost, private AdviceHost {
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
    /// Whether a run shows the stack statistics of its first battle.
    [[nodiscard]] bool ViewStats() const { return sschkViewStats.Checked; }
    /// The defender's terrain.
    [[nodiscard]] const std::string& Terrain() const { return terrain_; }
    void SetTerrain(const std::string& terrain) { terrain_ = terrain; }
    /// Numbers of army types and hero types; a list line whose datum is their sum means no army.
    [[nodiscard]] Long NumArmies() const { return units_->NumArmies(); }
    [[nodiscard]] Long NumHeroes() const { return units_->NumHeroes(); }
    /// The catalogue's tables.
    [[nodiscard]] const Table& Armies() const override { return units_->Armies(); }
    [[nodiscard]] const Table& Heroes() const override { return units_->Heroes(); }

    void txtNumSimulations_LostFocus();

    /// A defending list of more than eight lines is in a city and nowhere else.
    void AdjustDefTerrain(Side side, Long lineCount);

    // Lists.cpp

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
    enum class MouseButton { Left = 1, Right = 2 };
    /// The right button on a list, or the menu key: loads the menu's items and opens it.
    void lstArmies_MouseUp(Side side, MouseButton button);
    /// Enables and disables the menu's Blessed, Diseased and Poisoned for the selected lines of a side.
    void EvaluateHealthConflicts(Side side);

    /// The conditions of the lines of a side.
    [[nodiscard]] HealthArray& Health(Side side) {
        return side == Side::Attacker ? AttHealthArray : DefHealthArray;
    }
    [[nodiscard]] const HealthArray& Health(Side side) const {
        return side == Side::Attacker ? AttHealthArray : DefHealthArray;
    }

    // Run.cpp

    /// Lowers the field's number of battles to the most whose losses can be added up. A view calls it before
    /// it presses Attack; a run of more raises error 6 at its end, when all its battles are fought.
    void LimitNumBattles();

    // CurrentSetup.cpp

    /// What the player has set up.
    [[nodiscard]] Setup CurrentSetup() const;

    // Undo.cpp

    /// Raised when something may have changed that Settle is to take in.
    Signal<> SetupTouched;
    /// Takes in what has changed since the last call, as one step to undo, and shows what follows from it. A
    /// view calls it once the user's action is over.
    void Settle() override;
    /// Goes back to the set-up before the last change, or forward to the one that the last Undo left.
    void Undo() override;
    void Redo() override;

    /// The quick results and the exact odds in sentences.
    [[nodiscard]] std::string ResultsInWords() const {
        return ResultsFrame.InWords() + " " + OddsFrame.InWords();
    }
    /// Raised with what a screen reader is to say: the results as a run ends, or on demand.
    Signal<std::string> ReadOut;

    // Clipboard.cpp

    /// The selected lines of a side as text; empty without any.
    [[nodiscard]] std::string SelectedLinesAsText(Side side) const;
    /// Copies the selected lines of a side; without any, what was copied before stays.
    void Copy(Side side);
    /// The whole set-up as text, with its exact odds and the quick results below it.
    [[nodiscard]] std::string BattleAsText() const;
    /// Takes a text as SelectedLinesAsText and BattleAsText write them: lines alone are added to a side, a
    /// battle takes the set-up's place. A text that cannot be read changes nothing and is answered with one
    /// message; one that does not fit, with one notice.
    void Paste(Side side, const std::string& text);

    // Advice.cpp

    /// Attack is disabled exactly as long as a run takes.
    [[nodiscard]] bool IsRunUnderWay() const override { return !cmdAttack.Enabled; }
    /// Raised when the window is to come to the front, and when a list is to have the focus besides.
    Signal<> ComeToFrontRequested;
    Signal<Side> GoToListRequested;
    /// Goes to the window of advice, if it is open.
    void GoToAdvice();
    /// The window of advice, whether it is open or not.
    [[nodiscard]] frmAdvice& Advice() { return advice_; }

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
    /// Gives the results and the odds to a screen reader.
    MenuItem mnuReadOut{"Read Out"};
    MenuItem mnuPaste{"Paste"};
    /// Raised with one sentence on an action that did nothing, or something more or else than was asked for.
    Signal<std::string> Noticed;

    Frame fraSetup{"Setup Options"};
    Label lblCombatDice{"Combat Dice:"};
    TextBox txtCombatDice{MaxNumberLength, "Select # of combat dice"};
    UpDown updCombatDice{txtCombatDice,           CombatDiceRange.Lowest,       CombatDiceRange.Highest,
                         CombatDiceRange.AtFirst, UpDown::Typing::WithinLimits, "Select # of combat dice"};
    CheckButton sschkViewStats{"View Stack Statistics", "See detailed info on stacks"};
    Label lblTerrain{"Defender's Terrain:"};
    ComboBox cboTerrain{"Select defender's terrain"};
    Label lblNumSimulations{"Number of Battles:"};
    /// As many digits as the highest number of battles has.
    TextBox txtNumSimulations{8, "Indicate # of battles to simulate"};
    Label lblCityLevel{"City Level:"};
    ComboBox cboCityLevel{"Select level of city"};

    OddsPanel OddsFrame;

    QuickResultsPanel ResultsFrame;

    /// Why the terrain cannot be chosen, or what frees it; empty while it can be chosen.
    Label lblTerrainLocked;
    /// How many lines each list has, of how many at most.
    PerSide<Label> lblCount;
    /// Above the column of the lines' chances of surviving; empty without odds.
    PerSide<Label> lblSurvives;

    Frame fraAttack{"Attacking Armies"};
    Frame fraDefend{"Defending Armies"};
    [[nodiscard]] Frame& FrameOf(Side side) { return side == Side::Attacker ? fraAttack : fraDefend; }

    PerSide<Label> lblArmies{Label{"Select Attacking Armies"}, Label{"Select Defending Armies"}};
    PerSide<ComboBox> cboArmies{ComboBox{"Select attacking armies"}, ComboBox{"Select defending armies"}};
    PerSide<ListBox> lstArmies{ListBox{"Double click armies to delete, right click for options"},
                               ListBox{"Double click armies to delete, right click for options"}};
    /// Beside the attacking list, where each of its stacks of eight lines begins.
    std::array<Label, MaxStacks> lblStack{Label{"Stack 1"}, Label{"Stack 2"}, Label{"Stack 3"},
                                          Label{"Stack 4"}};
    /// Beside the defending list, which is one stack.
    Label lblDefStack{"Stack 1"};
    PerSide<Button> sscClearList{Button{"Clear List", "Remove all armies from the list"},
                                 Button{"Clear List", "Remove all armies from the list"}};
    PerSide<Button> sscDup{
        Button{"Duplicate", "Add to the list the specified number of copies of the selected army"},
        Button{"Duplicate", "Add to the list the specified number of copies of the selected army"}};
    PerSide<Label> lblDup{Label{"Number of Duplicates"}, Label{"Number of Duplicates"}};
    PerSide<TextBox> txtDup{TextBox{MaxNumberLength, "Select # of times to duplicate army"},
                            TextBox{MaxNumberLength, "Select # of times to duplicate army"}};
    PerSide<UpDown> updDup{UpDown{txtDup.Attacker, 1, MaxLines, 1, UpDown::Typing::WithinLimits,
                                  "Select # of times to duplicate army"},
                           UpDown{txtDup.Defender, 1, MaxLines, 1, UpDown::Typing::WithinLimits,
                                  "Select # of times to duplicate army"}};
    /// 0 attacking up, 1 attacking down, 2 defending up, 3 defending down.
    std::array<Button, 4> sscListArrow{Button{"Army Up", "Move the selected army up in the list"},
                                       Button{"Army Dn", "Move the selected army down in the list"},
                                       Button{"Army Up", "Move the selected army up in the list"},
                                       Button{"Army Dn", "Move the selected army down in the list"}};

    [[nodiscard]] Button& ArmyUp(Side side) { return sscListArrow.at(2 * static_cast<std::size_t>(side)); }
    [[nodiscard]] Button& ArmyDown(Side side) {
        return sscListArrow.at(2 * static_cast<std::size_t>(side) + 1);
    }

    /// The pop-up menu of the lists; its caption is nowhere shown. Its items 1 to 7 are the columns of the
    /// conditions; 0 is not used, 4 is the heading of the medals.
    MenuItem mnuPopup{"Popup"};
    std::array<MenuItem, 8> mnuPopupItem{
        MenuItem{""},      MenuItem{"Blessed"},    MenuItem{"Diseased"},      MenuItem{"Poisoned"},
        MenuItem{"Medal"}, MenuItem{"Blacksmith"}, MenuItem{"Weaponsmaster"}, MenuItem{"Flying"}};
    static constexpr std::size_t MedalItem = 4;
    std::array<MenuItem, 5> mnuPopupItemMedals{MenuItem{"0 Medals"}, MenuItem{"1 Medal"},
                                               MenuItem{"2 Medals"}, MenuItem{"3 Medals"},
                                               MenuItem{"4 Medals"}};
    MenuItem mnuSep1{MenuItem::Separator};
    MenuItem mnuPopupDelete{"Delete"};
    /// Edits the hero of the current line; enabled where there is one.
    MenuItem mnuEditHero{"Edit Hero..."};
    /// Raised when the pop-up menu is loaded for a list and is to be opened.
    Signal<Side> PopupMenuRequested;

private:
    // frmBrawlpad.cpp
    void sscMoreResults_Click();
    /// Offers More Results unless the field asks for more battles than the last run had.
    void OfferMoreResults();
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
    void sscSwapSides_Click();
    /// The entry of a new line, with an identity of its own.
    [[nodiscard]] ListEntry NewLine(std::string text, Long unit) {
        return {std::move(text), unit, ++lastLineId_};
    }

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

    // Heroes.cpp
    void mnuEditHero_Click();
    /// Whether the current line of a list is a hero that can be edited now.
    [[nodiscard]] bool CanEditHero(Side side) const;
    /// Lets the user edit the hero of a line for the run that is being assembled; returns when the editor is
    /// closed.
    void EditHero(CArmy& hero, Side side, Long position);
    [[nodiscard]] std::string WhereaboutsOf(Side side, Long position) const;

    // Run.cpp
    void cmdAttack_Click();
    [[nodiscard]] bool VerifyForm();
    /// Whether both sides have an army to send. Warns like VerifyForm otherwise.
    [[nodiscard]] bool VerifyArmies();
    void WarnOfMissingArmies();
    void FillArmyCollections();
    void AddAttacker(Long row, Long position);
    void AddDefender(Long row, Long position);
    /// Adds the line on a position of a side to an army list.
    void AddEntry(CAttackArmies& armies, Side side, Long row, Long position);
    void sscAbort_Click();

    // CurrentSetup.cpp
    /// Shows a set-up in the controls. Lines without an Id are new and get one; what was selected stays
    /// selected, wherever it is now.
    void PutInPlace(const Setup& setup);

    // Undo.cpp
    void GoTo(const Setup& setup);

    // ShowState.cpp
    /// Shows what follows from the current set-up: notes, counts, what can be undone, odds, and whether the
    /// quick results are of an earlier one.
    void ShowState();
    /// Why the terrain cannot be chosen, or what frees it; empty while it can be chosen.
    [[nodiscard]] std::string RemarkOnTerrain() const;

    // Advice.cpp
    /// Lets the row of the best order and the window of advice be of a set-up.
    void FollowWithAdvice(const Setup& now);
    /// Goes on with both while the program is idle.
    void BeginAdvising();
    void cmdUseIt_Click();

    // What the window of advice asks for.
    void Use(const Setup& setup) override;
    void SelectLines(Side side, const std::vector<std::size_t>& lines) override;
    void GoToList(Side side) override { GoToListRequested.Raise(side); }
    void GoToMain() override { ComeToFrontRequested.Raise(); }

    // What the engine asks for.
    [[nodiscard]] const CAttackArmies& AttackArmies() const override { return *gobjCAttArmies; }
    [[nodiscard]] const CAttackArmies& DefendArmies() const override { return *gobjCDefArmies; }
    void ShowBusy(bool busy) override { toolkit_->ShowBusy(busy); }
    void ShowProgressBar() override { pbBattleProgress.Visible = true; }
    void ShowProgress(Long percent) override { pbBattleProgress.Value = percent; }
    void ShowProgressText(const std::string& text) override { sbrBrawlpad[1].Text = text; }
    void ProcessEvents() override { toolkit_->ProcessEvents(); }
    void BetweenBattles() override { toolkit_->ProcessOverdueEvents(); }
    void ShowWinPercent(const std::string& text) override;
    void ShowAverage(Long column, const std::string& text) override {
        ResultsFrame.ShowAverage(column, text);
    }
    void ShowStats(CStackAtt& attackStack, CStackAtt& defendStack) override;

    const CatalogueProvider* provider_;
    Toolkit* toolkit_;
    /// Empty until the window is loaded.
    std::optional<Units> units_;
    std::string numBattles_;
    std::string terrain_;
    HealthArray AttHealthArray;
    HealthArray DefHealthArray;
    /// The side that had the focus last, in whichever of its controls.
    Side sideUsedLast_ = Side::Attacker;
    AssemblyHost assemblyHost_;
    std::optional<CAttackArmies> gobjCAttArmies;
    std::optional<CAttackArmies> gobjCDefArmies;
    frmMoreResults moreResults_;
    LiveOdds liveOdds_{OddsFrame};
    BestOrder bestOrder_{OddsFrame};
    frmAdvice advice_{*toolkit_, *this, OddsFrame};
    /// The set-up that the advice is of.
    std::optional<Setup> advised_;
    std::int32_t lastLineId_ = 0;
    /// What was entered for the heroes of the lists, by the identity of their lines.
    std::map<std::int32_t, HeroValues> heroValues_;
    SetupHistory history_;
    LastRun lastRun_;
    std::vector<Connection> touching_;
};

} // namespace vorhaven
