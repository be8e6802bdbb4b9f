// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/app/WindowFixture.h"
#include "tests/support/Dice.h"

#include <QDateTime>
#include <QMessageBox>
#include <QStatusBar>

#include <set>

namespace vorhaven::test {
namespace {

/// What the status bar and its neighbours show.
class Run : public Window {
protected:
    int Bar() { return Find<QProgressBar>(&main_, "Progress Indicator")->value(); }
    QString StatusText() {
        for (const QLabel* panel : main_.statusBar()->findChildren<QLabel*>())
            if (panel->toolTip() == "Percent Completed")
                return panel->text();
        return "no panel";
    }
    QStringList Figures() {
        return {Beside(&main_, "Attacker Wins:"), Beside(&main_, "Avg. Att. Units Lost:"),
                Beside(&main_, "Avg. Att. Prod. Turns Lost:"), Beside(&main_, "Avg. Def Units Lost:"),
                Beside(&main_, "Avg. Def. Prod. Turns Lost:")};
    }
    static bool IsBusy() {
        return QGuiApplication::overrideCursor() != nullptr &&
               QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
    }
};

TEST_F(Run, ShowsItsFiguresWhereThePlayerReadsThem) {
    // The blessed Spears (5) always hit, the others (4) sometimes, Kites never.
    const Script dice{"4 5 5", true};
    EXPECT_FALSE(Find<QProgressBar>(&main_, "Progress Indicator")->isVisible());
    LineUp({"Floe Spears", "Cliff Kites"}, {"Floe Spears", "Floe Spears", "Floe Spears"});
    ClickLine(List(Side::Attacker), 0);
    QTest::keyClick(List(Side::Attacker), Qt::Key_F10, Qt::ShiftModifier);
    Choose("Blessed");

    // Enter in the field attacks.
    Type(Battles(), "30");
    QTest::keyClick(Battles(), Qt::Key_Return);
    EXPECT_EQ(Figures(), (QStringList{"100%", "1", "2", "3", "9"}));
    EXPECT_TRUE(Find<QProgressBar>(&main_, "Progress Indicator")->isVisible());
    EXPECT_EQ(Bar(), 100);
    EXPECT_EQ(StatusText(), "100% Completed");
    for (const auto* name : {"Attack", "More Results", "Exit"})
        EXPECT_TRUE(ButtonCalled(name)->isEnabled()) << name;
    EXPECT_FALSE(ButtonCalled("Abort")->isEnabled());

    QStringList clocks;
    for (const QLabel* panel : main_.statusBar()->findChildren<QLabel*>())
        clocks += panel->text();
    const QDateTime now = QDateTime::currentDateTime();
    EXPECT_TRUE(clocks.contains(QLocale().toString(now.date(), QLocale::ShortFormat)));
    const auto shows = [&](int secondsAgo) {
        return clocks.contains(QLocale().toString(now.addSecs(-secondsAgo).time(), QLocale::ShortFormat));
    };
    EXPECT_TRUE(shows(0) || shows(1) || shows(2)) << clocks.join(", ").toStdString();
}

TEST_F(Run, SaysHowFarItsFiguresCanBeTrusted) {
    LineUp({"Oath Guard"}, {"Oath Guard"});
    Attack("30");
    auto* const frame = Find<QWidget>(&main_, "Quick Results");
    const QString margin = QString::fromStdString(pad_.ResultsFrame.lblWinMargin.Caption);
    EXPECT_EQ(LinesOf(frame)[1], Figures()[0] + ' ' + margin);
    const auto* const label = Find<QLabel>(frame, margin);
    EXPECT_TRUE(label->toolTip().startsWith("With a confidence of 95%, "));
    EXPECT_EQ(label->toolTip().toStdString(), pad_.ResultsFrame.WinMarginInWords.Get());
    EXPECT_EQ(label->accessibleDescription(), label->toolTip());
    // Figures of an earlier set-up step back.
    const auto colour = [this](const char* caption) {
        return FieldOf(&main_, caption)->palette().color(QPalette::WindowText);
    };
    for (const char* caption : {"Attacker Wins:", "Avg. Def Units Lost:"}) {
        QCoreApplication::processEvents();
        EXPECT_EQ(colour(caption), main_.palette().color(QPalette::WindowText));
        Pick(Side::Attacker, "Oath Guard");
        QCoreApplication::processEvents();
        EXPECT_NE(colour(caption), main_.palette().color(QPalette::WindowText));
        QTest::keySequence(&main_, QKeySequence::Undo);
    }
}

TEST_F(Run, IsSaidByAScreenReaderWhereverTheFocusIs) {
    LineUp({"Oath Guard", "Oath Guard"}, {"Oath Guard", "Oath Guard"});
    Attack("10");
    QCoreApplication::processEvents();
    QString results = "Quick Results: Attacker Wins: " + Figures()[0] + ", ";
    auto* const attack = ButtonCalled("Attack");
    const QString end = attack->accessibleDescription();
    EXPECT_TRUE(end.startsWith("The run has ended. " + results)) << end.toStdString();
    EXPECT_TRUE(end.contains("; Avg. Att. Prod. Turns Lost: " + Figures()[2] + "; ")) << end.toStdString();
    EXPECT_TRUE(
        end.contains("Exact Odds: The attacker wins 50.0% of battles, the defender 50.0%. Expected losses; "
                     "Attacker "))
        << end.toStdString();
    QTest::keyClick(attack, Qt::Key_Tab);
    EXPECT_EQ(attack->accessibleDescription(), attack->toolTip());

    QListWidget* const list = List(Side::Attacker);
    ClickLine(list, 0);
    QAccessibleInterface* const line = QAccessible::queryAccessibleInterface(list)->child(0);
    const QString own = line->text(QAccessible::Description);
    QStringList said;
    for (int press = 0; press < 2; ++press) {
        QTest::keyClick(list, Qt::Key_R, Qt::ControlModifier);
        EXPECT_TRUE(line->text(QAccessible::Description).startsWith(results));
        said += list->accessibleDescription();
    }
    EXPECT_NE(said[0], said[1]) << "or the second would not be heard";
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(line->text(QAccessible::Description), own);
    EXPECT_EQ(list->accessibleDescription(), list->toolTip());
}

TEST_F(Run, KeepsBarAndTextInStepUntilItIsAborted) {
    LineUp({"Oath Guard"}, {"Oath Guard"});
    std::set<int> bars;
    std::set<int> told;
    QTimer sampler;
    QObject::connect(&sampler, &QTimer::timeout, [&] {
        bars.insert(Bar());
        if (StatusText() == QString::number(Bar()) + "% Completed")
            told.insert(Bar());
        if (bars.size() < 4)
            return;
        sampler.stop();
        const QImage screen = main_.screen()->grabWindow(main_.winId()).toImage();
        auto* const bar = Find<QProgressBar>(&main_, "Progress Indicator");
        const QPoint start = bar->mapTo(&main_, QPoint(3, bar->height() / 2));
        EXPECT_NE(screen.pixel(start), screen.pixel(start + QPoint(bar->width() - 6, 0))) << "it is painted";
        EXPECT_TRUE(IsBusy());
        EXPECT_FALSE(ButtonCalled("Attack")->isEnabled());
        EXPECT_FALSE(ButtonCalled("Exit")->isEnabled());
        QTest::keyClick(&main_, Qt::Key_Escape);
    });
    sampler.start(0);
    Attack("900000");
    // There is no text before the first step, and the last step may have been seen half done.
    told.insert({*bars.begin(), *bars.rbegin()});
    EXPECT_GE(bars.size(), 4U);
    EXPECT_EQ(told, bars);
    EXPECT_FALSE(IsBusy());
    EXPECT_EQ(Figures(), QStringList(5, QString()));
    EXPECT_TRUE(ButtonCalled("Attack")->hasFocus());
    QCoreApplication::processEvents();
    EXPECT_TRUE(Find<QLabel>(Find<QWidget>(&main_, "Quick Results"), "aborted")->isVisible());

    // What the player has moved to in the meantime keeps the focus, and the Abort button aborts too.
    Attack("900000", [this] {
        Click(ButtonCalled("Abort"));
        List(Side::Defender)->setFocus();
    });
    EXPECT_TRUE(List(Side::Defender)->hasFocus());
    EXPECT_LT(Bar(), 100);
}

TEST_F(Run, LowersANumberOfBattlesWhoseLossesCouldNotBeAddedUp) {
    pad_.Paste(Side::Attacker, "Attacking Armies\n32 Oath Guard\nDefending Armies\n32 Oath Guard\n");
    Type(Battles(), "99999999");
    QString notice;
    QTimer::singleShot(0, &main_, [this, &notice] {
        notice = Notice();
        EXPECT_TRUE(main_.findChild<QProgressBar*>()->isVisible()) << "beside it";
        QTest::keyClick(&main_, Qt::Key_Escape);
    });
    QTest::keyClick(Battles(), Qt::Key_Return);
    EXPECT_EQ(Battles()->text(), "16777210") << "2^31 / (32 * 4 turns)";
    EXPECT_EQ(MBattleCalc::BattleResults.RowCount(), 16'777'210) << "not only afterwards";
    EXPECT_EQ(Bar(), 0) << "the key is heard long before the first step is done";
    EXPECT_EQ(notice, "Lowered to 16777210 battles, the most whose losses can be added up");
}

TEST_F(Run, LiftsTheHourglassWhileAWindowWaitsAndGivesTheFocusBack) {
    LineUp({"Oath Guard"}, {"Oath Guard"});
    auto* const viewStatistics = Find<QAbstractButton>(&main_, "View Stack Statistics");
    QTest::keyClick(viewStatistics, Qt::Key_Space);
    const auto goOn = [this](QDialog& statistics) {
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        QTimer::singleShot(100, &main_, [this] {
            EXPECT_TRUE(IsBusy());
            Click(ButtonCalled("Abort"));
        });
        QTest::keyClick(&statistics, Qt::Key_Return);
    };
    InModalWindows({{"Stack Statistics", goOn}});
    Attack("9000000");
    EXPECT_FALSE(IsBusy());
    Activate();
    EXPECT_TRUE(ButtonCalled("Attack")->hasFocus());

    // Unmarked, the box opens nothing.
    QTest::keyClick(viewStatistics, Qt::Key_Space);
    Attack("10");
    EXPECT_FALSE(Figures().front().isEmpty());
}

TEST_F(Run, IsRefusedWithoutArmiesAndOffersNoResultsThatItDoesNotHave) {
    const QStringList stackOfNone(8, "None");
    const struct {
        QStringList Attackers, Defenders;
        bool IsFought;
    } cases[] = {
        {{}, {}, false},
        {{"Oath Guard"}, {}, false},
        {{"None"}, {"None"}, false},
        {stackOfNone + QStringList{"Oath Guard"}, {"Oath Guard"}, false}, // the first stack is empty
        {{"None", "Oath Guard"}, {"None", "Oath Guard"}, true},
    };
    QString warning;
    const auto read = [&](QDialog& box) {
        warning = dynamic_cast<QMessageBox&>(box).text();
        box.accept();
    };
    for (const auto& c : cases) {
        Click(ButtonCalled("Clear List, Attacking Armies"));
        Click(ButtonCalled("Clear List, Defending Armies"));
        LineUp(c.Attackers, c.Defenders);
        warning.clear();
        if (!c.IsFought)
            InModalWindows({{MainTitle, read}});
        Click(ButtonCalled("Attack"));
        EXPECT_EQ(warning, c.IsFought ? "" : "You need to specify attacking and defending armies.")
            << c.Attackers.join(' ').toStdString();
        EXPECT_EQ(ButtonCalled("More Results")->isEnabled(), c.IsFought);
        EXPECT_TRUE(ButtonCalled("Attack")->isEnabled());
        EXPECT_TRUE(ButtonCalled("Exit")->isEnabled());
    }
    for (const auto& [battles, isOffered] :
         {std::pair{"1010", false}, {"1000", true}, {"99999999", false}, {"20", true}, {"", true}}) {
        Type(Battles(), battles);
        EXPECT_EQ(ButtonCalled("More Results")->isEnabled(), isOffered) << battles;
    }
}

TEST_F(Run, KeepsAKeyThatIsHeldOnAttackAwayFromEverythingElse) {
    LineUp({"Oath Guard"}, {"Oath Guard"});
    for (const auto& [key, text] : {std::pair{Qt::Key_Return, "\r"}, {Qt::Key_Space, " "}}) {
        Type(Battles(), "20000");
        ButtonCalled("Attack")->setFocus();
        QTimer::singleShot(0, &main_, [k = key, t = text] { HoldKey(k, t); });
        QTest::keyClick(ButtonCalled("Attack"), key);
        HoldKey(key, text);
        EXPECT_EQ(Lines(Side::Attacker) + Lines(Side::Defender), QStringList(2, "Oath Guard"));
        EXPECT_TRUE(ButtonCalled("Attack")->hasFocus());
        EXPECT_FALSE(Figures().front().isEmpty());
    }
}

TEST_F(Run, EndsWhenTheWindowIsClosedWhileAnotherWaits) {
    LineUp({"Marshal"}, {"Oath Guard"});
    InModalWindows({{HeroTitle, [this](QDialog& /*editor*/) { main_.close(); }}});
    Attack("900000");
    EXPECT_FALSE(main_.isVisible());
    EXPECT_EQ(Figures(), QStringList(5, QString()));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

} // namespace
} // namespace vorhaven::test
