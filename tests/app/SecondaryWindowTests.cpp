// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ChartView.h"
#include "app/GridView.h"
#include "app/HeroView.h"
#include "app/MainView.h"
#include "app/MoreResultsView.h"
#include "app/QtToolkit.h"
#include "app/StatsView.h"
#include "catalogue/CsvCatalogue.h"
#include "engine/MBattleCalc.h"
#include "tests/app/Descendants.h"
#include "ui/setup/frmBrawlpad.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace vorhaven::test {
namespace {

struct NoScreen final : Desktop {
    Size ScreenSize() const override { return {1000, 800}; }
    void ShowBusy(bool /*busy*/) override {}
    void ProcessEvents() override {}
    void ShowMessage(const std::string& /*prompt*/) override {}
};

QString Clipped() {
    return QApplication::clipboard()->text();
}

/// Ten battles: the attacker wins seven with a loss of two armies, the defender three with a loss of one.
void FightTen() {
    MBattleCalc::BattleResults.Redimension(10);
    for (Long battle = 1; battle <= 10; ++battle) {
        const bool attackerWins = battle <= 7;
        MBattleCalc::BattleResults(battle, 1) = attackerWins ? 1 : 0;
        MBattleCalc::BattleResults(battle, 2) = attackerWins ? 2 : 3;
        MBattleCalc::BattleResults(battle, 3) = 5;
        MBattleCalc::BattleResults(battle, 4) = attackerWins ? 4 : 1;
    }
}

/// What stands in a chart, from left to right.
QStringList TextsIn(ChartView& chart) {
    std::vector<std::pair<double, QString>> texts;
    for (int i = 0; i < chart.itemCount(); ++i)
        if (auto* const text = qobject_cast<QCPItemText*>(chart.item(i)))
            texts.emplace_back(text->position->key(), text->text());
    std::ranges::stable_sort(texts, {}, &std::pair<double, QString>::first);
    QStringList sorted;
    for (const auto& text : texts)
        sorted += text.second;
    return sorted;
}

TEST(SecondaryWindow, ChartsShowFiguresMarksMeanAndWhatCannotBe) {
    FightTen();
    NoScreen desktop;
    frmMoreResults results{desktop, [] { return Long{10}; }};
    MoreResultsView view(results, nullptr);
    const QList<ChartView*> charts = Descendants<ChartView>(view);
    ASSERT_EQ(charts.size(), 2);
    results.Form_Load();
    view.resize(1000, 700);
    view.show();
    QTest::qWait(1);
    EXPECT_EQ(TextsIn(*charts[0]), (QStringList{"70", "mean 2.3", "30"}));
    EXPECT_EQ(charts[0]->legend->itemCount(), 2);

    frmMoreResults::Background known{{30, 4}, std::array<LossOdds, 2>{}};
    (*known.ExactLosses)[0][2] = 0.8;
    (*known.ExactLosses)[0][3] = 0.2;
    results.Known = known;
    results.Form_Load();
    results.RunFinished();
    QTest::qWait(1);
    EXPECT_EQ(TextsIn(*charts[0]).mid(0, 3), (QStringList{"70", "mean 2.3", "30"}));
    EXPECT_EQ(TextsIn(*charts[0]).mid(3).join(' '), "31 only 30 armies were in the list 32");
    EXPECT_TRUE(TextsIn(*charts[1]).contains("only 4 armies were in the list"));
    EXPECT_EQ(charts[0]->legend->itemCount(), 3);
    EXPECT_EQ(charts[0]->graph(0)->dataCount(), 2);
    EXPECT_EQ(charts[0]->yAxis->range().upper, 80 * 1.3);
    EXPECT_EQ(charts[1]->yAxis->range(), charts[0]->yAxis->range());
    EXPECT_EQ(charts[1]->yAxis2->range(), charts[0]->yAxis2->range());
    for (const auto* label : view.findChildren<QLabel*>())
        EXPECT_EQ(label->text(), "A newer run exists: press More Results to see it");
    EXPECT_TRUE(charts[1]->accessibleDescription().contains(
        "exactly 4: 70.0% (exact odds 0.0%)\nat most 4: 100.0% (exact odds 0.0%)"));

    QTest::keyClick(charts[1], Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(Clipped().endsWith("\n32\t0\t0\nNumber of Battles\t10\n"));
}

TEST(SecondaryWindow, ResultsComeUpAgainWhereTheUserHadThem) {
    FightTen();
    const CsvCatalogue catalogue = CsvCatalogue::BuiltIn();
    QtToolkit toolkit;
    frmBrawlpad pad(catalogue, toolkit);
    MainView main(pad);
    toolkit.Show(main, pad);
    frmMoreResults results{toolkit, [] { return Long{10}; }};
    toolkit.Show(results);
    MoreResultsView* view = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* const found = dynamic_cast<MoreResultsView*>(window))
            view = found;
    ASSERT_NE(view, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(view));
    EXPECT_EQ(view->windowType(), Qt::Window) << "a dialog stays in front of the main window";
    view->setGeometry(40, 50, 640, 480);
    results.RunFinished();
    toolkit.Show(results);
    EXPECT_TRUE(results.lblNewerRun.Caption.Get().empty());
    QTest::qWait(QApplication::doubleClickInterval() + 1);
    QTest::mouseClick(view->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_FALSE(view->isVisible());
    toolkit.Show(results);
    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(view->geometry(), QRect(40, 50, 640, 480));
}

TEST(SecondaryWindow, StatisticsShowTheArmiesAloneAndHowTheirStrengthsCameAbout) {
    const CsvCatalogue catalogue = CsvCatalogue::BuiltIn();
    NoScreen desktop;
    frmStats stats{desktop, catalogue, "field"};
    CStackAtt attack, defend;
    for (const char* name : {"Oath", "Pack"}) {
        CArmy army;
        army.Name = name;
        army.StartStrength = army.TotalStrength = 6;
        attack.Add(army, "");
    }
    attack.Item(2).TotalStrength = 7;
    attack.Item(2).Blessed = true;
    stats.ShowStats(attack, defend, [] {});
    StatsView view(stats, nullptr);
    view.resize(1400, view.sizeHint().height());
    view.show();
    GridView* const grid = Descendants<GridView>(view).value(0);
    EXPECT_FALSE(grid->isRowHidden(1));
    EXPECT_TRUE(grid->isRowHidden(2));
    EXPECT_FALSE(grid->verticalScrollBar()->isVisible());
    EXPECT_TRUE(grid->selectedItems().isEmpty());
    EXPECT_EQ(view.focusWidget(), view.findChild<QPushButton*>());
    EXPECT_NE(grid->item(1, 9)->foreground(), grid->item(1, 8)->foreground()) << "False is quieter than True";

    const std::string why = "Tot Str of Pack: 6 + 1 blessed = 7";
    EXPECT_EQ(grid->item(1, 4)->toolTip().toStdString(),
              "Dsiplays information about attacking armies\n" + why);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(1, 0)).center());
    const QList<QLabel*> labels = view.findChildren<QLabel*>();
    EXPECT_TRUE(
        std::ranges::any_of(labels, [&](const QLabel* label) { return label->text().toStdString() == why; }));
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipped().count('\n'), 3);
    EXPECT_TRUE(Clipped().startsWith("Name\tInit Str\tTot Str\t"));
}

TEST(SecondaryWindow, HeroEditorGoesOnToTheFieldsThatItHasFilled) {
    NoScreen desktop;
    CArmy record;
    record.StartStrength = 6;
    record.Name = "Marshal";
    frmHero hero{desktop};
    hero.Hero = &record;
    hero.Whereabouts = "Attacking Armies, line 3";
    hero.LastValues = HeroValues::From(record);
    hero.LastValues->Strength = 9;
    HeroView view(hero, nullptr);
    hero.Form_Load();
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    const QList<QLabel*> labels = view.findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(
        labels, [](const QLabel* label) { return label->text() == "Attacking Armies, line 3"; }));
    QTest::qWait(QApplication::doubleClickInterval() + 1);
    auto* const strength = qobject_cast<QAbstractSpinBox*>(view.focusWidget());
    ASSERT_NE(strength, nullptr);
    QTest::keyClick(strength, Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return strength->text() == "9"; }));
    EXPECT_TRUE(strength->hasFocus());
    QTest::keyClick(strength, Qt::Key_Return);
    EXPECT_EQ(record.StartStrength, 9);
}

} // namespace
} // namespace vorhaven::test
