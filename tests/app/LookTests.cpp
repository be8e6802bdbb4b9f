// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/Shade.h"
#include "app/program/SideColours.h"
#include "app/setup/ArmyListView.h"
#include "tests/app/WindowFixture.h"

#include <QFontInfo>
#include <QGroupBox>
#include <QScrollArea>
#include <QScrollBar>

#include <map>
#include <set>
#include <span>

namespace vorhaven::test {
namespace {

QRect PlaceOf(const QWidget* widget) {
    return {widget->mapTo(widget->window(), QPoint(0, 0)), widget->size()};
}

/// Lets what is shown settle, and then the layouts.
void LayOut() {
    QTest::qWait(1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

class Look : public Window {
protected:
    /// Where the frames are, and all that can be used.
    std::map<QString, QRect> Places() {
        std::map<QString, QRect> places;
        for (QWidget* widget : main_.findChildren<QWidget*>())
            if (widget->isVisible() &&
                (qobject_cast<QGroupBox*>(widget) != nullptr || (widget->focusPolicy() & Qt::TabFocus) != 0))
                places[NameOf(widget)] = PlaceOf(widget);
        return places;
    }

    /// No text is wider than its label, and nothing is cut off at the window's or a column's side.
    void ExpectWhole() {
        for (const QWidget* widget : main_.findChildren<QWidget*>()) {
            const auto* const label = qobject_cast<const QLabel*>(widget);
            EXPECT_TRUE(label == nullptr || label->wordWrap() || label->width() >= label->sizeHint().width())
                << label->text().toStdString();
            EXPECT_TRUE(
                !widget->isVisible() || widget->isWindow() ||
                (widget->x() >= 0 && widget->x() + widget->width() <= widget->parentWidget()->width()))
                << widget->metaObject()->className() << ' ' << widget->accessibleName().toStdString();
        }
    }

    void ExpectNothingMovesWhateverIsShown() {
        const struct {
            const char *Wins, *Margin;
            std::array<const char*, 4> Averages;
            Odds::Losses Losses;
        } cases[] = {
            {"53.3333333333333%", "± 17.9", {"5.209", "13.77", "7.283334", "18.51667"}, {8.0, 21.0}},
            {"0.00000300000030000003%",
             "± < 0.1",
             {"31.99999", "191.9999", "0.0003333333", "0.001"},
             {32.0, 192.0}},
            {"100%", "at least 99.9%", {"0", "0", "32", "160"}, {0.0, 124.0}},
        };
        LineUp({"Oath Guard"}, {"Oath Guard"});
        Attack("30");
        const auto places = Places();
        for (const auto& c : cases) {
            pad_.ResultsFrame.lblAttWinPercent.Caption = c.Wins;
            pad_.ResultsFrame.lblWinMargin.Caption = c.Margin;
            for (std::size_t i = 0; i < c.Averages.size(); ++i)
                pad_.ResultsFrame.lblAvg[QuickResultsPanel::FirstAverage + i].Caption = c.Averages[i];
            const Odds::SideOdds side{{}, c.Losses, c.Losses, c.Losses};
            pad_.OddsFrame.Show(Odds::BattleOdds{1e-9, 1.0 - 1e-9, 0.0, side, side}, "");
            for (const char* remark : {"", "with a hero's editor cancelled"}) {
                pad_.ResultsFrame.lblOutOfDate.Caption = remark;
                LayOut();
                std::set<int> points;
                for (const Label& caption :
                     std::span(pad_.ResultsFrame.lblAvgCaption).subspan(QuickResultsPanel::FirstAverage)) {
                    const auto* const figure =
                        dynamic_cast<QLabel*>(FieldOf(&main_, QString::fromStdString(caption.Caption)));
                    const QString whole = figure->text().section('.', 0, 0);
                    points.insert(figure->indent() + figure->fontMetrics().horizontalAdvance(whole));
                }
                EXPECT_EQ(points.size(), 1U) << "the decimal points stand below each other";
                for (const auto& [name, place] : Places())
                    EXPECT_EQ(place, places.at(name))
                        << name.toStdString() << ", with " << c.Wins << ' ' << remark;
                ExpectWhole();
            }
        }
    }
};

/// With a font that makes the tests' screen a small one.
struct LargeFont {
    LargeFont() {
        QFont large = Usual;
        large.setPointSizeF(14.0);
        QApplication::setFont(large);
    }
    ~LargeFont() { QApplication::setFont(Usual); }

    const QFont Usual = QApplication::font();
};
class LargeLook : private LargeFont, public Look {
protected:
    LargeLook() { main_.resize(1022, 743); }

    QWidget* FrameCalled(const QString& title) { return Find<QGroupBox>(&main_, title); }
    static bool IsAllVisible(const QWidget* widget) { return widget->visibleRegion() == widget->rect(); }
};

TEST_F(Look, NothingMovesWhateverIsShown) {
    ExpectNothingMovesWhateverIsShown();
}

TEST_F(LargeLook, NothingMovesWhateverIsShown) {
    ExpectNothingMovesWhateverIsShown();
}

TEST_F(LargeLook, EveryRunShowsItsResultsAndTheButtonsStay) {
    LayOut();
    const auto expectButtons = [this] {
        for (const char* name : {"Attack", "Abort"})
            EXPECT_TRUE(IsAllVisible(ButtonCalled(name))) << name;
    };
    EXPECT_TRUE(IsAllVisible(FrameCalled("Setup Options")));
    EXPECT_TRUE(IsAllVisible(FrameCalled("Exact Odds")));
    expectButtons();
    LineUp({"Oath Guard"}, {"Oath Guard"});
    for (int run = 1; run <= 2; ++run) {
        EXPECT_FALSE(IsAllVisible(FrameCalled("Quick Results")));
        Attack("30");
        EXPECT_TRUE(IsAllVisible(FrameCalled("Exact Odds")));
        EXPECT_TRUE(IsAllVisible(FrameCalled("Quick Results")));
        expectButtons();
        // A field that gets the focus comes into view again.
        for (int tab = 0; tab < 10 && !Battles()->hasFocus(); ++tab)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        EXPECT_TRUE(Battles()->hasFocus() && IsAllVisible(Battles()));
    }
}

TEST_F(Look, TheListsFillTheWindowAndTheColumnsStayTogether) {
    LineUp({"Oath Guard"}, {"Oath Guard"});
    const int em = QFontInfo(main_.font()).pixelSize();
    const int middleWidth = Find<QGroupBox>(&main_, "Setup Options")->width();
    const int textHeight = main_.fontMetrics().height();
    const struct {
        QSize Window;
        int LineHeight; // above the text's
        bool AreColumnsWide;
    } cases[] = {{main_.sizeHint(), 2, false},
                 {{1280, 860}, 6, false},
                 {{1920, 1061}, 12, true},
                 {{2560, 1400}, 12, true}};
    for (const auto& c : cases) {
        main_.resize(c.Window);
        LayOut();
        for (const Side side : BothSides) {
            QListWidget* const list = List(side);
            const int lineHeight = list->visualItemRect(list->item(0)).height();
            EXPECT_NEAR(lineHeight, textHeight + c.LineHeight, 1) << c.Window.width();
            EXPECT_EQ(list->viewport()->height(), 32 * lineHeight) << c.Window.width();
        }
        const QRect left = PlaceOf(Find<QGroupBox>(&main_, SideName(Side::Attacker)));
        const QRect middle = PlaceOf(Find<QGroupBox>(&main_, "Setup Options"));
        const QRect right = PlaceOf(Find<QGroupBox>(&main_, SideName(Side::Defender)));
        EXPECT_NEAR(left.left(), main_.width() - 1 - right.right(), 1);
        EXPECT_EQ(middle.width(), middleWidth);
        EXPECT_LT(right.left() - middle.right(), 2 * em);
        EXPECT_EQ(left.width() == 52 * em, c.AreColumnsWide) << left.width();
        ExpectWhole();
    }
}

TEST_F(LargeLook, ConditionsEndInAnEllipsisWhereTheyHaveNoRoom) {
    LineUp({"Guild Crossbows"}, {});
    QListWidget* const list = List(Side::Attacker);
    ClickLine(list, 0);
    QTest::keyClick(list, Qt::Key_F10, Qt::ShiftModifier);
    Choose("Weaponsmaster");
    LayOut();
    Click(Battles());
    list->clearSelection();
    list->setCurrentRow(-1);
    const int em = QFontInfo(list->font()).pixelSize();
    const auto* const view = dynamic_cast<ArmyListView*>(list);
    const int quiet = qGray(Shaded(Qt::black, Qt::white, Shade::Quiet).rgb());
    for (int width = 20 * em; width >= 8 * em; width -= em) {
        list->setFixedWidth(width);
        LayOut();
        const QRect line = list->visualItemRect(list->item(0));
        EXPECT_EQ(line.width(), list->viewport()->width()) << "nothing to scroll sideways to";
        const QImage picture = list->viewport()->grab(line).toImage();
        const auto darkest = [&](int from, int to) {
            int grey = 255;
            for (int x = from; x < to; ++x)
                for (int y = 0; y < picture.height(); ++y)
                    grey = std::min(grey, qGray(picture.pixel(x, y)));
            return grey;
        };
        EXPECT_EQ(view->FigureColumnWidth() > 0, line.width() >= 17 * em);
        const int end = picture.width() - view->FigureColumnWidth();
        const int note = darkest(end - 3 * em / 2, end);
        EXPECT_TRUE(note >= quiet - 1 && note < 160) << "at the line's end " << note << ", width " << width;
        EXPECT_LT(darkest(0, 6 * em), quiet / 2) << "the name, width " << width;
    }
}

TEST_F(Look, TheFocusIsSeenWithoutALineAndTheSelectionDimsWithoutTheFocus) {
    LineUp({"Oath Guard", "Snow Bear", "Thane"}, {"Oath Guard"});
    QListWidget* const list = List(Side::Attacker);
    const QColor base = list->palette().color(QPalette::Base);
    const auto pixel = [list](int x, int line) {
        const QRect place = list->visualItemRect(list->item(line));
        return list->viewport()->grab().toImage().pixelColor(x, place.center().y());
    };
    const int blank = list->viewport()->width() / 2;
    list->setCurrentRow(-1);
    Click(Battles());
    EXPECT_EQ(pixel(0, 2), base);
    list->setFocus(Qt::TabFocusReason);
    EXPECT_GE(Contrast(pixel(0, 2), base), LeastContrast::Mark);

    QTest::keyClick(list, Qt::Key_End);
    EXPECT_EQ(list->currentRow(), 2);
    const QColor selection = pixel(blank, 2);
    Click(Battles());
    EXPECT_NEAR(Contrast(pixel(blank, 2), Mixed(selection, base, 0.3)), 1.0, 0.03);
    EXPECT_EQ(pixel(blank, 1), base);
}

/// The colours of a desktop.
struct Scheme {
    const char* Name;
    QRgb Window, WindowText, Base, Text, Highlight, HighlightedText;
    /// Whether Base is far enough from black or from white for the contrast of texts in both sides'
    /// colours.
    bool HasRoom;
    /// The sides' colours, where a designer has chosen them; 0 elsewhere.
    QRgb Attacker = 0, Defender = 0;
};
constexpr Scheme Schemes[] = {
    // clang-format off
    {"light", 0xefefef, 0x000000, 0xffffff, 0x000000, 0x308cc6, 0xffffff, true, 0xff0a5a9c, 0xffb85400},
    {"dark", 0x2a2c30, 0xffffff, 0x1a1d20, 0xffffff, 0x308cc6, 0xffffff, true, 0xff4f9fe0, 0xfff5b06a},
    {"bluish dark of little contrast", 0x073642, 0x93a1a1, 0x002b36, 0x839496, 0x268bd2, 0xfdf6e3, true},
    {"white on black", 0x000000, 0xffffff, 0x000000, 0xffffff, 0xffff00, 0x000000, true},
    {"yellowish light", 0xeee8d5, 0x4c6068, 0xfdf6e3, 0x586e75, 0xb58900, 0xfdf6e3, true},
    {"light grey", 0x909090, 0x000000, 0xa0a0a0, 0x000000, 0x90a0b0, 0x000000, true},
    {"dark grey", 0x404040, 0xffffff, 0x4c4c4c, 0xffffff, 0x405060, 0xffffff, true},
    {"mid grey", 0x808080, 0x000000, 0x7c7c7c, 0x000000, 0x308cc6, 0xffffff, false},
    // clang-format on
};

QPalette PaletteOf(const Scheme& scheme) {
    QPalette palette(scheme.Window);
    for (const auto& [role, colour] : {std::pair{QPalette::Window, scheme.Window},
                                       {QPalette::WindowText, scheme.WindowText},
                                       {QPalette::Base, scheme.Base},
                                       {QPalette::Text, scheme.Text},
                                       {QPalette::Highlight, scheme.Highlight},
                                       {QPalette::HighlightedText, scheme.HighlightedText}})
        palette.setColor(role, colour);
    return palette;
}

/// The toolkit passes new colours on while the program's event loop runs.
void Show(const QPalette& palette) {
    QTimer::singleShot(0, [&palette] {
        QApplication::setPalette(palette);
        QTimer::singleShot(0, [] { QCoreApplication::exit(); });
    });
    QApplication::exec();
}

/// The highest contrast between a line's name and what is behind it.
double ContrastInLine(const QListWidget* list, int line) {
    const QImage picture = list->viewport()->grab(list->visualItemRect(list->item(line))).toImage();
    const QColor fill = picture.pixelColor(picture.width() / 2, picture.height() / 2);
    double contrast = 0.0;
    for (int x = 0; x < picture.width() / 2; ++x)
        for (int y = 0; y < picture.height(); ++y)
            contrast = std::max(contrast, Contrast(picture.pixelColor(x, y), fill));
    return contrast;
}

TEST_F(Look, EveryColourSchemeCanBeRead) {
    EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21.0, 1e-6);
    EXPECT_NEAR(Contrast(Qt::white, QColor(0x77, 0x77, 0x77)), 4.48, 0.005);
    LineUp({"Oath Guard"}, {"Oath Guard"});
    Attack("30");
    Pick(Side::Attacker, "Oath Guard");
    QListWidget* const list = List(Side::Attacker);
    list->selectAll();
    const QPalette usual = QApplication::palette();
    for (const Scheme& c : Schemes) {
        SCOPED_TRACE(c.Name);
        const QPalette palette = PaletteOf(c);
        Show(palette);
        for (const QLabel* label : main_.findChildren<QLabel*>())
            EXPECT_GE(Contrast(label->palette().color(QPalette::WindowText), c.Window), LeastContrast::Text)
                << label->text().toStdString();
        const QColor attacker = SideColour(Side::Attacker, palette),
                     defender = SideColour(Side::Defender, palette);
        EXPECT_TRUE(c.Attacker == 0 || (attacker.rgb() == c.Attacker && defender.rgb() == c.Defender));
        const auto [less, more] = std::minmax({Contrast(attacker, c.Base), Contrast(defender, c.Base)});
        EXPECT_GE(less, c.HasRoom ? LeastContrast::Text : LeastContrast::Mark);
        EXPECT_GE(more / less, 1.25);
        // Names and focus in the list, with its selection bright and dim.
        list->setFocus();
        const QRgb edge = list->viewport()->grab().toImage().pixel(0, list->viewport()->height() - 20);
        EXPECT_GE(Contrast(edge, c.Base), LeastContrast::Mark);
        Battles()->setFocus();
        EXPECT_GE(ContrastInLine(list, 0), 0.95 * LeastContrast::Text);
    }
    Show(usual);
}

} // namespace
} // namespace vorhaven::test
