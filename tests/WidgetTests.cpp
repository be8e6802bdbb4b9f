// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ErrorReport.h"
#include "app/MainView.h"
#include "app/QtToolkit.h"
#include "catalogue/CsvCatalogue.h"
#include "engine/MBattleCalc.h"
#include "ui/setup/frmBrawlpad.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace vorhaven::test {
namespace {

/// The real window on the offscreen platform, with hands that click and type. A modal window that no test
/// expects fails the test instead of waiting for ever.
class Window : public testing::Test {
protected:
    Window() {
        OnFatalError = [this](const ErrorReport& report) { reported_.push_back(report.Details); };
        toolkit_.Show(main_, pad_);
        Activate();
        watchdog_.setSingleShot(true);
        QObject::connect(&watchdog_, &QTimer::timeout, [] {
            ADD_FAILURE() << "stuck in a modal window";
            while (QWidget* modal = QApplication::activeModalWidget())
                modal->close();
        });
        watchdog_.start(20'000);
    }

    ~Window() override {
        MBattleCalc::AbortRequested = false;
        OnFatalError = ReportAndEnd;
    }

    template <class Widget>
    Widget* Named(const char* name, int nth = 0) {
        for (Widget* widget : view_->findChildren<Widget*>())
            if (widget->accessibleName() == QLatin1String(name) && nth-- == 0)
                return widget;
        ADD_FAILURE() << "no widget is called " << name;
        return nullptr;
    }
    QPushButton* ButtonCalled(const char* caption, int nth = 0, QWidget* in = nullptr) {
        for (QPushButton* button : (in != nullptr ? in : view_)->findChildren<QPushButton*>())
            if (button->text() == QLatin1String(caption) && nth-- == 0)
                return button;
        ADD_FAILURE() << "no button is called " << caption;
        return nullptr;
    }
    QComboBox* Picker(int side) {
        return Named<QComboBox>(side == 0 ? "Select Attacking Armies" : "Select Defending Armies");
    }
    QListWidget* List(int side) {
        return Named<QListWidget>(side == 0 ? "Attacking Armies" : "Defending Armies");
    }

    static void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    static void ClickLine(QListWidget* list, int line) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(line)).center());
    }
    /// Picks the entry of a name as a user does: opens the list, looks it up by its letters, presses Enter.
    void Pick(int side, const char* name) {
        Picker(side)->setFocus();
        for (const char* letter = name; *letter != '\0'; ++letter)
            QTest::keyClick(letter == name ? static_cast<QWidget*>(Picker(side)) : OpenList(side), *letter);
        QTest::keyClick(OpenList(side), Qt::Key_Return);
        Activate();
    }
    /// The offscreen platform does not give a window its focus back when something in front of it closes.
    void Activate() {
        view_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(view_));
    }
    QWidget* OpenList(int side) { return Picker(side)->view(); }

    /// Sends what a held Return key sends, wherever the focus is.
    void HoldReturn() {
        for (int repeat = 0; repeat < 3; ++repeat) {
            QWidget* const target =
                QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : view_;
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
            QApplication::sendEvent(target, &press);
        }
    }

    /// Does something in the next modal window, of which it says the title.
    void InNextModal(const char* title, std::function<void(QDialog&)> act) {
        QTimer::singleShot(0, view_, [this, title, act = std::move(act)] {
            auto* const modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (modal == nullptr || !modal->isVisible())
                return InNextModal(title, act);
            EXPECT_EQ(modal->windowTitle().toStdString(), title);
            // A press right after a window came up is taken for the end of a double click.
            QTest::qWait(QApplication::doubleClickInterval() + 1);
            act(*modal);
        });
    }

    CsvCatalogue catalogue_ = CsvCatalogue::BuiltIn();
    QtToolkit toolkit_;
    frmBrawlpad pad_{catalogue_, toolkit_};
    MainView main_{pad_};
    QWidget* view_ = &main_;
    QTimer watchdog_;
    std::vector<std::string> reported_;
};

TEST_F(Window, AddsAnArmyOnlyWhenTheUserPicksOne) {
    Pick(0, "Oath Guard");
    Pick(0, "Oath Guard");
    Picker(0)->setFocus();
    QTest::keyClick(Picker(0), Qt::Key_Down);
    QTest::keyClick(OpenList(0), Qt::Key_Escape);
    QWheelEvent wheel(QPointF(5, 5), Picker(0)->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Picker(0), &wheel);
    ASSERT_EQ(List(0)->count(), 2);
    EXPECT_EQ(List(0)->item(0)->text(), "Oath Guard");
    EXPECT_EQ(List(0)->item(1)->text(), "Oath Guard");
    EXPECT_EQ(List(1)->count(), 0);
}

TEST_F(Window, MarksDuplicatesMovesAndDeletesTheLinesOfAList) {
    Pick(1, "Gate Wardens");
    Pick(1, "Bell Choir");
    ClickLine(List(1), 1);
    QTest::mouseDClick(List(1)->viewport(), Qt::MiddleButton, {},
                       List(1)->visualItemRect(List(1)->item(1)).center());
    ASSERT_EQ(List(1)->count(), 2);
    QTest::keyClick(List(1), Qt::Key_F10, Qt::ShiftModifier);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().front()->text(), "Blessed");
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().front()).center());
    EXPECT_EQ(List(1)->item(1)->text(), "Bell Choir *");
    EXPECT_TRUE(pad_.Health(Side::Defend)(2).Blessed);

    Click(ButtonCalled("Army Up", 1));
    EXPECT_EQ(List(1)->item(0)->text(), "Bell Choir *");
    EXPECT_EQ(List(1)->currentRow(), 0);
    EXPECT_TRUE(List(1)->item(0)->isSelected());
    EXPECT_FALSE(List(1)->item(1)->isSelected());

    QTest::keyClick(Named<QAbstractSpinBox>("Number of Duplicates, Defending Armies"), Qt::Key_Up);
    Click(ButtonCalled("Duplicate", 1));
    EXPECT_EQ(List(1)->count(), 4);
    List(1)->setFocus();
    QTest::keyClick(List(1), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(List(1), Qt::Key_Delete);
    EXPECT_EQ(List(1)->count(), 0);
}

TEST_F(Window, KeepsTheNumberOfBattlesClean) {
    auto* const field = Named<QLineEdit>("Number of Battles");
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "-1a2.3e4");
    EXPECT_EQ(field->text(), "1234");
    field->selectAll();
    QApplication::clipboard()->setText("2,575 battles");
    field->paste();
    EXPECT_EQ(field->text(), "2575");
    Pick(0, "Oath Guard");
    EXPECT_EQ(field->text(), "2570");
    Pick(1, "Oath Guard");

    // The access key presses Attack while the field is being edited.
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "55");
    QTest::keyClick(field, Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pad_.lblAttWinPercent.Caption.Get().empty(); }));
    EXPECT_EQ(field->text(), "50");
    EXPECT_EQ(MBattleCalc::BattleResults.RowCount(), 50);
}

TEST_F(Window, KeepsTheLastNumberOfDiceWhileItsTextIsNone) {
    auto* const dice = Named<QAbstractSpinBox>("Combat Dice");
    QTest::keyClick(dice, Qt::Key_Up);
    EXPECT_EQ(pad_.CombatDice, 21);
    auto* const edit = dice->findChild<QLineEdit*>();
    edit->selectAll();
    QTest::keyClicks(edit, "7");
    EXPECT_EQ(pad_.CombatDice, 21) << "below the arrows' limits";
    QTest::keyClick(dice, Qt::Key_Down);
    EXPECT_EQ(edit->text(), "20");
    edit->clear();
    QTest::keyClicks(edit, "24");
    EXPECT_EQ(pad_.CombatDice, 24);
    edit->clear();
    EXPECT_EQ(pad_.CombatDice, 24);
    QTest::keyClick(dice, Qt::Key_Return);
    EXPECT_EQ(edit->text(), "24");
    dice->setFocus();
    QTest::keyClicks(edit, "x");
    Click(ButtonCalled("Clear List"));
    EXPECT_EQ(edit->text(), "24");
    EXPECT_TRUE(reported_.empty());
}

TEST_F(Window, KeepsAKeyThatIsHeldOnAttackAwayFromEverythingElse) {
    Pick(0, "Oath Guard");
    Pick(1, "Oath Guard");
    ButtonCalled("&Attack")->setFocus();
    pad_.txtNumSimulations.SetText("20000");
    QTimer::singleShot(0, view_, [this] { HoldReturn(); });
    HoldReturn();
    EXPECT_EQ(List(1)->count(), 1);
    EXPECT_TRUE(ButtonCalled("&Attack")->hasFocus());

    // What the user has moved to in the meantime keeps the focus.
    pad_.txtNumSimulations.SetText("1000000");
    QTimer::singleShot(0, view_, [this] {
        Click(ButtonCalled("A&bort"));
        List(1)->setFocus();
    });
    Click(ButtonCalled("&Attack"));
    EXPECT_TRUE(List(1)->hasFocus());
}

TEST_F(Window, WarnsOfAnEmptyListAndStaysReady) {
    InNextModal("Vorhaven 3 Combat Calculator", [](QDialog& box) { box.accept(); });
    Click(ButtonCalled("&Attack"));
    EXPECT_TRUE(ButtonCalled("&Attack")->isEnabled());
    EXPECT_TRUE(ButtonCalled("E&xit")->isEnabled());
    EXPECT_FALSE(ButtonCalled("&More Results")->isEnabled());
}

TEST_F(Window, AbortsALongRunAndShowsWhatItFought) {
    Pick(0, "Oath Guard");
    Pick(1, "Oath Guard");
    pad_.txtNumSimulations.SetText("1000000");
    QTimer::singleShot(0, view_, [this] {
        EXPECT_FALSE(ButtonCalled("&Attack")->isEnabled());
        Click(ButtonCalled("A&bort"));
    });
    Click(ButtonCalled("&Attack"));
    EXPECT_TRUE(pad_.lblAttWinPercent.Caption.Get().empty());
    EXPECT_EQ(MBattleCalc::BattleResults(1'000'000, MBattleCalc::ResultColumn::AttackersSlain) +
                  MBattleCalc::BattleResults(1'000'000, MBattleCalc::ResultColumn::DefendersSlain),
              0);
    EXPECT_TRUE(ButtonCalled("&Attack")->hasFocus());

    Click(ButtonCalled("&More Results"));
    QWidget* results = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->windowTitle() == "Detailed Combat Results")
            results = window;
    ASSERT_NE(results, nullptr);
    EXPECT_TRUE(results->isVisible());
    QTest::qWait(QApplication::doubleClickInterval() + 1);
    Click(ButtonCalled("&Done", 0, results));
    EXPECT_FALSE(results->isVisible());
}

TEST_F(Window, OpensTheEditorForEachHeroAndTheStatisticsOnce) {
    Pick(0, "Marshal");
    Pick(0, "Thane");
    Pick(1, "Castellan");
    pad_.sschkViewStats.Toggle();
    std::vector<std::string> opened;
    const auto editHero = [&](QDialog& editor, const char* strength) {
        opened.push_back(editor.accessibleDescription().toStdString());
        auto* const first = qobject_cast<QAbstractSpinBox*>(editor.focusWidget());
        ASSERT_NE(first, nullptr);
        EXPECT_EQ(first->accessibleName(), "Strength");
        QTest::keyClicks(first->findChild<QLineEdit*>(), strength);
        QTest::keyClick(&editor, Qt::Key_Return);
    };
    const char* const caption = "Hero Bonuses (Both Intrinsic and from Items)";
    InNextModal(caption, [&](QDialog& first) {
        InNextModal(caption, [&](QDialog& second) {
            opened.push_back(second.accessibleDescription().toStdString());
            InNextModal(caption, [&](QDialog& third) {
                InNextModal("Stack Statistics", [&](QDialog& stats) {
                    opened.emplace_back("statistics");
                    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
                    QTest::keyClick(&stats, Qt::Key_Return);
                });
                editHero(third, "3");
            });
            QTest::keyClick(&second, Qt::Key_Escape);
        });
        editHero(first, "14");
    });
    Click(ButtonCalled("&Attack"));
    EXPECT_EQ(opened, (std::vector<std::string>{"Attacking Armies, line 1", "Attacking Armies, line 2",
                                                "Defending Armies, line 1", "statistics"}));
    EXPECT_FALSE(pad_.lblAttWinPercent.Caption.Get().empty());
    EXPECT_TRUE(pad_.lstArmies[1].SelectedLines().empty());
}

TEST_F(Window, NamesEveryControlForScreenReaders) {
    for (const QWidget* widget : view_->findChildren<QWidget*>()) {
        // The line within a number box is reached through the box.
        const bool isPart = qobject_cast<QAbstractSpinBox*>(widget->parentWidget()) != nullptr;
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisibleTo(view_) || isPart)
            continue;
        const bool hasCaption = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                                qobject_cast<const QLabel*>(widget) != nullptr;
        EXPECT_TRUE(hasCaption || !widget->accessibleName().isEmpty()) << widget->metaObject()->className();
    }
}

// The last one: the program's event loop has been told to end, and no modal window stays open after that.
TEST_F(Window, EndsTheRunWhenItIsClosed) {
    Pick(0, "Oath Guard");
    Pick(1, "Oath Guard");
    pad_.txtNumSimulations.SetText("1000000");
    QTimer::singleShot(0, view_, [this] { view_->close(); });
    Click(ButtonCalled("&Attack"));
    EXPECT_TRUE(pad_.cmdAttack.Enabled);
    EXPECT_FALSE(view_->isVisible());
    EXPECT_TRUE(pad_.lblAttWinPercent.Caption.Get().empty());
}

} // namespace
} // namespace vorhaven::test

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setDoubleClickInterval(20); // ms
    return RUN_ALL_TESTS();
}
