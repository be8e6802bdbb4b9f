// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/program/ErrorReport.h"
#include "app/program/QtToolkit.h"
#include "app/setup/MainView.h"
#include "catalogue/CsvCatalogue.h"
#include "engine/Dice.h"
#include "engine/MBattleCalc.h"
#include "ui/setup/frmBrawlpad.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace vorhaven::test {

/// What a screen reader calls a widget: its accessible name or its caption.
inline QString NameOf(QWidget* widget) {
    if (!widget->accessibleName().isEmpty())
        return widget->accessibleName();
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(widget);
    return accessible != nullptr ? accessible->text(QAccessible::Name) : QString();
}

template <class Widget>
Widget* Find(QWidget* window, const QString& name) {
    // Unlike Qt's own search, from 6.7 on, this one also takes a class without a meta-object of its own.
    for (QWidget* child : window->findChildren<QWidget*>())
        if (auto* const widget = dynamic_cast<Widget*>(child); widget != nullptr && NameOf(widget) == name)
            return widget;
    qFatal("no such widget is called %s", qPrintable(name));
}

/// The field that a caption belongs to.
inline QWidget* FieldOf(const QObject* window, const QString& caption) {
    for (const QLabel* label : window->findChildren<QLabel*>())
        if (label->text() == caption && label->buddy() != nullptr)
            return label->buddy();
    qFatal("no field has the caption %s", qPrintable(caption));
}

/// The text that stands beside a caption.
inline QString Beside(const QObject* window, const QString& caption) {
    return FieldOf(window, caption)->property("text").toString();
}

/// What stands in a part of a window: the texts of its labels, line by line, each from left to right.
inline QStringList LinesOf(const QWidget* part) {
    QList<std::pair<QPoint, QString>> texts;
    for (const QLabel* label : part->findChildren<QLabel*>())
        if (label->isVisible() && !label->text().isEmpty())
            texts.emplaceBack(label->mapTo(part, label->rect().center()), label->text());
    std::ranges::sort(texts, {}, [](const auto& text) { return text.first.y(); });
    QStringList lines;
    while (!texts.isEmpty()) {
        const int top = texts.front().first.y();
        QList<std::pair<int, QString>> line;
        for (; !texts.isEmpty() && texts.front().first.y() < top + 6; texts.removeFirst())
            line.emplaceBack(texts.front().first.x(), texts.front().second);
        std::ranges::sort(line);
        lines += QString();
        for (const auto& [place, text] : line)
            lines.back() += (lines.back().isEmpty() ? "" : " ") + text;
    }
    return lines;
}

inline QLineEdit* EditOf(QWidget* box) {
    auto* const edit = qobject_cast<QLineEdit*>(box);
    return edit != nullptr ? edit : box->findChild<QLineEdit*>();
}

/// The window of the detailed results, while it is open.
inline QWidget* ResultsWindow() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowTitle() == "Detailed Combat Results")
            return window;
    return nullptr;
}

inline void Wheel(QWidget* widget) {
    QWheelEvent turn({5, 5}, widget->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &turn);
}

/// Sends what a key that has been held for a while sends, to where the focus is.
inline void HoldKey(Qt::Key key, const QString& text) {
    for (int repeat = 0; repeat < 3; ++repeat) {
        QWidget* const focus = QApplication::focusWidget();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text, true);
        QApplication::sendEvent(focus != nullptr ? focus : QApplication::activeWindow(), &press);
    }
}

/// Sends what X sends for a held key and the toolkit does not know for a repeat: a release and a press at one
/// moment.
inline void HoldKeyUnknown(Qt::Key key, const QString& text) {
    for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        event.setTimestamp(12'345);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }
}

/// The real main window on the offscreen platform, with hands that click and type. A modal window that no
/// test expects fails the test instead of waiting for ever.
class Window : public testing::Test {
protected:
    Window() {
        // What an earlier test has told the program's event loop, to end, is forgotten.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QApplication::exec();
        QApplication::setDoubleClickInterval(0);
        OnFatalError = [this](const ErrorReport& report) {
            reported_.push_back(report.Headline + report.Details);
        };
        toolkit_.Show(main_, pad_);
        Activate();
        watchdog_.setSingleShot(true);
        QObject::connect(&watchdog_, &QTimer::timeout, [] {
            ADD_FAILURE() << "stuck in a modal window";
            MBattleCalc::AbortRequested = true;
            while (QWidget* modal = QApplication::activeModalWidget())
                modal->close();
        });
        watchdog_.start(30'000);
        QObject::connect(&deedTimer_, &QTimer::timeout, [this] { DoNext(); });
    }

    ~Window() override {
        EXPECT_TRUE(deeds_.empty()) << "no modal window called " << deeds_.front().Title.toStdString();
        EXPECT_EQ(reported_, std::vector<std::string>{});
        MBattleCalc::AbortRequested = false;
        MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator());
        OnFatalError = ReportAndEnd;
    }

    /// The offscreen platform does not give a window its focus back when something in front of it closes.
    void Activate() {
        main_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&main_));
    }

    QPushButton* ButtonCalled(const QString& name) { return Find<QPushButton>(&main_, name); }
    QComboBox* Picker(Side side) { return Find<QComboBox>(&main_, "Select " + SideName(side)); }
    QListWidget* List(Side side) { return Find<QListWidget>(&main_, SideName(side)); }
    QLineEdit* Battles() { return Find<QLineEdit>(&main_, "Number of Battles"); }
    /// The sentence that the status bar shows for a while.
    QString Notice() {
        const auto* const notice = main_.findChild<QLabel*>("notice");
        return notice->isVisible() ? notice->text() : QString();
    }
    static QString SideName(Side side) {
        return side == Side::Attacker ? "Attacking Armies" : "Defending Armies";
    }
    QStringList Lines(Side side) {
        QStringList lines;
        for (int line = 0; line < List(side)->count(); ++line)
            lines += List(side)->item(line)->text();
        return lines;
    }

    static void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    static void ClickLine(QListWidget* list, int line, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, keys,
                          list->visualItemRect(list->item(line)).center());
    }
    /// Replaces the text of a box as a user types it.
    static void Type(QWidget* box, const QString& text) {
        box->setFocus();
        EditOf(box)->selectAll();
        QTest::keyClick(EditOf(box), Qt::Key_Backspace);
        QTest::keyClicks(EditOf(box), text);
    }
    /// Looks an entry up in a picker's list by its letters; a "|" stands for a pause of more than a second.
    void LookUp(Side side, const QString& letters) {
        const int interval = QApplication::keyboardInputInterval();
        Picker(side)->setFocus();
        for (const QChar letter : letters) {
            if (letter == '|') {
                QApplication::setKeyboardInputInterval(0);
                QTest::qWait(2);
                continue;
            }
            QWidget* const list = Picker(side)->view();
            QTest::keyClick(list->isVisible() ? list : Picker(side), letter.toLatin1());
            QApplication::setKeyboardInputInterval(interval);
        }
    }
    void Pick(Side side, const QString& name) {
        LookUp(side, name);
        QTest::keyClick(Picker(side)->view(), Qt::Key_Return);
        Activate();
    }
    void LineUp(const QStringList& attackers, const QStringList& defenders) {
        for (const Side side : BothSides)
            for (const QString& name : side == Side::Attacker ? attackers : defenders)
                Pick(side, name);
    }
    static QMenu* OpenMenu() {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            qFatal("no menu is open");
        return menu;
    }
    static QAction* Item(QMenu* menu, const QString& text) {
        for (QAction* item : menu->actions())
            if (item->text() == text)
                return item;
        qFatal("no item of the menu is called %s", qPrintable(text));
    }
    /// Chooses an item of the menu that is open.
    static void Choose(const QString& text) {
        QMenu* const menu = OpenMenu();
        QAction* const item = Item(menu, text);
        // By the keys, since not every Qt takes a simulated click on a menu.
        menu->setActiveAction(item);
        QTest::keyClick(menu, Qt::Key_Return);
    }

    /// Runs battles, at first doing something while the run is under way.
    void Attack(const QString& battles, std::function<void()> meanwhile = nullptr) {
        Type(Battles(), battles);
        if (meanwhile)
            QTimer::singleShot(0, &main_, std::move(meanwhile));
        Click(ButtonCalled("Attack"));
    }

    /// What is done in a modal window that comes up, of which the title is expected.
    struct Deed {
        QString Title;
        std::function<void(QDialog&)> Act;
    };
    /// Does these in the modal windows that come up, one after the other.
    void InModalWindows(std::deque<Deed> deeds) {
        deeds_ = std::move(deeds);
        deedTimer_.start(0);
    }

    CsvCatalogue catalogue_ = CsvCatalogue::BuiltIn();
    QtToolkit toolkit_;
    frmBrawlpad pad_{catalogue_, toolkit_};
    MainView main_{pad_};
    std::vector<std::string> reported_;

private:
    void DoNext() {
        auto* const modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (modal == nullptr || !modal->isVisible() || deeds_.empty())
            return;
        const Deed deed = deeds_.front();
        deeds_.pop_front();
        EXPECT_EQ(modal->windowTitle(), deed.Title);
        QTest::qWait(2); // what is pressed within the time of a double click does not count
        deed.Act(*modal);
    }

    QTimer watchdog_;
    QTimer deedTimer_;
    std::deque<Deed> deeds_;
};

inline const char* const HeroTitle = "Hero Bonuses (Both Intrinsic and from Items)";
inline const char* const MainTitle = "Vorhaven 3 Combat Calculator";

} // namespace vorhaven::test
