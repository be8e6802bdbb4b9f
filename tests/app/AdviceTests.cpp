// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/Contrast.h"
#include "app/program/SideColours.h"
#include "tests/app/WindowFixture.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <qcustomplot.h>

#include <cmath>

namespace vorhaven::test {
namespace {

class AdviceWindow : public Window {
protected:
    /// The window of advice, opened by its button.
    QWidget* Open() {
        Click(ButtonCalled("Advice..."));
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->windowTitle() == "Advice") {
                EXPECT_TRUE(QTest::qWaitForWindowActive(window));
                QTest::qWait(2); // what is pressed within the time of a double click does not count
                return window;
            }
        qFatal("no window of advice");
    }
    /// Turns to a page by its access key, and waits until it has been worked out.
    static void TurnTo(QWidget* advice, Qt::Key key, const AdvicePage& page) {
        QTest::keyClick(advice, key, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return page.IsUpToDate(); }, 20'000));
        QTest::qWait(1);
    }
    /// A table's header and rows as they are shown.
    static QStringList Shown(const QTableView* table) {
        QStringList lines;
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < table->model()->columnCount(); ++column)
                cells += table->model()->index(row, column).data().toString();
            lines += cells.join('|');
        }
        return lines;
    }
    /// Clicks on a column's header.
    static void SortBy(QTableView* table, int column) {
        QHeaderView* const header = table->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(column) + 5, 5});
    }
    /// What is shown in a column of figures, from the top.
    static std::vector<double> Figures(const QTableView* table, int column) {
        std::vector<double> figures;
        for (const QString& line : Shown(table))
            figures.push_back(line.section('|', column, column).replace("\u2212", "-").toDouble());
        return figures;
    }
    static void ExpectToShow(QTableView* table, const AdviceTable& model) {
        EXPECT_TRUE(table->isVisible());
        QStringList rows;
        for (const AdviceTable::Row& row : model.Rows()) {
            QStringList cells;
            for (std::size_t column = 0; column < model.Columns().size(); ++column)
                cells +=
                    column < row.Cells.size() ? QString::fromStdString(row.Cells[column].Text) : QString();
            rows += cells.join('|');
        }
        EXPECT_GT(rows.size(), 0);
        EXPECT_EQ(Shown(table), rows);
        const auto selected = table->selectionModel()->selectedRows();
        EXPECT_EQ(selected.isEmpty(), !model.Current());
        EXPECT_TRUE(selected.isEmpty() || selected[0].row() == static_cast<int>(*model.Current()));
    }
};

TEST_F(AdviceWindow, ShowsWhatItsPagesHaveAndActsOnTheMainWindow) {
    QWidget* const advice = Open();
    frmAdvice& model = pad_.Advice();
    const auto isEmpty = [&](const char* why) {
        return Find<QLabel>(advice, why)->isVisible() &&
               !Find<QTableView>(advice, "Single changes")->isVisible();
    };
    EXPECT_TRUE(isEmpty("Pick armies for both sides"));
    Activate();
    LineUp({"Oath Guard", "Ram Crew", "Hedge Archers"}, {"Gate Wardens", "Hill Hammers"});
    Open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !model.Armies.tblArmies.Rows().empty(); }, 20'000));
    EXPECT_EQ(Find<QWidget>(advice, QString::fromStdString(pad_.OddsFrame.lblSentence.Caption))->toolTip(),
              QString::fromStdString(pad_.OddsFrame.lblSentence.Caption));

    auto* const armies = Find<QTableView>(advice, "Armies of both sides");
    ExpectToShow(armies, model.Armies.tblArmies);
    const QColor base = armies->palette().color(QPalette::Base);
    const QImage bars = armies->viewport()->grab().toImage();
    for (const auto& [row, side] : {std::pair{2, Side::Attacker}, {6, Side::Defender}}) {
        const QPoint start = armies->visualRect(armies->model()->index(row, 2)).topLeft();
        EXPECT_EQ(bars.pixel(start + QPoint(3, 3)),
                  Mixed(SideColour(side, armies->palette()), base, 0.28).rgb());
    }
    // The arrow keys pass over the heading of the other side.
    armies->setFocus();
    for (int key = 0; key < 3; ++key)
        QTest::keyClick(armies, Qt::Key_Down);
    EXPECT_EQ(model.Armies.tblArmies.Current(), 5U);
    const QString sentence = QString::fromStdString(model.Armies.lblSentence.Caption);
    EXPECT_TRUE(sentence.startsWith("Gate Wardens survives ")) << sentence.toStdString();
    EXPECT_TRUE(Find<QLabel>(advice, sentence)->isVisible());
    QTest::keyClick(armies, Qt::Key_Return);
    EXPECT_TRUE(advice->isVisible());
    EXPECT_TRUE(List(Side::Defender)->item(0)->isSelected());
    // Sorted by a column, the sides keep their places; copied, it is what is shown.
    SortBy(armies, 3);
    const QStringList sorted = Shown(armies);
    EXPECT_TRUE(sorted[0].startsWith("Attacking Armies") && sorted[4].startsWith("Defending Armies"));
    EXPECT_GE(sorted[1].section('|', 3, 3).toDouble(), sorted[2].section('|', 3, 3).toDouble());
    QTest::keyClick(armies, Qt::Key_C, Qt::ControlModifier);
    const QStringList copied = QGuiApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
    EXPECT_EQ(copied[0],
              "Army\tConditions\tSurvives\tSlays armies\tSlays turns\tWithout it the attacker wins\tchange");
    EXPECT_EQ(copied.mid(1).replaceInStrings("\t", "|"), sorted);

    TurnTo(advice, Qt::Key_W, model.Slaying);
    auto* const map = Find<QTableView>(advice, SlayingPage::Title);
    EXPECT_TRUE(map->isVisible());
    const auto say = [&](int row, int column) {
        return map->model()->index(row, column).data(Qt::AccessibleTextRole).toString();
    };
    map->setFocus();
    for (const auto key : {Qt::Key_Up, Qt::Key_Left})
        QTest::keyClick(map, key);
    EXPECT_EQ(model.Slaying.lblSentence.Caption.Get(), say(1, 0).toStdString());
    EXPECT_TRUE(say(1, 0).startsWith("Line 2, Ram Crew, slays line 1, Gate Wardens, in "));
    // Each half is filled in its side's colour, the more the likelier, and its figure can be read.
    const QImage picture = map->viewport()->grab().toImage();
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 2; ++column) {
            const QRect cell = map->visualRect(map->model()->index(row, column));
            const Odds::Slaying& pair =
                model.Slaying.At(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
            for (const Side side : BothSides) {
                const double chance = side == Side::Attacker ? pair.ByAttacker : pair.ByDefender;
                const QColor fill = picture.pixelColor(
                    cell.left() + 5 + static_cast<int>(side) * cell.width() / 2, cell.top() + 5);
                EXPECT_LT(Contrast(fill, Mixed(SideColour(side, map->palette()), base,
                                               0.92 * std::pow(chance, 0.75))),
                          1.02);
            }
        }
    EXPECT_EQ(map->model()->index(3, 2).data().toString(),
              QString::fromStdString(pad_.OddsFrame.Rows[0].Losses.Defender.Armies.Caption));
    EXPECT_EQ(map->model()->index(3, 3).data().toString(),
              QString::fromStdString(pad_.OddsFrame.Rows[0].Losses.Attacker.Armies.Caption));
    QTest::keyClick(map, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(
        "\tGate Wardens\tHill Hammers\tslays\tis slain\nOath Guard\t"));

    // In a view that is too small the rest scrolls beside the sums, where one can go to all of it.
    map->setFixedSize(map->verticalHeader()->width() + 3 * map->columnWidth(2),
                      map->horizontalHeader()->height() + 2 * map->rowHeight(0));
    QTest::qWait(1);
    for (QScrollBar* bar : {map->horizontalScrollBar(), map->verticalScrollBar()}) {
        QRect edge = map->viewport()->rect();
        if (bar->orientation() == Qt::Horizontal)
            edge.setLeft(edge.right() + 1 - 2 * map->columnWidth(2));
        else
            edge.setTop(edge.bottom() + 1 - map->rowHeight(3));
        bar->setValue(bar->maximum());
        const QImage sums = map->viewport()->grab(edge).toImage();
        bar->setValue(0);
        EXPECT_EQ(map->viewport()->grab(edge).toImage(), sums);
        map->scrollTo(map->model()->index(2, 1));
        EXPECT_FALSE(map->visualRect(map->model()->index(2, 1)).intersects(edge));
        EXPECT_GT(bar->value(), 0);
    }

    TurnTo(advice, Qt::Key_C, model.Changes);
    auto* const changes = Find<QTableView>(advice, "Single changes");
    ExpectToShow(changes, model.Changes.tblChanges);
    const auto gain = changes->model()->index(0, 2).data(Qt::AccessibleTextRole).toString();
    EXPECT_TRUE(gain.startsWith("gain ") && gain.endsWith(" points"));
    const auto before = pad_.CurrentSetup();
    const int lastChange = changes->model()->rowCount() - 1;
    // The first click on a header puts the best first; what is done is the change of the row that is seen.
    SortBy(changes, 2);
    EXPECT_TRUE(std::ranges::is_sorted(Figures(changes, 2), std::greater{}));
    SortBy(changes, 3);
    EXPECT_TRUE(std::ranges::is_sorted(Figures(changes, 3)));
    changes->selectRow(lastChange);
    const QString wins = changes->model()->index(lastChange, 1).data().toString();
    EXPECT_NE(wins, QString::fromStdString(model.Changes.tblChanges.Rows().back().Cells[1].Text));
    changes->setFocus();
    QTest::keyClick(changes, Qt::Key_Return);
    EXPECT_EQ(QString::fromStdString(pad_.OddsFrame.lblChance.Attacker.Caption), wins);
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.Changes.IsUpToDate(); }, 20'000));
    EXPECT_EQ(model.Changes.tblChanges.Current(), 0U);
    QTest::keyClick(advice, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pad_.CurrentSetup(), before) << "from this window too";

    TurnTo(advice, Qt::Key_O, model.Orders);
    ExpectToShow(Find<QTableView>(advice, "Orders"), model.Orders.tblOrders);
    ExpectToShow(Find<QTableView>(advice, "Lines of the order"), model.Orders.tblLines);
    const QWidget* const plot = advice->findChild<QCustomPlot*>();
    auto* const hidden = QAccessible::queryAccessibleInterface(plot->parentWidget());
    EXPECT_TRUE(hidden->state().invisible && hidden->childCount() == 0) << "the table says it";
    EXPECT_FALSE(FieldOf(advice, "S&tack:")->isVisible()) << "there is one";
    auto* const use = Find<QPushButton>(advice, "Use This Order");
    EXPECT_EQ(use->isEnabled(), model.Orders.cmdUse.Enabled.Get());

    TurnTo(advice, Qt::Key_F, model.FewestArmies);
    auto* const toWin = FieldOf(advice, "To win at &least");
    Type(toWin, "1");
    const auto applied = pad_.CurrentSetup();
    QTest::keySequence(toWin, QKeySequence::Redo);
    EXPECT_NE(pad_.CurrentSetup(), applied);
    QTest::keySequence(toWin, QKeySequence::Undo);
    EXPECT_EQ(pad_.CurrentSetup(), applied);
    EXPECT_EQ(EditOf(toWin)->text(), "1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.FewestArmies.IsUpToDate(); }, 20'000));
    ExpectToShow(Find<QTableView>(advice, "Parts of the attackers"), model.FewestArmies.tblParts);
    ExpectToShow(Find<QTableView>(advice, "Who is sent and who may stay"), model.FewestArmies.tblLines);
    Click(Find<QPushButton>(advice, "Select What May Stay"));
    EXPECT_TRUE(List(Side::Attacker)->hasFocus() ||
                List(Side::Attacker)->window()->focusWidget() == List(Side::Attacker));
    EXPECT_GT(List(Side::Attacker)->selectedItems().size(), 0);

    auto* const tabs = advice->findChild<QTabBar*>();
    for (const auto& [key, page] : {std::pair{Qt::Key_PageDown, 0}, {Qt::Key_PageUp, 4}}) {
        QTest::keyClick(advice, key, Qt::ControlModifier);
        EXPECT_EQ(tabs->currentIndex(), page) << "round and round";
    }
    // From field to table to button to Done, and to the tabs last.
    QStringList path;
    for (QWidget* next = FieldOf(advice, "To win at &least"); path.size() < 6;
         next = next->nextInFocusChain())
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->isVisible() && !NameOf(next).isEmpty() &&
            qobject_cast<QAbstractSpinBox*>(next->parentWidget()) == nullptr)
            path += NameOf(next);
    EXPECT_EQ(
        path.join('|'),
        "To win at least|Parts of the attackers|Who is sent and who may stay|Select What May Stay|Done|Fewest Armies");

    // The page stays; F6 goes between the windows, Esc closes.
    main_.activateWindow();
    QTest::keyClick(&main_, Qt::Key_F6);
    EXPECT_TRUE(QTest::qWaitForWindowActive(advice));
    EXPECT_EQ(advice->findChild<QTabBar*>()->currentIndex(), static_cast<int>(model.CurrentPage()));
    QTest::keyClick(advice, Qt::Key_F6);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main_));
    EXPECT_EQ(Open(), advice);
    QTest::keyClick(advice, Qt::Key_Escape);
    EXPECT_FALSE(advice->isVisible());
    EXPECT_FALSE(model.IsSeen());
}

TEST_F(AdviceWindow, TheButtonOfTheBestOrderLeavesItsPlaceAndTheFocusGoesOn) {
    auto* const useIt = ButtonCalled("Use It");
    EXPECT_FALSE(useIt->isVisible());
    LineUp({"Oath Guard", "Ram Crew", "Hedge Archers", "Dale Lancers"},
           {"Gate Wardens", "Hill Hammers", "Oath Guard"});
    ASSERT_TRUE(QTest::qWaitFor([&] { return useIt->isVisible(); }, 20'000));
    EXPECT_TRUE(NameOf(useIt).startsWith("Use It, best order wins "));
    const QString row = QString::fromStdString(pad_.OddsFrame.lblBestOrder.Caption);
    EXPECT_TRUE(Find<QLabel>(&main_, row)->isVisible());
    const QRect place = useIt->geometry();
    QTest::keyClick(&main_, Qt::Key_U, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !useIt->isVisible(); }, 20'000));
    EXPECT_TRUE(ButtonCalled("Advice...")->hasFocus());
    EXPECT_EQ(Find<QLabel>(&main_, "No order wins more")->isVisible(), true);
    QTest::keyClick(&main_, Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return useIt->isVisible(); }, 20'000));
    EXPECT_EQ(useIt->geometry(), place);
    // Each best order is a point.
    QWidget* const advice = Open();
    const OrdersPage& orders = pad_.Advice().Orders;
    TurnTo(advice, Qt::Key_O, orders);
    EXPECT_GT(orders.Points().size(), 1U);
    for (const auto& point : orders.Points())
        EXPECT_EQ(
            advice->findChild<QCustomPlot*>()->graph(0)->data()->findBegin(point.OwnTurnsLost, false)->value,
            100.0 * point.Wins);
}

} // namespace
} // namespace vorhaven::test
