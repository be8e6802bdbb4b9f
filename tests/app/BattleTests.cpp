// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/setup/ArmyListView.h"
#include "tests/app/WindowFixture.h"

#include <QAbstractSpinBox>
#include <QGroupBox>

namespace vorhaven::test {
namespace {

constexpr QRgb Blue = 0xff0a5a9c, Orange = 0xffb85400;

/// A battle that is set up by hand, with what the window tells of it.
class BattleByHand : public Window {
protected:
    QWidget* Odds() { return Find<QGroupBox>(&main_, "Exact Odds"); }
    /// Chooses an item of the menu of the attackers' current line.
    void Mark(const QString& item) {
        QTest::keyClick(List(Side::Attacker), Qt::Key_F10, Qt::ShiftModifier);
        QTest::qWait(1); // what opens the menu is over before something is chosen
        Choose(item);
        Activate();
    }
    /// The part of the bar of odds that is blue, in percent; the rest is orange. A screen reader calls the
    /// bar by both chances.
    int BluePart() {
        for (QWidget* bar : Odds()->findChildren<QWidget*>()) {
            if (bar->accessibleName() != Sentence() || bar->toolTip() != Sentence())
                continue;
            const QImage picture = bar->grab().toImage();
            int blue = 0, orange = 0;
            for (int x = 1; x < picture.width() - 1; ++x) {
                const QRgb pixel = picture.pixel(x, picture.height() / 3);
                blue += pixel == Blue && orange == 0 ? 1 : 0;
                orange += pixel == Orange ? 1 : 0;
            }
            EXPECT_GE(blue + orange, picture.width() - 5);
            return qRound(100.0 * blue / (blue + orange));
        }
        return -1;
    }
    QString Sentence() {
        const QString line = LinesOf(Odds()).front();
        return "The attacker wins " + line.section(' ', 1, 1) + " of battles, the defender " +
               line.section(' ', -2, -2);
    }
    static QString Told(QListWidget* list, int line) {
        return list->item(line)->data(Qt::AccessibleTextRole).toString();
    }
};

TEST_F(BattleByHand, TellsItsOddsAfterEveryChange) {
    EXPECT_EQ(QApplication::focusWidget(), Picker(Side::Attacker)) << "where one begins to type";
    LineUp({"Cliff Kites"}, {"None", "Ford Runners"});
    auto* const dice = Find<QAbstractSpinBox>(&main_, "Combat Dice");
    QListWidget* const list = List(Side::Attacker);
    ClickLine(list, 0);
    const auto press = [&](const QKeySequence& key) { QTest::keySequence(EditOf(dice), key); };
    // One against one, each with one hit: who alone misses loses. Kites have 3, Runners 2 of 20 faces.
    const struct {
        std::function<void()> Act;
        const char *Note, *Chances;
        int BluePart;
    } steps[] = {
        {[] {}, "", "61.4% 38.6%", 61},                                // 3 * 18 : 2 * 17
        {[&] { Mark("Blessed"); }, "blessed", "69.2% +7.9 30.8%", 69}, // 4 * 18 : 2 * 16
        {[&] { Mark("Blacksmith"); }, "blessed, blacksmith", "75.0% +5.8 25.0%", 75},
        {[&] { Type(dice, "25"); }, "blessed, blacksmith", "74.2% \u22120.8 25.8%", 74}, // 5 * 23 : 2 * 20
        {[&] { press(QKeySequence::Undo); }, "blessed, blacksmith", "75.0% +0.8 25.0%", 75},
        {[&] { press(QKeySequence::Redo); }, "blessed, blacksmith", "74.2% \u22120.8 25.8%", 74},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.Chances);
        step.Act();
        QTest::qWait(1);
        const QString chances = step.Chances, wins = chances.section(' ', 0, 0), note = step.Note;
        EXPECT_EQ(LinesOf(Odds()).front(), "Attacker " + chances + " Defender");
        EXPECT_EQ(BluePart(), step.BluePart);
        EXPECT_EQ(Told(list, 0),
                  "Cliff Kites" + (note.isEmpty() ? "" : " *, " + note) + ", survives " + wins);
        EXPECT_EQ(list->item(0)->data(ArmyListView::NoteRole).toString(), note);
        EXPECT_TRUE(list->item(0)->toolTip().endsWith("Survives " + wins + " of battles"));
        EXPECT_EQ(Told(List(Side::Defender), 1), "Ford Runners, survives " + chances.section(' ', -1));
    }
    EXPECT_EQ(EditOf(dice)->text(), "25") << "undone and redone by the window, not by the field";
    // Runners cost 1 turn and Kites 2: 40 in 155 battles.
    EXPECT_EQ(LinesOf(Odds()).mid(1, 5),
              (QStringList{"Attacker Defender", "Expected losses armies turns armies turns",
                           "Overall 0.3 0.5 0.7 0.7", "When the attacker wins 0.0 0.0 1.0 1.0",
                           "When the defender wins 1.0 2.0 0.0 0.0"}));
    EXPECT_EQ(Find<QLabel>(Odds(), "Expected losses, Defender, turns, Overall: 0.7")->text(), "0.7");
    const QImage odds = Odds()->grab().toImage();
    const QLabel* const row = Find<QLabel>(Odds(), "Expected losses");
    int blue = odds.width(), orange = odds.width();
    for (int x = odds.width() - 1; x >= 0; --x)
        for (int y = row->y() - row->height(); y < row->y(); ++y) {
            blue = odds.pixel(x, y) == Blue ? x : blue;
            orange = odds.pixel(x, y) == Orange ? x : orange;
        }
    EXPECT_TRUE(blue < orange && orange < odds.width()) << "each side's key beside its name";
    for (const Side side : BothSides) {
        const QString count = side == Side::Attacker ? "1 of 32" : "2 of 32";
        EXPECT_EQ(LinesOf(Find<QGroupBox>(&main_, SideName(side))).mid(0, 2),
                  (QStringList{"Select " + SideName(side) + ' ' + count, "survives"}));
    }
}

} // namespace
} // namespace vorhaven::test
