// SPDX-License-Identifier: GPL-3.0-or-later

#include "soak/Soak.h"
#include "tests/app/WindowFixture.h"

#include <QClipboard>

#include <random>

namespace vorhaven::soak {
namespace {

using namespace test;

/// A user who presses anything anywhere, in whatever window is in front.
class RandomUser final : public Window {
public:
    explicit RandomUser(unsigned seed) : random_(seed) {
        QGuiApplication::clipboard()->setText(
            "Attacking Armies\nOath Guard, blessed\nMarshal, strength 8\nDefending Armies\nReed Spears\nGate Wardens, 2 "
            "medals\n");
        Type(Battles(), "20");
        // Modal windows wait for the user in a loop of their own.
        QObject::connect(&inModalWindow_, &QTimer::timeout, [this] {
            if (QApplication::activeModalWidget() != nullptr)
                Act();
        });
        inModalWindow_.start(0);
    }

    /// Acts for a while. Nothing ends the program or leaves its rules, and a battle can be fought afterwards.
    void TestBody() override {
        for (int action = 0; action < 1'000 && !HasFailure(); ++action) {
            Act();
            QCoreApplication::processEvents();
            EXPECT_EQ(reported_, std::vector<std::string>{}) << "after " << action << " actions";
            for (const Side side : BothSides)
                EXPECT_LE(List(side)->count(), MaxLines);
            EXPECT_FALSE(List(Side::Defender)->count() > LinesPerStack && pad_.cboTerrain.Enabled);
        }
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        Activate();
        pad_.Paste(Side::Attacker, "Attacking Armies\nOath Guard\nDefending Armies\nOath Guard\n");
        Attack("20");
        EXPECT_EQ(MBattleCalc::BattleResults.RowCount(), 20);
    }

private:
    void Act() {
        QWidget* const front = Front();
        if (auto* const menu = qobject_cast<QMenu*>(front))
            return PressKey(menu);
        QList<QWidget*> widgets;
        for (QWidget* widget : front->findChildren<QWidget*>())
            if (widget->isVisible() && widget->isEnabled() && widget->focusPolicy() != Qt::NoFocus &&
                NameOf(widget) != "Exit" && NameOf(widget) != "More Results")
                widgets += widget;
        // What makes a battle, and what opens a list's menu, comes more often than chance would have it.
        if (front == &main_ && Any(8) == 0) {
            QListWidget* const list = List(Any(2) == 0 ? Side::Attacker : Side::Defender);
            list->setFocus();
            QTest::keyClick(list, Qt::Key_Down);
            return Any(2) == 0 ? QTest::keyClick(list, Qt::Key_V, Qt::ControlModifier)
                               : QTest::keyClick(list, Qt::Key_F10, Qt::ShiftModifier);
        }
        QWidget* const widget = widgets.isEmpty() ? front : widgets[Any(static_cast<int>(widgets.size()))];
        if (Any(3) == 0)
            return Click(widget);
        // Keys go to what has the focus, as they do outside of tests.
        front->activateWindow();
        widget->setFocus();
        if (widget->hasFocus())
            PressKey(widget);
    }

    int Any(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    QWidget* Front() {
        for (QWidget* window : {QApplication::activePopupWidget(), QApplication::activeModalWidget()})
            if (window != nullptr)
                return window;
        return &main_;
    }

    void PressKey(QWidget* widget) {
        constexpr std::array keys{
            Qt::Key_Tab,  Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space,     Qt::Key_Delete, Qt::Key_Up,
            Qt::Key_Down, Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Home,      Qt::Key_End,    Qt::Key_Menu,
            Qt::Key_A,    Qt::Key_C,      Qt::Key_O,      Qt::Key_V,         Qt::Key_Z,      Qt::Key_0,
            Qt::Key_2,    Qt::Key_Minus,  Qt::Key_Period, Qt::Key_Backspace, Qt::Key_F10};
        constexpr std::array modifiers{Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier,
                                       Qt::ShiftModifier};
        QTest::keyClick(widget, keys.at(static_cast<std::size_t>(Any(static_cast<int>(keys.size())))),
                        modifiers.at(static_cast<std::size_t>(Any(4))));
    }

    std::mt19937 random_;
    QTimer inModalWindow_;
};

TEST(RandomUsers, NeverEndTheProgramNorLeaveItsRules) {
    Repeat([](unsigned seed) { RandomUser{seed}.TestBody(); });
}

} // namespace
} // namespace vorhaven::soak
