// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/hero/HeroView.h"
#include "app/program/FrameStyle.h"
#include "app/program/SideColours.h"
#include "app/results/MoreResultsView.h"
#include "app/results/StatsView.h"
#include "tests/app/WindowFixture.h"
#include "ui/hero/frmHero.h"

#include <QAbstractSpinBox>
#include <QGroupBox>
#include <QStyleFactory>

#include <algorithm>
#include <cstdlib>

namespace vorhaven::test {
namespace {

using MainWindow = Window;

TEST_F(MainWindow, ButtonsAndBoxesDoWhatTheySay) {
    auto* const terrain = Find<QComboBox>(&main_, "Defender's Terrain");
    auto* const cityLevel = Find<QComboBox>(&main_, "City Level");
    EXPECT_EQ(terrain->currentText(), "field");
    EXPECT_FALSE(cityLevel->isEnabled());
    // What is chosen arrives: a city has a level, and nothing else has.
    const struct {
        QComboBox* Box;
        Qt::Key Key;
        const char *Terrain, *CityLevel;
    } cases[] = {{terrain, Qt::Key_Home, "city", "Village (+1)"},
                 {cityLevel, Qt::Key_End, "city", "Citadel (+3)"},
                 {terrain, Qt::Key_End, "woods", ""},
                 {terrain, Qt::Key_Home, "city", "Village (+1)"}};
    for (const auto& c : cases) {
        QTest::keyClick(c.Box, c.Key);
        Wheel(c.Box); // which is meant for what lies behind the box
        EXPECT_EQ(terrain->currentText(), c.Terrain);
        EXPECT_EQ(cityLevel->currentText(), c.CityLevel);
        EXPECT_EQ(cityLevel->isEnabled(), *c.CityLevel != '\0');
        EXPECT_EQ(pad_.Terrain(), c.Terrain);
        EXPECT_EQ(pad_.cboCityLevel.Text(), c.CityLevel);
    }
    // Nine defenders stand in a city and nowhere else.
    LineUp({"Oath Guard"}, QStringList(9, "Oath Guard"));
    EXPECT_FALSE(terrain->isEnabled());

    // The access keys press the buttons, which blink before they act.
    const auto pressAccessKey = [&](Qt::Key key, const std::function<bool()>& isDone) {
        QTest::keyClick(Battles(), key, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor(isDone)) << QKeySequence(key).toString().toStdString();
    };
    Type(Battles(), "55");
    pressAccessKey(Qt::Key_A, [&] { return ButtonCalled("More Results")->isEnabled(); });
    EXPECT_EQ(Battles()->text(), "50") << "an access key leaves the field that is being edited";
    pressAccessKey(Qt::Key_M, [] { return ResultsWindow() != nullptr; });
    Activate();
    pressAccessKey(Qt::Key_X, [&] { return !main_.isVisible(); });
}

TEST(FrameStyleTest, PaintsOneLineAroundTheContentsOfAGroupBoxBelowTheUsualTitle) {
    for (const QColor& window : {QColor(239, 239, 239), QColor(50, 50, 50)}) {
        QRect contents;
        const auto paint = [&](QStyle* style) {
            QGroupBox box("Setup");
            style->setParent(&box);
            box.setStyle(style);
            box.setPalette(window);
            box.resize(120, 70);
            contents = box.contentsRect();
            return box.grab().toImage();
        };
        const QImage fusion = paint(QStyleFactory::create("fusion"));
        const QImage ours = paint(new FrameStyle);
        const auto isLine = [&](int x, int y) {
            const int contrast = std::abs(qGray(ours.pixel(x, y)) - qGray(window.rgb()));
            EXPECT_TRUE(contrast <= 4 || (contrast >= 18 && contrast <= 26)) << contrast;
            return contrast >= 18;
        };
        QList<int> columns, rows;
        for (int x = 0; x < ours.width(); ++x)
            if (isLine(x, contents.center().y()))
                columns += x;
        for (int y = 0; y < ours.height(); ++y)
            if (isLine(contents.right() - 10, y))
                rows += y;
        EXPECT_EQ(columns, (QList{contents.left() - 2, contents.right() + 3}));
        EXPECT_EQ(rows, (QList{contents.top() - 2, contents.bottom() + 3}));
        const QRect title(0, 0, ours.width(), contents.top() - 3);
        EXPECT_EQ(ours.copy(title), fusion.copy(title));
    }
}

TEST_F(MainWindow, TheOddsTableShowsEachSidesColourWhereItsColumnsAre) {
    const QImage odds = Find<QGroupBox>(&main_, "Exact Odds")->grab().toImage();
    PerSide<int> left{odds.width(), odds.width()};
    for (int x = odds.width() - 1; x >= 0; --x)
        for (int y = 0; y < odds.height(); ++y)
            for (const Side side : BothSides)
                if (odds.pixelColor(x, y) == SideColour(side, main_.palette()))
                    left[side] = x;
    EXPECT_LT(left.Attacker, left.Defender);
    EXPECT_LT(left.Defender, odds.width());
}

TEST_F(MainWindow, NumberBoxesKeepTheirLastNumberWhileTheirTextIsNone) {
    const struct {
        const char *Box, *Typed;
        const TextBox& Model;
        const char *Arrives, *StandsAfterwards;
    } cases[] = {
        {"Combat Dice", "24", pad_.txtCombatDice, "24", "24"},
        {"Combat Dice", "", pad_.txtCombatDice, "24", "24"},
        {"Combat Dice", "7", pad_.txtCombatDice, "24", "24"}, // below the arrows' limits
        {"Combat Dice", "101", pad_.txtCombatDice, "24", "24"},
        {"Combat Dice", "1234567", pad_.txtCombatDice, "24", "24"},
        {"Number of Duplicates, Attacking Armies", "32", pad_.txtDup[Side::Attacker], "32", "32"},
        {"Number of Duplicates, Attacking Armies", "33", pad_.txtDup[Side::Attacker], "3", "3"},
        {"Number of Duplicates, Defending Armies", "3", pad_.txtDup[Side::Defender], "3", "3"},
        {"Number of Duplicates, Defending Armies", "-1", pad_.txtDup[Side::Defender], "3", "3"},
        {"Number of Battles", "1x2-3.4e5", pad_.txtNumSimulations, "12345", "12340"},
        {"Number of Battles", "123456789", pad_.txtNumSimulations, "12345678", "12345670"},
        {"Number of Battles", "", pad_.txtNumSimulations, "", "10"},
        {"Number of Battles", "7", pad_.txtNumSimulations, "7", "10"},
        {"Number of Battles", "105", pad_.txtNumSimulations, "105", "100"},
    };
    for (const auto& c : cases) {
        auto* const box = Find<QWidget>(&main_, c.Box);
        // Left by the Tab key, by a click on a button, and by Enter where that does not attack.
        for (const char* way : {"Tab", "click", "Enter"}) {
            Type(box, c.Typed);
            EXPECT_EQ(c.Model.Text(), c.Arrives) << c.Box << ", typed " << c.Typed;
            if (*way == 'T')
                QTest::keyClick(EditOf(box), Qt::Key_Tab);
            else if (*way == 'c' || box == Battles())
                Click(ButtonCalled("Clear List, Attacking Armies"));
            else
                QTest::keyClick(EditOf(box), Qt::Key_Return);
            EXPECT_EQ(EditOf(box)->text(), c.StandsAfterwards)
                << c.Box << ", typed " << c.Typed << ", left by " << way;
        }
    }
    // Attack, too, brings the last number back first.
    auto* const dice = Find<QAbstractSpinBox>(&main_, "Combat Dice");
    Type(dice, "x");
    InModalWindows({{MainTitle, [](QDialog& box) { box.accept(); }}});
    Click(ButtonCalled("Attack"));
    EXPECT_EQ(EditOf(dice)->text(), "24");
    Type(dice, "");
    QTest::keyClick(dice, Qt::Key_Up);
    EXPECT_EQ(EditOf(dice)->text(), "25");
    QTest::keyClick(dice, Qt::Key_PageDown);
    EXPECT_EQ(EditOf(dice)->text(), "24") << "one step, whatever the key asks for";

    // A screen reader is given the number and its limits, and may enter another one.
    auto* const heard = QAccessible::queryAccessibleInterface(dice)->valueInterface();
    QTest::keyClick(dice, Qt::Key_Up);
    EXPECT_EQ(heard->currentValue(), 25);
    EXPECT_EQ(heard->minimumValue(), 15);
    EXPECT_EQ(heard->maximumValue(), 100);
    heard->setCurrentValue(30);
    EXPECT_EQ(EditOf(dice)->text(), "30");
    heard->setCurrentValue(101);
    EXPECT_EQ(heard->currentValue(), 30);
}

TEST_F(MainWindow, EveryControlIsNamedDescribedAndReachedByTheTabKey) {
    CArmy record;
    frmHero hero(toolkit_);
    hero.Hero = &record;
    frmStats statistics(toolkit_, catalogue_, "field");
    frmMoreResults results(toolkit_, [] { return Long{10}; });
    HeroView heroView(hero, nullptr);
    StatsView statisticsView(statistics, nullptr);
    MoreResultsView resultsView(results, nullptr);

    const auto takesTab = [](const QWidget* widget) {
        return (widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->isHidden() &&
               qobject_cast<QAbstractSpinBox*>(widget->parentWidget()) == nullptr;
    };
    // What a widget tells the mouse, it tells a screen reader.
    for (const QWidget* window : std::initializer_list<const QWidget*>{&main_, &statisticsView})
        for (const QWidget* widget : window->findChildren<QWidget*>())
            EXPECT_TRUE(!takesTab(widget) || widget->accessibleDescription() == widget->toolTip())
                << widget->toolTip().toStdString();
    const auto isTold = [&](const Control& model) {
        const auto tells = [&](const QWidget* widget) {
            return widget->toolTip().toStdString() == model.ToolTip;
        };
        return std::ranges::any_of(main_.findChildren<QWidget*>() + statisticsView.findChildren<QWidget*>(),
                                   tells);
    };
    for (const Control* model : std::initializer_list<const Control*>{
             &pad_.cmdAttack, &pad_.sscAbort, &pad_.sscExit, &pad_.sscMoreResults, &pad_.sschkViewStats,
             &pad_.txtCombatDice, &pad_.txtNumSimulations, &pad_.cboTerrain, &pad_.cboCityLevel,
             &pad_.lblAttWinPercent, &pad_.cboArmies[Side::Attacker], &pad_.lstArmies[Side::Attacker],
             &pad_.sscDup[Side::Defender], &pad_.txtDup[Side::Defender], &pad_.sscClearList[Side::Attacker],
             &pad_.sscListArrow[3], &statistics.msfgStackStats.Attacker,
             &statistics.Panels.Defender.Raw()[2].Figure})
        EXPECT_TRUE(isTold(*model)) << model->ToolTip;

    for (QWidget* window : std::initializer_list<QWidget*>{&main_, &heroView, &statisticsView, &resultsView})
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            SCOPED_TRACE(window->windowTitle().toStdString() + ": " + widget->metaObject()->className());
            EXPECT_TRUE(!takesTab(widget) || widget->window() != window || !NameOf(widget).isEmpty());
            const auto* const frame = qobject_cast<QGroupBox*>(widget->parentWidget());
            EXPECT_TRUE(takesTab(widget) || frame == nullptr || NameOf(widget) != frame->title())
                << "what fills a place is not its frame";
        }
    // Inspection tools find the fields of both tables by their names.
    for (const char* name : {"txtStrength", "updStrength", "txtAssass", "updFortification", "updTrample"})
        EXPECT_NE(heroView.findChild<QWidget*>(name), nullptr) << name;
    QStringList values;
    for (const QLabel* label : statisticsView.findChildren<QLabel*>())
        if (label->objectName().startsWith("lbl"))
            values += label->objectName().mid(3);
    EXPECT_EQ(
        values.join(' ').toStdString(),
        "AttRawLea AttRawMor AttRawFor AttRawCha AttRawFea AttRawSie AttAdjLea AttAdjMor AttAdjFor AttStackBonus "
        "DefRawLea DefRawMor DefRawFor DefRawCha DefRawFea DefRawSie DefAdjLea DefAdjMor DefAdjFor DefStackBonus");
    // The Tab key goes from the attackers over the middle to the defenders, through each once.
    QString path;
    QWidget* next = Picker(Side::Attacker);
    do {
        const QString name = NameOf(next);
        const auto* const part = name.endsWith(SideName(Side::Attacker))   ? "a"
                                 : name.endsWith(SideName(Side::Defender)) ? "d"
                                                                           : "m";
        if (takesTab(next) && !path.endsWith(part))
            path += part;
        next = next->nextInFocusChain();
    } while (next != Picker(Side::Attacker));
    EXPECT_EQ(path, "amd");
    EXPECT_EQ(main_.windowTitle(), MainTitle);
}

} // namespace
} // namespace vorhaven::test
