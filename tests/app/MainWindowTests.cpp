// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/hero/HeroView.h"
#include "app/program/FrameStyle.h"
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
    QTest::qWait(1);
    EXPECT_EQ(LinesOf(Find<QGroupBox>(&main_, "Setup Options")).back(),
              "More than 8 defenders are always in a city");

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
        // Left by the Tab key, by a click on a button or a box, and by Enter where that does not attack.
        for (const char* way : {"Tab", "click", "Enter", "box"}) {
            Type(box, c.Typed);
            EXPECT_EQ(c.Model.Text(), c.Arrives) << c.Box << ", typed " << c.Typed;
            if (*way == 'T')
                QTest::keyClick(EditOf(box), Qt::Key_Tab);
            else if (*way == 'b')
                Click(EditOf(Find<QWidget>(&main_, box == Battles() ? "Combat Dice" : "Number of Battles")));
            else if (*way == 'c' || box == Battles())
                Click(ButtonCalled("Clear List, Attacking Armies"));
            else
                QTest::keyClick(EditOf(box), Qt::Key_Return);
            EXPECT_EQ(EditOf(box)->text(), c.StandsAfterwards)
                << c.Box << ", typed " << c.Typed << ", left by " << way;
        }
    }
}

TEST_F(MainWindow, NumberBoxesStepByOneAndTellTheirNumber) {
    auto* const dice = Find<QAbstractSpinBox>(&main_, "Combat Dice");
    Type(dice, "24");
    // Attack, too, brings the last number back first.
    Type(dice, "x");
    InModalWindows({{MainTitle, [](QDialog& box) { box.accept(); }}});
    Click(ButtonCalled("Attack"));
    EXPECT_EQ(EditOf(dice)->text(), "24");
    Type(dice, "");
    QTest::keyClick(dice, Qt::Key_Up);
    EXPECT_EQ(EditOf(dice)->text(), "25");
    Battles()->setFocus();
    Wheel(dice); // which is meant for what lies behind the box
    QTest::keyClick(dice, Qt::Key_PageDown);
    EXPECT_EQ(EditOf(dice)->text(), "24") << "one step, whatever the key asks for";

    for (const auto& [number, isMore] : {std::pair{"100", false}, {"99", true}, {"24", true}}) {
        Type(dice, number);
        EXPECT_EQ(pad_.updCombatDice.CanStep(1), isMore) << "whether the arrow is alive";
    }
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

bool TakesTab(const QWidget* widget) {
    return (widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->isHidden() &&
           qobject_cast<QAbstractSpinBox*>(widget->parentWidget()) == nullptr;
}

TEST_F(MainWindow, EveryControlIsNamedAndDescribed) {
    CArmy record;
    frmHero hero(toolkit_);
    hero.Hero = &record;
    frmStats statistics(toolkit_, catalogue_, "field");
    frmMoreResults results(toolkit_, [] { return Long{10}; });
    HeroView heroView(hero, nullptr);
    StatsView statisticsView(statistics, nullptr);
    MoreResultsView resultsView(results, nullptr);

    // What a widget tells the mouse, it tells a screen reader.
    for (const QWidget* window : std::initializer_list<const QWidget*>{&main_, &statisticsView})
        for (const QWidget* widget : window->findChildren<QWidget*>())
            EXPECT_TRUE(!TakesTab(widget) || widget->accessibleDescription() == widget->toolTip())
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
             &pad_.ResultsFrame.lblAttWinPercent, &pad_.cboArmies[Side::Attacker],
             &pad_.lstArmies[Side::Attacker], &pad_.sscDup[Side::Defender], &pad_.txtDup[Side::Defender],
             &pad_.sscClearList[Side::Attacker], &pad_.sscListArrow[3], &statistics.msfgStackStats.Attacker,
             &statistics.Panels.Defender.Raw()[2].Figure})
        EXPECT_TRUE(isTold(*model)) << model->ToolTip;

    for (QWidget* window : std::initializer_list<QWidget*>{&main_, &heroView, &statisticsView, &resultsView})
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            SCOPED_TRACE(window->windowTitle().toStdString() + ": " + widget->metaObject()->className());
            EXPECT_TRUE(!TakesTab(widget) || widget->window() != window || !NameOf(widget).isEmpty());
            const auto* const frame = qobject_cast<QGroupBox*>(widget->parentWidget());
            EXPECT_TRUE(TakesTab(widget) || frame == nullptr || NameOf(widget) != frame->title())
                << "what fills a place is not its frame";
        }
    EXPECT_EQ(main_.windowTitle(), MainTitle);
    // Inspection tools find the fields of both tables by their names.
    for (const char* name : {"txtStrength", "updStrength", "txtAssass", "updFortification", "updTrample"})
        EXPECT_NE(heroView.findChild<QWidget*>(name), nullptr) << name;
    QStringList values;
    for (const QLabel* label : statisticsView.findChildren<QLabel*>())
        if (label->objectName().startsWith("lbl"))
            values += label->objectName().mid(3);
    QStringList names;
    for (const char* side : {"Att", "Def"})
        for (const char* name : {"RawLea", "RawMor", "RawFor", "RawCha", "RawFea", "RawSie", "AdjLea",
                                 "AdjMor", "AdjFor", "StackBonus"})
            names += QString(side) + name;
    EXPECT_EQ(values, names);
}

TEST_F(MainWindow, TheKeysReachEveryControlOnce) {
    // The Tab key goes from the attackers over the middle to the defenders, through each once.
    QStringList path;
    QWidget* next = Picker(Side::Attacker);
    do {
        if (TakesTab(next) && next->isVisible())
            path += NameOf(next);
        next = next->nextInFocusChain();
    } while (next != Picker(Side::Attacker));
    const auto columnOf = [](const QString& side) {
        return QString("Select %1;%1;Army Up, %1;Army Dn, %1;Duplicate, %1;Clear List, %1;"
                       "Number of Duplicates, %1")
            .arg(side);
    };
    EXPECT_EQ(path.join(';'),
              columnOf(SideName(Side::Attacker)) +
                  ";Combat Dice;Number of Battles;Defender's Terrain;City Level;"
                  "View Stack Statistics;Swap Sides;Advice...;Attack;Abort;More Results;Exit;" +
                  columnOf(SideName(Side::Defender)));
    // No two access keys are the same.
    QString keys;
    for (const QAbstractButton* button : main_.findChildren<QAbstractButton*>())
        if (const auto mark = button->text().indexOf('&'); mark >= 0)
            keys += button->text().at(mark + 1).toUpper();
    std::ranges::sort(keys);
    EXPECT_EQ(std::ranges::adjacent_find(keys), keys.end()) << keys.toStdString();
    EXPECT_GE(keys.size(), 7);
}

} // namespace
} // namespace vorhaven::test
