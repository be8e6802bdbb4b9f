// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/GridView.h"
#include "tests/app/WindowFixture.h"
#include "ui/hero/frmHero.h"

#include <QAbstractSpinBox>
#include <QGroupBox>
#include <QScreen>
#include <QStatusBar>
#include <QToolTip>

#include <algorithm>

namespace vorhaven::test {
namespace {

using Dialogs = Window;

bool ShowsText(const QWidget& window, const QString& text) {
    return std::ranges::any_of(window.findChildren<QLabel*>(),
                               [&](const QLabel* label) { return label->text() == text; });
}

void ClickCell(GridView* grid, int row) {
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualItemRect(grid->item(row, 0)).center());
}

TEST_F(Dialogs, HeroFieldsTakeAnyNumberAndKeepTheLastWhileTheirTextIsNone) {
    const struct {
        const char *Box, *Typed, *StandsAfterwards;
        std::int32_t Stored;
        Long (*Read)(const CArmy&);
    } cases[] = {
        {"Strength", "300", "300", 255, [](const CArmy& hero) { return Long{hero.StartStrength}; }},
        {"Hits", "", "3", 3, [](const CArmy& hero) { return Long{hero.Hits}; }},
        {"Missle", "2.5", "2.5", 2, [](const CArmy& hero) { return hero.Missle; }},
        {"Assassination", "-3", "-3", -3, [](const CArmy& hero) { return hero.Assass; }},
        {"Curse", "x", "4", 4, [](const CArmy& hero) { return hero.Curse; }},
        {"Lightning", "1234567", "123456", 123456, [](const CArmy& hero) { return hero.Lightning; }},
        {"Acid", "x", "2000000000", 2'000'000'000, [](const CArmy& hero) { return hero.Acid; }}, // "2e9"
        {"Siege", "-", "0", 0, [](const CArmy& hero) { return hero.Siege; }},
    };
    CArmy record;
    record.Name = "An army with a name that is a good deal longer than any of the catalogue's names";
    record.Hits = 3;
    record.Curse = 4;
    record.Acid = 2'000'000'000;
    frmHero hero(toolkit_);
    hero.Hero = &record;
    hero.Whereabouts = "Defending Armies, line 9";
    hero.LastValues = HeroValues::From(record);
    hero.LastValues->Strength = 9;
    const auto fillIn = [&](QDialog& editor) {
        const QLabel* const name = FieldOf(&editor, "Name:")->findChild<QLabel*>();
        EXPECT_EQ(name->text().toStdString(), record.Name.Text());
        EXPECT_GE(name->width(), name->sizeHint().width());
        EXPECT_TRUE(ShowsText(editor, "Defending Armies, line 9"));
        // The last values' button goes on to the fields that it has filled.
        auto* const strength = Find<QAbstractSpinBox>(&editor, "Strength");
        QTest::keyClick(editor.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(EditOf(strength)->text(), "9");
        EXPECT_TRUE(strength->hasFocus());
        EXPECT_EQ(editor.findChildren<QAbstractSpinBox*>().size(), 14);
        EXPECT_EQ(editor.accessibleDescription(), name->text() + ", Defending Armies, line 9");
        for (const auto& c : cases) {
            auto* const box = Find<QAbstractSpinBox>(&editor, c.Box);
            Type(box, c.Typed);
            QTest::keyClick(EditOf(box), Qt::Key_Tab);
            EXPECT_EQ(EditOf(box)->text(), c.StandsAfterwards) << c.Box;
        }
        Type(Find<QAbstractSpinBox>(&editor, "Siege"), "y");
        QTest::keyClick(&editor, Qt::Key_D, Qt::AltModifier);
    };
    InModalWindows({{HeroTitle, fillIn}});
    toolkit_.ShowModal(hero);
    for (const auto& c : cases)
        EXPECT_EQ(c.Read(record), c.Stored) << c.Box;
}

/// Presses Return in a hero's editor; what has the focus then, nothing once it is closed.
QString PressReturn(QDialog& editor, int doubleClickInterval) {
    QApplication::setDoubleClickInterval(doubleClickInterval);
    QTest::keyClick(editor.focusWidget(), Qt::Key_Return);
    return editor.isVisible() ? NameOf(editor.focusWidget()) : "";
}

TEST_F(Dialogs, OneKeyOrDoubleClickConfirmsOneHero) {
    LineUp({"Marshal", "Thane"}, {"Castellan"});
    ClickLine(List(Side::Attacker), 0);
    QStringList opened;
    // What is pressed soon after an editor came up was meant for the one before.
    const auto confirmOnce = [&](QDialog& editor) {
        opened += editor.accessibleDescription();
        // The list behind the editor shows whose turn it is.
        const Side side = opened.size() < 3 ? Side::Attacker : Side::Defender;
        EXPECT_EQ(List(side)->currentRow(), opened.size() == 2 ? 1 : 0);
        EXPECT_EQ(NameOf(editor.focusWidget()), "Strength");
        QTest::keyClicks(EditOf(editor.focusWidget()), "9"); // in place of what stands there
        auto* const done = Find<QPushButton>(&editor, "Done");
        QApplication::setDoubleClickInterval(60'000);
        QTest::mouseClick(done, Qt::LeftButton);
        QTest::mouseDClick(done, Qt::LeftButton);
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClick(done, Qt::Key_Space);
        QApplication::setDoubleClickInterval(0);
        HoldKey(Qt::Key_Return, "\r");
        HoldKeyUnknown(Qt::Key_Return, "\r");
        EXPECT_TRUE(editor.isVisible());
        QTest::keyClick(opened.size() == 1 ? done : editor.focusWidget(),
                        opened.size() == 3 ? Qt::Key_Escape : Qt::Key_Return);
        EXPECT_FALSE(editor.isVisible());
    };
    InModalWindows({{HeroTitle, confirmOnce}, {HeroTitle, confirmOnce}, {HeroTitle, confirmOnce}});
    Attack("10");
    const QStringList heroes{"Marshal, Attacking Armies, line 1", "Thane, Attacking Armies, line 2",
                             "Castellan, Defending Armies, line 1"};
    EXPECT_EQ(opened, heroes);
    EXPECT_EQ(List(Side::Attacker)->currentRow(), 0);
    EXPECT_EQ(List(Side::Defender)->currentRow(), -1);
    EXPECT_NE(Beside(&main_, "Attacker Wins:"), "");

    // In the next run Return, Return repeats a hero.
    const auto repeat = [](QDialog& editor) {
        // The Castellan's editor was closed without Done, so nothing was entered there.
        const bool isEntered = !editor.accessibleDescription().startsWith("Castellan");
        EXPECT_EQ(PressReturn(editor, 60'000), isEntered ? "Last Values" : "Strength")
            << "meant for the editor before";
        if (isEntered) {
            EXPECT_EQ(PressReturn(editor, 0), "Strength");
            EXPECT_EQ(EditOf(editor.focusWidget())->text(), "9");
        }
        EXPECT_EQ(PressReturn(editor, 0), "");
    };
    InModalWindows({{HeroTitle, repeat}, {HeroTitle, repeat}, {HeroTitle, repeat}});
    Click(ButtonCalled("Attack"));
}

TEST_F(Dialogs, ForeignTextsAreShownLetterByLetterAndShort) {
    const auto isShownAsItIs = [](QLabel& label) {
        const QImage shown = label.grab().toImage();
        label.setTextFormat(Qt::PlainText);
        return label.grab().toImage() == shown;
    };
    const QString page = "<b>a page</b> ", none(QChar(0xFFFD));
    // clang-format off
    const struct { QString Text, Said; } cases[]{
        {"<img src=\"/dev/null\">", "Line 1: \"<img src=\"/dev/null\">\" is not a unit of the catalogue."},
        {page.repeated(99),
            "Line 1: \"" + page.repeated(2) + "<b>a page</…\" is not a unit of the catalogue."},
        {QString::fromStdString(std::string("a\0b\t\u202Ec", 8)),
            "Line 1: \"a" + none + "b" + none + none + "c\" is not a unit of the catalogue."},
        {QString(1 << 20, 'o'), "The text is too long to be a battle."},
    };
    // clang-format on
    for (const auto& c : cases) {
        QGuiApplication::clipboard()->setText(c.Text);
        const auto read = [&](QDialog& box) {
            const QString said = c.Said + "\nNothing was pasted.";
            const auto labels = box.findChildren<QLabel*>();
            const auto label = std::ranges::find(labels, said, &QLabel::text);
            ASSERT_NE(label, labels.end()) << labels.back()->text().toStdString();
            EXPECT_TRUE(isShownAsItIs(**label));
            EXPECT_LT(box.height(), 200);
            box.accept();
        };
        InModalWindows({{MainTitle, read}});
        QTest::keyClick(List(Side::Attacker), Qt::Key_V, Qt::ControlModifier);
        Activate();
    }
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(List(Side::Attacker), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Notice(), "The clipboard holds no text to paste");

    QToolTip::showText(main_.mapToGlobal(QPoint(9, 9)), page, &main_);
    const auto tips = QApplication::topLevelWidgets();
    const auto tip = std::ranges::find_if(
        tips, [](const QWidget* each) { return each->isVisible() && each->inherits("QTipLabel"); });
    ASSERT_NE(tip, tips.end());
    EXPECT_TRUE(isShownAsItIs(*qobject_cast<QLabel*>(*tip)));
}

TEST_F(Dialogs, TheMenuOfAHerosLineEditsItWithoutARun) {
    LineUp({"Oath Guard", "Marshal"}, {"Oath Guard"});
    const auto odds = [this] {
        QCoreApplication::processEvents();
        const auto labels = Find<QWidget>(&main_, "Exact Odds")->findChildren<QLabel*>();
        return (*std::ranges::find_if(labels, [](auto* label) { return label->text().endsWith('%'); }))
            ->text();
    };
    const QString before = odds();
    for (const auto& [line, isHero] : {std::pair{0, false}, {1, true}}) {
        ClickLine(List(Side::Attacker), line);
        QTest::keyClick(List(Side::Attacker), Qt::Key_F10, Qt::ShiftModifier);
        EXPECT_EQ(Item(OpenMenu(), "Edit Hero...")->isEnabled(), isHero);
        if (!isHero)
            OpenMenu()->close();
    }
    const auto strengthen = [](QDialog& editor) {
        EXPECT_EQ(editor.accessibleDescription(), "Marshal, Attacking Armies, line 2");
        Type(editor.focusWidget(), "14");
        QTest::keyClick(editor.focusWidget(), Qt::Key_Return);
    };
    InModalWindows({{HeroTitle, strengthen}});
    Choose("Edit Hero...");
    EXPECT_NE(odds(), before);
    EXPECT_EQ(Beside(&main_, "Attacker Wins:"), "");
    Activate();
    QTest::keyClick(List(Side::Attacker), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(odds(), before);
}

/// The statistics of two stacks, the attackers led by a Thane of many bonuses.
class Statistics : public Window {
protected:
    void Read(const std::function<void(QDialog&)>& read) {
        const auto giveBonuses = [](QDialog& editor) {
            for (const auto& [box, value] :
                 {std::pair{"Leadership", "9"}, {"Chaos", "1"}, {"Fear", "3"}, {"Siege", "1"}})
                Type(Find<QAbstractSpinBox>(&editor, box), value);
            QTest::keyClick(&editor, Qt::Key_Return);
        };
        LineUp({"Oath Guard", "Thane"}, {"Elder Boughs", "Floe Spears", "Night Blades"});
        Click(Find<QAbstractButton>(&main_, "View Stack Statistics"));
        InModalWindows({{HeroTitle, giveBonuses}, {"Stack Statistics", read}});
        Attack("10");
    }
};

TEST_F(Statistics, ShowBothStacksEachInItsPlace) {
    const auto captions =
        QString("Raw Leadership:,Raw Morale:,Raw Fortification:,Raw Chaos:,Raw Fear:,Raw Siege:,"
                "Adjusted Leadership:,Adjusted Morale:,Adjusted Fortification:,"
                "Total Stack Bonus:")
            .split(',');
    const struct {
        const char* Stack;
        QStringList Rows;   // name, strength, total strength, hits, terrain
        const char* Values; // raw, adjusted, in total
    } cases[] = {
        // clang-format off
        {"Attacking Stack", {"Oath Guard,6,11,3,city", "Thane,6,11,4,hills"}, "9,2,0,1,3,1,5,2,0,5"},
        {"Defending Stack", {"Elder Boughs,7,6,4,woods", "Floe Spears,4,3,2,ice", "Night Blades,4,3,1,city"},
            "0,0,2,0,0,0,-1,-1,1,-1"},
        // clang-format on
    };
    Read([&](QDialog& statistics) {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.Stack);
            const auto* const grid = Find<GridView>(&statistics, c.Stack);
            EXPECT_EQ(grid->columnCount(), 12);
            EXPECT_EQ(grid->horizontalHeaderItem(2)->text(), "Tot Str");
            EXPECT_TRUE(grid->selectedItems().empty());
            QStringList rows;
            for (int row = 0; row < grid->rowCount(); ++row) {
                QStringList cells;
                for (int column = 0; column < 5; ++column)
                    cells += grid->item(row, column)->text();
                rows += cells.join(',');
                EXPECT_TRUE(grid->item(row, 2)->font().bold() && !grid->item(row, 1)->font().bold());
            }
            EXPECT_EQ(rows, c.Rows) << "which a screen reader counts";
            QStringList values;
            for (const QString& caption : captions)
                values += Beside(Find<QGroupBox>(&statistics, c.Stack), caption);
            EXPECT_EQ(values.join(','), c.Values);
        }
        // In the middle of the screen, with a frame that is a title bar higher than wide.
        const QPoint offset =
            statistics.screen()->availableGeometry().center() - statistics.geometry().center();
        EXPECT_LE(std::abs(offset.x()), 6);
        EXPECT_LE(std::abs(offset.y()), 20);
        EXPECT_TRUE(statistics.screen()->availableGeometry().contains(statistics.geometry()));
        QTest::keyClick(&statistics, Qt::Key_Return);
    });
}

TEST_F(Statistics, ExplainAStrengthAndCopyTheirNumbers) {
    Read([](QDialog& statistics) {
        auto* const grid = Find<GridView>(&statistics, "Attacking Stack");
        for (const int quiet : {9, 11}) // False, and no medals
            EXPECT_NE(grid->item(0, quiet)->foreground(), grid->item(0, 1)->foreground());
        const QString why = "Tot Str of Oath Guard: 6 + 5 stack bonus = 11";
        EXPECT_EQ(grid->item(0, 4)->toolTip(), "Dsiplays information about attacking armies\n" + why);
        EXPECT_TRUE(ShowsText(statistics, "Select an army to see how its Tot Str came about"));
        QWidget* const done = statistics.focusWidget();
        ClickCell(grid, 0);
        EXPECT_TRUE(ShowsText(statistics, why));
        QTest::keyClick(grid, Qt::Key_Tab);
        EXPECT_NE(statistics.focusWidget(), grid);
        auto* const defenders = Find<GridView>(&statistics, "Defending Stack");
        ClickCell(defenders, 1);
        EXPECT_TRUE(
            LinesOf(defenders->parentWidget()).contains("Tot Str of Floe Spears: 4 - 1 stack bonus = 3"));
        QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QGuiApplication::clipboard()->text().section("Power", 0, 0),
                  "Name\tInit Str\tTot Str\tHits\tCB Name\tCB Val\t");
        EXPECT_EQ(QGuiApplication::clipboard()->text().count('\n'), 3);
        QTest::keyClick(done, Qt::Key_Space);
    });
}

TEST_F(Dialogs, ResultsLieBesideTheMainWindowAndComeUpAgainWhereTheyWere) {
    LineUp({"Oath Guard"}, {"Oath Guard"});
    Attack("100");
    Click(ButtonCalled("More Results"));
    QWidget* const results = ResultsWindow();
    ASSERT_NE(results, nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(results->isModal());
    EXPECT_EQ(results->windowType(), Qt::Window) << "a dialog stays in front of the main window";
    EXPECT_EQ(results->windowHandle()->transientParent(), nullptr);
    EXPECT_EQ(NameOf(results->focusWidget()), "Done");
    results->setGeometry(40, 50, 640, 480);
    Attack("10");
    EXPECT_TRUE(ShowsText(*results, "A newer run exists: press More Results to see it"));
    QTest::qWait(2);
    Click(Find<QPushButton>(results, "Done"));
    EXPECT_EQ(ResultsWindow(), nullptr);
    Click(ButtonCalled("More Results"));
    EXPECT_EQ(ResultsWindow(), results);
    EXPECT_EQ(results->geometry(), QRect(40, 50, 640, 480));
    results->setWindowState(Qt::WindowMinimized);
    Click(ButtonCalled("More Results"));
    EXPECT_FALSE(results->isMinimized());
}

} // namespace
} // namespace vorhaven::test
