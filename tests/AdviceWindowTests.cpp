// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "tests/support/FakeToolkit.h"
#include "ui/advice/Worth.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorhaven::test {
namespace {

/// The main window of a user who sees the window of advice beside it.
struct Advised : Game {
    Advised() {
        Do([&] { Add(Attacker, {Midges, Midges, Stalkers, Giants}); });
        Do([&] { Add(Defender, {Ghouls, Midges, Stalkers}); });
        Mark(Attacker, {1}, {1});
        Pad.Settle();
        Pad.OddsFrame.cmdAdvice.Press();
        Toolkit.BeIdle();
    }
    void Do(const std::function<void()>& action) {
        action();
        Pad.Settle();
        Toolkit.BeIdle();
    }
    void See(const AdvicePage& page) {
        const auto& pages = Pad.Advice().Pages;
        Advice.ChoosePage(static_cast<std::size_t>(std::ranges::find(pages, &page) - pages.begin()));
        Toolkit.BeIdle();
    }
    std::string Wins() const { return Pad.OddsFrame.lblChance.Attacker.Caption; }
    static const std::string& Cell(const AdviceTable& table, std::size_t row, std::size_t column) {
        return table.Rows().at(row).Cells.at(column).Text;
    }
    /// Does what acts on the set-up, which must then win as told, and takes it back.
    void ExpectOneStepTo(const std::string& wins, const std::function<void()>& act) {
        const vorhaven::Setup before = Pad.CurrentSetup();
        Pad.lstArmies[Attacker].Select({1, {0, 1}});
        Do([&] { Pad.txtNumSimulations.SetText("2000"); });
        Do(act);
        EXPECT_EQ(Wins(), wins);
        EXPECT_EQ(Pad.txtNumSimulations.Text(), "2000");
        EXPECT_NE(Pad.CurrentSetup().Sides, before.Sides);
        std::vector<std::int32_t> selected;
        for (const Long line : Pad.lstArmies[Attacker].SelectedLines())
            selected.push_back(Pad.lstArmies[Attacker].Entry(line).Id);
        std::ranges::sort(selected);
        EXPECT_EQ(selected, (std::vector{before.Sides.Attacker[0].Id, before.Sides.Attacker[1].Id}));
        for (const SetupLine& line : before.Sides.Attacker)
            EXPECT_TRUE(std::ranges::count(Pad.CurrentSetup().Sides.Attacker, line) == 1) << line.Text;
        Advice.Host().Undo();
        Toolkit.BeIdle();
        EXPECT_EQ(Pad.CurrentSetup().Sides, before.Sides) << "one step";
    }

    frmAdvice& Advice = Pad.Advice();
};

TEST(Advice, PutsTheArmiesIntoTheirBestOrder) {
    Advised player;
    OddsPanel& odds = player.Pad.OddsFrame;
    const Units units{player.Catalogue};
    BestOrdersStudy study{player.Pad.CurrentSetup(), units};
    while (!study.IsDone())
        ASSERT_GT(study.GoOn(1'000'000), 0);
    const std::string best = PercentText(study.Outcome().Won);
    const double gain = 100.0 * (study.Outcome().Wins() - study.AsItIs().value().Won);
    ASSERT_GT(gain, 1.0);
    EXPECT_EQ(odds.lblBestOrder.Caption.Get(),
              "Best order wins " + best + " (" + ToSignedText(gain, 1) + ")");
    EXPECT_EQ(odds.cmdUseIt.CaptionInWords.Get(),
              "Use It, best order wins " + best + ", " + PointsInWords(gain));
    player.ExpectOneStepTo(best, [&] { odds.cmdUseIt.Press(); });
    player.Do([&] { odds.cmdUseIt.Press(); });
    EXPECT_EQ(odds.lblBestOrder.Caption.Get(), "No order wins more");
    EXPECT_FALSE(odds.cmdUseIt.Visible);

    // A second stack changes the words; one attacker has no order.
    player.Do([&] { player.Add(Attacker, {Midges, Midges, Midges, Midges, Midges, Giants}); });
    player.Do([&] { player.Add(Defender, {Stalkers, Giants, Giants, Giants}); });
    const std::string several = odds.lblBestOrder.Caption;
    EXPECT_TRUE(several.starts_with("Best orders win ")) << several;
    // While it is not known yet nothing of the set-up before can be used, and a run keeps it waiting.
    player.Pad.DeleteArmyFromList(Attacker, 9);
    const auto changed = player.Pad.CurrentSetup();
    odds.cmdUseIt.Press();
    EXPECT_EQ(player.Pad.CurrentSetup(), changed);
    EXPECT_EQ(odds.lblBestOrder.Caption.Get(), several);
    player.Toolkit.OnEvents = [&] {
        player.Toolkit.BeIdle();
        EXPECT_EQ(player.Advice.lblProgress.Caption.Get(), "Waiting for the run");
        EXPECT_EQ(odds.lblBestOrder.Caption.Get(), several);
    };
    player.Pad.txtNumSimulations.SetText("10");
    player.Do([&] { player.Pad.cmdAttack.Press(); });
    EXPECT_NE(odds.lblBestOrder.Caption.Get(), several);
    EXPECT_EQ(player.Advice.lblProgress.Caption.Get(), frmAdvice::HoldsForAll);
    player.Do([&] { player.Pad.sscClearList[Attacker].Press(); });
    player.Do([&] { player.Add(Attacker, {Midges}); });
    EXPECT_EQ(odds.lblBestOrder.Caption.Get(), "");
}

TEST(Advice, TellsWhatEachLineIsWorth) {
    Advised player;
    ArmiesPage& page = player.Advice.Armies;
    const Units units{player.Catalogue};
    WorthStudy study{player.Pad.CurrentSetup(), units};
    while (!study.IsDone())
        ASSERT_GT(study.GoOn(1'000'000), 0);
    const LineWorth& worth = study.Lines().Defender[2].value();
    const auto& table = page.tblArmies;
    ASSERT_EQ(table.Rows().size(), 9U);
    EXPECT_EQ(Advised::Cell(table, 0, 0) + ", " + Advised::Cell(table, 5, 0),
              "Attacking Armies, Defending Armies");
    EXPECT_EQ(Advised::Cell(table, 2, 1), "blessed");
    player.Advice.Armies.tblArmies.Pick(5);
    EXPECT_EQ(table.Current(), 1U) << "a heading is no row";
    page.tblArmies.Pick(8);
    const double change = 100.0 * (worth.Without.value().Wins() - study.AsItIs().value().Won);
    EXPECT_EQ(Advised::Cell(table, 8, 6), ToSignedText(change, 1));
    EXPECT_EQ(table.Rows()[8].Cells[6].Words, PointsInWords(change));
    const std::string sentence = page.lblSentence.Caption;
    EXPECT_EQ(sentence, "Stalkers survives " + PercentText(worth.Survives) + ", slays " +
                            ToFixedText(worth.Slays.Armies, 2) + " armies (" +
                            ToFixedText(worth.Slays.Turns, 2) + " turns); without it the attacker wins " +
                            PercentText(worth.Without->Won));
    page.tblArmies.Activate();
    EXPECT_EQ(player.Pad.lstArmies[Defender].SelectedLines(), std::vector<Long>{2});
    // It stays the same army's, wherever that stands.
    player.Do([&] { player.Pad.ArmyUp(Defender).Press(); });
    EXPECT_EQ(table.Current(), 7U);

    player.Do([&] { player.Pad.sscClearList[Defender].Press(); });
    EXPECT_EQ(page.lblEmpty.Caption.Get(), "Pick armies for both sides");
    EXPECT_TRUE(table.Rows().empty());
    EXPECT_EQ(page.lblSentence.Caption.Get(), "");
}

TEST(Advice, MapsWhoSlaysWhom) {
    Advised player;
    player.Do([&] { player.Add(Attacker, {Nobody, Nobody, Nobody, Nobody, Giants, Midges}); });
    SlayingPage& page = player.Advice.Slaying;
    player.See(page);
    const auto& attackers = page.Armies(Attacker);
    ASSERT_EQ(attackers.size(), 6U);
    EXPECT_EQ(attackers[4].Line, 9U);
    EXPECT_TRUE(attackers[4].BeginsStack && !attackers[5].BeginsStack);
    // Rows and columns are in the order of the lists: the last of a stack meets the last defender first.
    double met = 0.0;
    for (std::size_t defender = 0; defender < 3; ++defender)
        met += page.At(0, defender).ByAttacker + page.At(0, defender).ByDefender;
    EXPECT_LT(met, page.At(3, 2).ByAttacker + page.At(3, 2).ByDefender);
    // Each is slain as often as it does not survive; all together are the losses of the exact odds.
    for (const Side side : BothSides)
        for (const SlayingPage::Army& army : page.Armies(side)) {
            const std::string survives =
                player.Pad.lstArmies[side].FigureOf(static_cast<std::int32_t>(army.Line) - 1).Sentence;
            EXPECT_EQ(survives,
                      "Survives " + PercentText({1.0 - army.IsSlain, army.IsSlain}) + " of battles");
        }
    const auto& losses = player.Pad.OddsFrame.Rows[0].Losses;
    EXPECT_EQ(SlayingPage::TotalText(page.TotalSlain(Attacker)) + " " +
                  SlayingPage::TotalText(page.TotalSlain(Defender)),
              losses.Attacker.Armies.Caption.Get() + " " + losses.Defender.Armies.Caption.Get());
    page.Pick({1, 2});
    EXPECT_EQ(page.lblSentence.Caption.Get(), "Line 2, Midges (blessed), slays line 3, Stalkers, in " +
                                                  ToFixedText(100.0 * page.At(1, 2).ByAttacker, 1) +
                                                  "% of battles, and is slain by it in " +
                                                  ToFixedText(100.0 * page.At(1, 2).ByDefender, 1) + "%");
    EXPECT_FALSE(page.IsSmall());
    EXPECT_EQ(page.SumText(0.456, Defender), "0.46");
    player.Pad.lstArmies[Defender].Select({2, {2}});
    player.Do([&] { player.Pad.ArmyUp(Defender).Press(); });
    EXPECT_EQ(page.Current().Defender, 1U) << "the cell stays with its armies";
    player.Do([&] { player.Add(Defender, std::vector<Long>(10, Midges)); });
    EXPECT_TRUE(page.IsSmall());
    EXPECT_EQ(page.SumText(0.456, Defender) + " " + page.SumText(1.7, Defender) + " " +
                  page.SumText(0.01, Defender) + " " + page.SumText(1.74, Attacker),
              ".5 2  1.7");
    EXPECT_EQ(SlayingPage::Figure(0.0) + "|" + SlayingPage::Figure(0.001) + "|" + SlayingPage::Figure(0.246),
              "|<1|25");
    const std::string said = player.Pad.OddsFrame.Announcement();
    EXPECT_TRUE(said.starts_with("Attacker " + player.Wins() + ", ") &&
                said.find(" points ") + 12 == said.size())
        << said;
}

TEST(Advice, TriesChangesAndAppliesOne) {
    Advised player;
    ChangesPage& page = player.Advice.Changes;
    player.See(page);
    const Units units{player.Catalogue};
    ChangesStudy study{player.Pad.CurrentSetup(), units};
    while (!study.IsDone())
        ASSERT_GT(study.GoOn(1'000'000), 0);
    const auto& rows = page.tblChanges.Rows();
    ASSERT_EQ(rows.size(), study.Changes().size());
    const auto isArmy = [](const TriedChange& tried) { return tried.Change.Kind == ChangeKind::OneMoreArmy; };
    const auto army = std::ranges::find_if(study.Changes(), isArmy);
    const auto row = static_cast<std::size_t>(army - study.Changes().begin());
    page.tblChanges.Pick(row);
    const std::string wins = PercentText(army->Outcome.Won);
    EXPECT_EQ(rows[row].Cells[2].Text, ToSignedText(100.0 * army->Gain, 1));
    EXPECT_EQ(page.lblSentence.Caption.Get(),
              army->Change.Text + ": the attacker wins " + wins + " instead of " + player.Wins());
    player.ExpectOneStepTo(wins, [&] { page.cmdApply.Press(); });
    page.cboShow.Choose(2);
    EXPECT_EQ(static_cast<std::ptrdiff_t>(rows.size()), std::ranges::count_if(study.Changes(), isArmy));
    EXPECT_EQ(rows[page.tblChanges.Current().value()].Cells[0].Text, army->Change.Text);

    // Figures of the set-up before are told as such, and cannot be acted on.
    player.Advice.Patience = std::chrono::milliseconds{0};
    player.Pad.DeleteArmyFromList(Defender, 2);
    player.Pad.Settle();
    EXPECT_TRUE(player.Advice.GoOn(1));
    EXPECT_TRUE(page.tblChanges.IsStale && !page.cmdApply.Enabled && player.Advice.pbProgress.Visible);
    const std::string progress = player.Advice.lblProgress.Caption;
    EXPECT_TRUE(progress.ends_with(" changes tried; figures of the set-up before")) << progress;
    const auto before = player.Pad.CurrentSetup();
    page.tblChanges.Activate();
    EXPECT_EQ(player.Pad.CurrentSetup(), before);
    player.Toolkit.BeIdle();
    EXPECT_TRUE(!page.tblChanges.IsStale && page.cmdApply.Enabled && !player.Advice.pbProgress.Visible);
    player.Pad.Advice().SetSeen(false);
    player.Pad.DeleteArmyFromList(Defender, 1);
    player.Pad.Settle();
    EXPECT_TRUE(page.IsUpToDate()) << "a window that nobody sees is not worked out";
}

TEST(Advice, ComparesTheOrdersOfAStack) {
    Advised player;
    OrdersPage& page = player.Advice.Orders;
    player.See(page);
    const auto& rows = page.tblOrders.Rows();
    ASSERT_GT(rows.size(), 0U);
    EXPECT_EQ(page.Points().size(), rows.size());
    EXPECT_EQ(player.Pad.OddsFrame.lblBestOrder.Caption.Get(),
              "Best order wins " + rows[0].Cells[0].Text + " (" + rows[0].Cells[1].Text + ")");
    EXPECT_TRUE(page.lblAbove.Caption.Get().ends_with(" (24 orders compared)"));
    std::string order;
    for (const auto& line : page.tblLines.Rows())
        order += line.Cells[0].Text + ' ' + line.Cells[2].Text + ';';
    const std::string wins = rows[0].Cells[0].Text;
    player.ExpectOneStepTo(wins, [&] {
        page.cmdUse.Press();
        std::string now;
        for (const SetupLine& line : player.Pad.CurrentSetup().Sides.Attacker)
            now += Units{player.Catalogue}.Name(line.Unit) + ' ' + std::to_string(line.Id) + ';';
        EXPECT_EQ(now, order) << "ids count lines here";
    });
    player.Do([&] { page.cmdUse.Press(); });
    EXPECT_EQ(rows[0].Cells[1].Text, "+0.0");
    EXPECT_FALSE(page.cmdUse.Enabled);
    // The second of two stacks.
    player.Do([&] { player.Add(Attacker, {Nobody, Nobody, Nobody, Nobody, Midges, Ghouls, Midges}); });
    EXPECT_EQ(page.cboStack.Items().size(), 2U);
    page.cboStack.Choose(1);
    player.Toolkit.BeIdle();
    EXPECT_EQ(page.tblLines.Rows().size(), 3U);
    EXPECT_EQ(page.tblLines.Columns()[0].Header, "Stack 2");
    player.Do([&] { player.Pad.sscClearList[Attacker].Press(); });
    player.Do([&] { player.Add(Attacker, {Giants}); });
    EXPECT_EQ(page.lblEmpty.Caption.Get(), "Two attackers or more have an order");
}

TEST(Advice, FindsTheFewestArmiesAndSelectsWhoMayStay) {
    Advised player;
    FewestArmiesPage& page = player.Advice.FewestArmies;
    player.See(page);
    const Units units{player.Catalogue};
    FewestArmiesStudy study{player.Pad.CurrentSetup(), units};
    while (!study.IsDone())
        ASSERT_GT(study.GoOn(1'000'000), 0);
    const auto& parts = study.Parts();
    ASSERT_GT(parts.size(), 3U);
    ASSERT_EQ(page.tblParts.Rows().size(), parts.size());
    const auto sentence = [&](std::size_t part) {
        return "send " + std::to_string(parts[part].Sent.size()) + " of 4 armies with " +
               ToText(parts[part].Turns) + " of 17 production turns: the attacker wins " +
               PercentText(parts[part].Outcome.Won);
    };
    // The field leads to the cheapest part that wins often enough.
    page.txtToWin.SetText(std::to_string(static_cast<int>(100.0 * parts[1].Outcome.Wins())));
    EXPECT_EQ(page.tblParts.Current(), 1U);
    EXPECT_EQ(page.lblSentence.Caption.Get(), "% of battles, " + sentence(1));
    page.tblParts.Pick(2);
    EXPECT_EQ(page.lblSentence.Caption.Get(), "% of battles. This row: " + sentence(2));
    page.cmdSelect.Press();
    std::vector<std::size_t> stays;
    for (const Long line : player.Pad.lstArmies[Attacker].SelectedLines())
        stays.push_back(line.Index());
    for (std::size_t line = 0; line < 4; ++line) {
        EXPECT_EQ(std::ranges::count(stays, line) + std::ranges::count(parts[2].Sent, line), 1);
        EXPECT_EQ(Advised::Cell(page.tblLines, line, 3),
                  std::ranges::count(stays, line) == 1 ? "may stay" : "");
    }
    for (const Long line : {3, 2, 1, 0})
        if (std::ranges::count(stays, line.Index()) == 1)
            player.Pad.DeleteArmyFromList(Attacker, line);
    player.Pad.Settle();
    EXPECT_EQ(player.Wins(), PercentText(parts[2].Outcome.Won));
    player.Toolkit.BeIdle();
    page.txtToWin.SetText("99");
    EXPECT_EQ(page.lblSentence.Caption.Get(),
              "% of battles. Not even all of them: the attacker wins " + player.Wins());
    EXPECT_FALSE(page.cmdSelect.Enabled);
    page.tblParts.Pick(0);
    page.txtToWin.SetText(std::to_string(static_cast<int>(100.0 * parts[2].Outcome.Wins())));
    EXPECT_EQ(page.lblSentence.Caption.Get(),
              "% of battles. All " + std::to_string(parts[2].Sent.size()) + " are needed");
}

} // namespace
} // namespace vorhaven::test
