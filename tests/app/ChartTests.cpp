// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/ChartView.h"
#include "tests/app/WindowFixture.h"

#include <QMimeData>
#include <QToolTip>

namespace vorhaven::test {
namespace {

/// What each battle of a run costs: attackers and their turns, defenders and their turns.
using Losses = std::vector<std::array<std::int32_t, 4>>;

class Charts : public Window {
protected:
    void ShowResultsOf(const Losses& battles) {
        LineUp({"Oath Guard"}, {"Oath Guard"});
        Attack(QString::number(battles.size()));
        for (std::size_t battle = 0; battle < battles.size(); ++battle)
            for (std::int32_t column = 0; column < 4; ++column)
                MBattleCalc::BattleResults(static_cast<std::int32_t>(battle) + 1,
                                           MBattleCalc::ResultColumn::AttackersSlain + column) =
                    battles[battle][static_cast<std::size_t>(column)];
        Click(ButtonCalled("More Results"));
    }
    static ChartView* ChartOf(const char* side) {
        return Find<ChartView>(ResultsWindow(),
                               QString("Distribution of Number of %1 Armies Destroyed").arg(side));
    }
    /// The bars of a series that are higher than nothing, as "category: height".
    static QStringList BarsOf(ChartView* chart, const char* axis) {
        QStringList bars;
        for (int i = 0; i < chart->plottableCount(); ++i) {
            const auto* const series = qobject_cast<QCPBars*>(chart->plottable(i));
            if (series == nullptr || series->valueAxis()->label() != axis)
                continue;
            EXPECT_EQ(series->name(), axis);
            for (const QCPBarsData& bar : *series->data()) {
                EXPECT_TRUE(bar.value <= series->valueAxis()->range().upper);
                EXPECT_TRUE(series->keyAxis()->range().contains(bar.key));
                EXPECT_NEAR(bar.key, qRound(bar.key), 0.35) << "nearer to its own category's label";
                if (bar.value > 0.0)
                    bars += QString("%1: %2").arg(qRound(bar.key)).arg(bar.value);
            }
        }
        return bars;
    }
    static QStringList TextsIn(const ChartView& chart) {
        QStringList texts;
        for (int i = 0; i < chart.itemCount(); ++i)
            if (const auto* const text = qobject_cast<QCPItemText*>(chart.item(i)))
                texts += text->text();
        return texts;
    }
    static QString HoverOver(ChartView* chart, int category) {
        // Anywhere in the category, at its end too.
        const QPoint place(qRound(chart->xAxis->coordToPixel(category + 0.4)),
                           chart->axisRect()->center().y());
        QHelpEvent help(QEvent::ToolTip, place, chart->mapToGlobal(place));
        QApplication::sendEvent(chart, &help);
        return QToolTip::text();
    }
};

TEST_F(Charts, ShowTheLossesOfTheLastRun) {
    // In 3 of 10 battles no attacker falls, in 7 two do; and so on.
    Losses battles(3, {0, 0, 1, 4});
    battles.insert(battles.end(), 5, {2, 9, 1, 4});
    battles.insert(battles.end(), 2, {2, 9, 32, 64});
    ShowResultsOf(battles);
    QTest::qWait(1);
    const struct {
        const char* Side;
        QStringList Chances, Turns, Texts;
        int Category;
        const char* ToolTip;
    } cases[] = {
        // clang-format off
        {"Attacking", {"0: 30", "2: 70"}, {"2: 9"}, {"70", "mean 1.4", "only 1 army was in the list"}, 2,
            "2 armies destroyed: 7 of 10 battles, 9 production turns lost\nexactly 2: 70.0%"},
        {"Defending", {"1: 80", "32: 20"}, {"1: 4", "32: 64"},
            {"80", "mean 7.2", "only 1 army was in the list"}, 1,
                "1 army destroyed: 8 of 10 battles, 4 production turns lost\nexactly 1: 80.0%"},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Side);
        ChartView* const chart = ChartOf(c.Side);
        EXPECT_EQ(BarsOf(chart, "% Chance"), c.Chances);
        EXPECT_EQ(BarsOf(chart, "Production Turns Lost"), c.Turns);
        for (const QString& text : c.Texts)
            EXPECT_TRUE(TextsIn(*chart).contains(text)) << text.toStdString();
        EXPECT_EQ(chart->legend->itemCount(), 3);
        EXPECT_EQ(chart->graph(0)->dataCount(), 2) << "the exact odds of losing none and one";
        EXPECT_EQ(chart->yAxis->range(), ChartOf("Attacking")->yAxis->range());
        EXPECT_EQ(chart->yAxis2->range().upper > 40, c.Side == QString("Defending")) << "9 turns and 64";
        EXPECT_EQ(chart->xAxis->label(), "Number of Armies Destroyed");
        QStringList titles;
        for (QCPLayoutElement* element : chart->plotLayout()->elements(true))
            if (const auto* const title = qobject_cast<QCPTextElement*>(element))
                titles += title->text();
        EXPECT_TRUE(titles.contains(NameOf(chart)));
        EXPECT_EQ(chart->xAxis->ticker().dynamicCast<QCPAxisTickerText>()->ticks().value(0.0), "0");
        EXPECT_TRUE(HoverOver(chart, c.Category).startsWith(c.ToolTip));
        EXPECT_EQ(QAccessible::queryAccessibleInterface(chart)->role(), QAccessible::Chart);
        EXPECT_TRUE(chart->accessibleDescription().contains(c.ToolTip));
    }
}

TEST_F(Charts, AreOfTheRunBeforeTheButtonWasPressed) {
    ShowResultsOf(Losses(3, {0, 0, 1, 4}));
    Activate();
    ShowResultsOf(Losses(10, {1, 4, 0, 0}));
    QTest::qWait(1);
    EXPECT_EQ(BarsOf(ChartOf("Attacking"), "% Chance"), QStringList{"1: 100"});
    EXPECT_EQ(BarsOf(ChartOf("Defending"), "% Chance"), QStringList{"0: 100"});
}

TEST_F(Charts, PaintColumnsMarksMeanAndWhatCannotHappenWhereTheyBelong) {
    // An equal battle: in 6 of 10 the attacker falls, and exactly in every second one.
    Losses battles(6, {1, 4, 0, 0});
    battles.insert(battles.end(), 4, {0, 0, 1, 4});
    ShowResultsOf(battles);
    const QPalette usual = main_.palette();
    QPalette dark(QColor(0x2a2c30));
    dark.setColor(QPalette::Base, 0x1a1d20);
    dark.setColor(QPalette::Text, Qt::white);
    const struct {
        const char* Side;
        int Category; // of the 60 %
        double Mean;
        QRgb Colour, InTheDark;
    } cases[] = {{"Attacking", 1, 0.6, 0xff0a5a9c, 0xff4f9fe0},
                 {"Defending", 0, 0.4, 0xffb85400, 0xfff5b06a}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Side);
        ChartView* const chart = ChartOf(c.Side);
        chart->setFixedWidth(1300);
        QTest::qWait(1);
        const auto paint = [chart] { return chart->toPixmap(0, 0, 1.0).toImage(); };
        const auto at = [chart, picture = paint()](double category, double percent) {
            return picture.pixel(qRound(chart->xAxis->coordToPixel(category)),
                                 qRound(chart->yAxis->coordToPixel(percent)));
        };
        const QRgb base = usual.color(QPalette::Base).rgb();
        EXPECT_EQ(at(c.Category - 0.08, 20), c.Colour);
        EXPECT_EQ(at(c.Category - 0.08, 50), base) << "the exact mark, in the middle of its column";
        EXPECT_EQ(at(c.Category + 0.15, 50), c.Colour);
        EXPECT_EQ(at(1.4, 75), base);
        EXPECT_NE(at(1.6, 75), base) << "what cannot happen begins behind 1";
        EXPECT_NE(at(32.6, 75), base);
        for (int i = 0; i < chart->itemCount(); ++i) {
            const auto* const line = qobject_cast<QCPItemLine*>(chart->item(i));
            if (line == nullptr || line->pen().style() != Qt::DashLine)
                continue;
            EXPECT_DOUBLE_EQ(line->start->key(), c.Mean);
            EXPECT_DOUBLE_EQ(line->end->key(), c.Mean);
        }
        EXPECT_TRUE(TextsIn(*chart).contains(QString("mean %1").arg(c.Mean)));
        chart->setPalette(dark);
        EXPECT_EQ(paint().pixel(qRound(chart->xAxis->coordToPixel(c.Category - 0.08)),
                                qRound(chart->yAxis->coordToPixel(20))),
                  c.InTheDark);
    }
}

TEST(ChartMarks, StandInTheLegendOnceThereAreSomeAndWholeOnTheAxis) {
    Chart chart(3, "Title", "Category", {"First", "Second"});
    ChartView view;
    view.Show(chart);
    view.resize(600, 400);
    EXPECT_EQ(view.legend->itemCount(), 2);
    chart.SetExact(2, Chart::LeastExactMark);
    QTest::qWait(1);
    EXPECT_EQ(view.legend->itemCount(), 3);
    const QImage picture = view.toPixmap(0, 0, 1.0).toImage();
    const QPoint mark(qRound(view.xAxis->coordToPixel(0.92)), qRound(view.yAxis->coordToPixel(0)));
    int seen = 0;
    for (int x = -3; x <= 3; ++x)
        seen += picture.pixel(mark + QPoint(x, 2)) != picture.pixel(mark + QPoint(9, 2)) ? 1 : 0;
    EXPECT_GT(seen, 0) << "below the axis too";
}

TEST_F(Charts, KeepFiguresApartAndColumnsWholeBehindThem) {
    Losses battles(256, {32, 90, 32, 90});
    for (std::int32_t lost = 5; lost < 32; ++lost)
        battles.insert(battles.end(), lost % 9 == 0 ? 40 : 1, {lost, lost * 3, lost, lost * 3});
    ShowResultsOf(battles);
    ChartView* const chart = ChartOf("Attacking");
    for (const int points : {9, 14}) {
        SCOPED_TRACE(points);
        QFont font = chart->font();
        font.setPointSize(points);
        chart->setFont(font);
        std::vector<QRectF> places;
        for (int i = 0; i < chart->itemCount(); ++i) {
            const auto* const figure = qobject_cast<QCPItemText*>(chart->item(i));
            if (figure == nullptr || !figure->font().bold())
                continue;
            const QRectF place(figure->topLeft->pixelPosition(), figure->bottomRight->pixelPosition());
            for (const QRectF& other : places)
                EXPECT_FALSE(place.intersects(other)) << figure->text().toStdString();
            EXPECT_TRUE(QRectF(chart->axisRect()->rect()).contains(place)) << figure->text().toStdString();
            places.push_back(place);
        }
        EXPECT_EQ(places.size(), 28);
        const QImage picture = chart->toPixmap().toImage();
        const auto* const turns = qobject_cast<QCPBars*>(chart->plottable(0));
        EXPECT_EQ(turns->valueAxis(), chart->yAxis2);
        for (const QCPBarsData& bar : *turns->data()) {
            const int x = qRound(chart->xAxis->coordToPixel(bar.key));
            const int top = qRound(chart->yAxis2->coordToPixel(bar.value));
            int seen = 0;
            for (int y = top; y < chart->axisRect()->bottom(); ++y)
                seen += qGray(picture.pixel(x, y)) < 200 ? 1 : 0;
            EXPECT_GE(seen * 2, chart->axisRect()->bottom() - top) << bar.key;
        }
    }
}

TEST_F(Charts, CopyTheirNumbersAndTheirPicture) {
    ShowResultsOf(Losses(10, {2, 9, 1, 4}));
    ChartView* const chart = ChartOf("Defending");
    const auto ask = [chart](QContextMenuEvent::Reason reason) {
        QContextMenuEvent event(reason, {50, 50}, chart->mapToGlobal(QPoint(50, 50)));
        QApplication::sendEvent(chart, &event);
    };
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"right click", [&] { ask(QContextMenuEvent::Mouse); }},
        {"menu key", [&] { ask(QContextMenuEvent::Keyboard); }},
        {"Shift+F10", [&] { QTest::keyClick(chart, Qt::Key_F10, Qt::ShiftModifier); }}};
    for (const auto& [name, open] : ways) {
        SCOPED_TRACE(name);
        QGuiApplication::clipboard()->clear();
        open();
        const QAction* const current = OpenMenu()->activeAction();
        EXPECT_EQ(current != nullptr ? current->text() : "", name == ways[0].first ? "" : "Copy Picture");
        Choose("Copy Numbers");
        const QStringList rows = QGuiApplication::clipboard()->text().split('\n');
        ASSERT_GE(rows.size(), 34);
        EXPECT_EQ(rows[0].section('\t', 0, 2), "Number of Armies Destroyed\t% Chance\tProduction Turns Lost");
        EXPECT_EQ(rows[2].section('\t', 0, 3), "1\t100\t4\t10");
        QGuiApplication::clipboard()->clear();
        QTest::keyClick(chart, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QGuiApplication::clipboard()->text().split('\n'), rows);
        open();
        Choose("Copy Picture");
        EXPECT_EQ(QGuiApplication::clipboard()->image().size(), chart->size() * chart->devicePixelRatioF());
    }
}

TEST_F(Charts, ShowAndSayWhereTheKeysLead) {
    ShowResultsOf(Losses(10, {2, 9, 1, 4}));
    ChartView* const chart = ChartOf("Defending");
    ResultsWindow()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(ResultsWindow()));
    const auto picture = [chart] {
        chart->replot();
        return chart->grab().toImage();
    };
    const QImage without = picture();
    EXPECT_EQ(picture(), without);
    chart->setFocus();
    const QImage unmarked = picture();
    EXPECT_NE(unmarked, without);

    // So is where the keys lead in it, which screen readers are told.
    QStringList said;
    const int places[] = {0, 1, 32, 31, 0};
    int step = 0;
    for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_End, Qt::Key_Left, Qt::Key_Home}) {
        QTest::keyClick(chart, key);
        const int marked = places[step++];
        const QImage marks = picture();
        for (int row = 0; row <= 32; ++row) {
            const QPoint corner = chart->PlaceOf(row).topLeft();
            const bool isMarked = marks.pixel(corner) != unmarked.pixel(corner);
            EXPECT_EQ(isMarked, row == marked || row == marked + 1) << row;
        }
        const auto* const category = QAccessible::queryAccessibleInterface(chart)->focusChild();
        EXPECT_TRUE(category->state().focused);
        said += category->text(QAccessible::Name).section(':', 0, 0);
        EXPECT_EQ(chart->RowAt(chart->mapFromGlobal(category->rect().center())), marked);
    }
    EXPECT_EQ(said.join(','), "0 armies destroyed,1 army destroyed,32 armies destroyed,31 armies destroyed,"
                              "0 armies destroyed");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(chart)->childCount(), 33);
    EXPECT_TRUE(chart->accessibleDescription().startsWith("When the defender wins"));
}

} // namespace
} // namespace vorhaven::test
