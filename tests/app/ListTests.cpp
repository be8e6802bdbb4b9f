// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/Picker.h"
#include "app/setup/ArmyListView.h"
#include "tests/app/WindowFixture.h"

#include <QAbstractItemView>
#include <QFontInfo>
#include <QScrollBar>

namespace vorhaven::test {
namespace {

using Lists = Window;

TEST_F(Lists, PickersFindEntriesByTheBeginningOfAWord) {
    EXPECT_EQ(QApplication::keyboardInputInterval(), 1000);
    const struct {
        const char *Letters, *Found, *Reason; // nullptr: nothing is found
    } cases[] = {
        {"z", nullptr, "nothing is picked so far, and no word begins so"},
        {"oa", "Oath Guard", "a beginning"},
        {"guard", "Oath Guard", "a later word"},
        {"gu", "Guild Crossbows", "a beginning comes before a later word"},
        {"oaz", "Oath Guard", "an unmatched letter changes nothing"},
        {"oazth", "Oath Guard", "nor does it end the search"},
        {"sn", "Snow Bear", "several letters are one beginning"},
        {"s|n", "Night Blades", "after a pause a new search begins"},
        {"tt", "Thorn Bows", "a letter repeated goes on to the next entry"},
        {"tttt", "Tunnel Sappers", "and round and round"},
    };
    QStringList lines;
    for (const auto& c : cases) {
        LookUp(Side::Attacker, c.Letters);
        QTest::keyClick(Picker(Side::Attacker)->view(), Qt::Key_Return);
        if (c.Found != nullptr)
            lines += c.Found;
        else // the open list still waits
            QTest::keyClick(Picker(Side::Attacker)->view(), Qt::Key_Escape);
        Activate();
        EXPECT_EQ(Lines(Side::Attacker), lines) << c.Letters << ": " << c.Reason;
    }
    EXPECT_EQ(Lines(Side::Defender), QStringList());
    QTest::keyClick(Picker(Side::Attacker), Qt::Key_O, Qt::AltModifier);
    EXPECT_FALSE(Picker(Side::Attacker)->view()->isVisible()) << "that is no letter of a name";
}

TEST_F(Lists, PickersTellEveryDetailOfThirtyTwoArmiesBelowTheField) {
    QComboBox* const picker = Picker(Side::Attacker);
    Click(picker);
    QAbstractItemView* const list = picker->view();
    EXPECT_GE(list->mapToGlobal(QPoint()).y(), picker->mapToGlobal(picker->rect().bottomLeft()).y());
    EXPECT_GE(list->width(), picker->width());
    EXPECT_GE(list->indexAt({1, list->viewport()->height() - 1}).row(), MaxLines - 1);
    const auto figures = [&](const char* name) {
        return picker->itemData(picker->findText(name), Picker::DetailsRole).toStringList().join('|');
    };
    EXPECT_EQ(figures("Oath Guard"), "strength 6|hits 3|turns 4|city +1|Morale 2");
    EXPECT_EQ(figures("Castellan"), "strength 5|hits 3||city +2|");
    const QImage picture = list->viewport()->grab().toImage();
    const auto isBlank = [&](int x) {
        for (int y = 0; y < picture.height(); ++y)
            if (picture.pixelColor(x, y) != list->palette().color(QPalette::Base))
                return false;
        return true;
    };
    int last = picture.width() - 1;
    while (last > 0 && isBlank(last))
        --last;
    EXPECT_GT(last, picture.width() / 2) << "the details stand behind the names";
    EXPECT_LT(last, picture.width() - 1) << "and none is cut off";
    EXPECT_TRUE(list->verticalScrollBar()->isVisible());
    QTest::keyClick(list, Qt::Key_End);
    EXPECT_EQ(list->currentIndex().row(), picker->count() - 1) << "also when nothing is chosen";
    QTest::keyClick(list, Qt::Key_Escape);

    // With room beside it on the screen, since a window cannot always know how much there is.
    main_.move(-300, 0);
    for (const Side side : BothSides) {
        Activate();
        Click(Picker(side));
        const QRect open = Picker(side)->view()->window()->geometry();
        EXPECT_GE(open.left(), main_.geometry().left());
        EXPECT_LE(open.right(), main_.geometry().right());
        EXPECT_GT(open.width(), Picker(side)->width());
        QTest::keyClick(Picker(side)->view(), Qt::Key_Escape);
    }
}

TEST_F(Lists, PickersAddOnlyWhatIsPicked) {
    QComboBox* const picker = Picker(Side::Defender);
    // While a screen reader listens, a key is offered twice.
    Click(picker);
    picker->view()->setCurrentIndex(picker->model()->index(3, 0));
    for (int offer = 1; offer <= 2; ++offer) {
        QKeyEvent key(QEvent::ShortcutOverride, Qt::Key_Return, Qt::NoModifier, "\r");
        QApplication::sendEvent(picker->view(), &key);
    }
    Activate();
    EXPECT_EQ(Lines(Side::Defender), QStringList("Gate Wardens"));

    // Neither by the wheel, nor by a key that is held since before, nor by leaving the list.
    picker->setFocus();
    Wheel(picker);
    for (const auto key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_O}) {
        HoldKey(key, "o");
        EXPECT_FALSE(picker->view()->isVisible());
    }
    EXPECT_EQ(Lines(Side::Defender).size(), 1);
}

/// The defenders' list, whose menu is asked for.
class ListMenu : public Window {
protected:
    void Ask(QContextMenuEvent::Reason reason) {
        const QPoint place = list_->currentItem() != nullptr
                                 ? list_->visualItemRect(list_->currentItem()).center()
                                 : list_->viewport()->rect().center();
        QContextMenuEvent event(reason, place, list_->viewport()->mapToGlobal(place));
        QApplication::sendEvent(list_->viewport(), &event);
    }
    static QString ItemsAndKeys() {
        QStringList texts;
        for (const QAction* item : OpenMenu()->actions())
            if (!item->isSeparator())
                texts += item->text() + ' ' + item->shortcut().toString();
        return texts.join(", ");
    }

    QListWidget* const list_ = List(Side::Defender);
    const std::pair<const char*, std::function<void()>> ways_[3]{
        {"right click", [this] { Ask(QContextMenuEvent::Mouse); }},
        {"menu key", [this] { Ask(QContextMenuEvent::Keyboard); }},
        {"Shift+F10", [this] { QTest::keyClick(list_, Qt::Key_F10, Qt::ShiftModifier); }}};
    const QString redoKey_ = QKeySequence(QKeySequence::Redo).toString(); // each desktop's own
};

TEST_F(ListMenu, WithoutALineIsNoLinesMenu) {
    // Also when the focus comes by the Tab key.
    list_->setFocus(Qt::TabFocusReason);
    QGuiApplication::clipboard()->setText("Oath Guard");
    for (const auto& [name, open] : ways_) {
        open();
        EXPECT_EQ(ItemsAndKeys(), "Paste Ctrl+V, Undo Ctrl+Z, Redo " + redoKey_) << name;
        Choose("Paste");
    }
    QTest::keyClick(list_, Qt::Key_Delete);
    EXPECT_EQ(Lines(Side::Defender), QStringList(3, "Oath Guard"));
}

TEST_F(ListMenu, ActsOnTheLinesThatAreShownSelected) {
    LineUp({}, {"Oath Guard", "Snow Bear"});
    for (const auto& [name, open] : ways_) {
        SCOPED_TRACE(name);
        // The current line is not among the selected ones, so the menu belongs to it alone.
        ClickLine(list_, 0);
        ClickLine(list_, 1, Qt::ControlModifier);
        ClickLine(list_, 1, Qt::ControlModifier);
        ASSERT_EQ(list_->currentRow(), 1);
        open();
        EXPECT_FALSE(list_->item(0)->isSelected());
        EXPECT_TRUE(list_->item(1)->isSelected());
        const QPoint line = list_->viewport()->mapToGlobal(list_->visualItemRect(list_->item(1)).center());
        EXPECT_TRUE(OpenMenu()->geometry().adjusted(-5, -25, 5, 5).contains(line)) << "at the line";
        Choose("Blessed");
        EXPECT_EQ(list_->item(0)->text(), "Oath Guard");
        EXPECT_TRUE(list_->item(1)->text().startsWith("Snow Bear *"));
        open();
        EXPECT_TRUE(Item(OpenMenu(), "Blessed")->isChecked());
        EXPECT_FALSE(Item(OpenMenu(), "Flying")->isChecked());
        EXPECT_FALSE(Item(OpenMenu(), "Diseased")->isEnabled());
        Choose("Blessed");
        EXPECT_EQ(Lines(Side::Defender).back(), "Snow Bear");
    }
    ways_[1].second();
    EXPECT_TRUE(ItemsAndKeys().endsWith(
        "Delete Del, Edit Hero... , Copy Ctrl+C, Paste Ctrl+V, Copy Battle Ctrl+Shift+C, "
        "Undo Ctrl+Z, Redo " +
        redoKey_))
        << ItemsAndKeys().toStdString();
    for (int time = 1; time <= 2; ++time) { // which gives no more
        Item(Item(OpenMenu(), "Medal")->menu(), "2 Medals")->trigger();
        OpenMenu()->close();
        ways_[1].second();
    }
    EXPECT_TRUE(Item(Item(OpenMenu(), "Medal")->menu(), "2 Medals")->isChecked());
    Choose("Delete");
    EXPECT_EQ(Lines(Side::Defender), QStringList{"Oath Guard"});
    // The Delete key, too, acts on the current line that is not selected.
    ClickLine(list_, 0);
    ClickLine(list_, 0, Qt::ControlModifier);
    QTest::keyClick(list_, Qt::Key_Delete);
    EXPECT_EQ(list_->count(), 0);
}

TEST_F(Lists, TellHowOftenEachLineSurvives) {
    LineUp({"Oath Guard"}, {"Oath Guard"});
    QTest::qWait(1); // one change after the other
    QListWidget* const list = List(Side::Attacker);
    ClickLine(list, 0);
    QTest::keyClick(list, Qt::Key_F10, Qt::ShiftModifier);
    Choose("Flying");
    QTest::qWait(1);
    main_.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->hasFocus(); }));
    const QImage selected = list->viewport()->grab(list->visualItemRect(list->item(0))).toImage();
    int brightest = 0;
    for (int x = selected.width() * 3 / 4; x < selected.width() - 3; ++x)
        for (int y = 3; y < selected.height() - 3; ++y)
            brightest = std::max(brightest, qGray(selected.pixel(x, y)));
    EXPECT_GT(brightest, 190) << "a selected line's conditions are as white as its name";
    const QString exact = Find<QLabel>(&main_, "50.0%")->text();
    const QListWidgetItem& item = *list->item(0);
    EXPECT_TRUE(item.toolTip().endsWith("\nflying\nSurvives " + exact + " of battles"));
    EXPECT_EQ(item.data(Qt::AccessibleTextRole).toString(), "Oath Guard *, flying, survives " + exact);
    EXPECT_EQ(item.data(ArmyListView::FigureRole).toString(), "50%");
    auto* const caption = Find<QLabel>(&main_, "survives");
    const auto* const change = Find<QLabel>(&main_, "+0.0");
    EXPECT_EQ(change->toolTip(), "0.0 points more than before the last change (50.0%)");
    EXPECT_EQ(change->accessibleDescription(), change->toolTip());

    // What stands in the column goes with its caption, not with the list's room for a condition.
    const int em = QFontInfo(list->font()).pixelSize();
    const auto inkAtTheEnd = [&](QWidget* widget) {
        const QImage picture = widget->grab().toImage();
        const QRgb blank = picture.pixel(picture.width() - 2, 1);
        int count = 0;
        for (int x = picture.width() - 3 * em; x < picture.width() - 1; ++x)
            for (int y = 1; y < std::min(picture.height(), 16); ++y)
                count += picture.pixel(x, y) != blank ? 1 : 0;
        return count;
    };
    list->setFixedWidth(18 * em);
    list->clearSelection();
    list->setCurrentRow(-1);
    Click(Battles());
    QTest::qWait(1);
    EXPECT_GT(inkAtTheEnd(list->viewport()), 10);
    EXPECT_GT(inkAtTheEnd(caption), 10);
    list->setFixedWidth(16 * em);
    QTest::qWait(1);
    EXPECT_EQ(inkAtTheEnd(caption), 0);
}

TEST_F(Lists, TakeWhatIsPastedOnTheSideUsedLastWhereverTheFocusIs) {
    LineUp({"Oath Guard"}, {"Oath Guard"});
    Attack("10");
    PerSide<QStringList> lines{{"Oath Guard"}, {"Oath Guard"}};
    Side side = Side::Defender;
    int fields = 0;
    for (QWidget* widget : main_.findChildren<QWidget*>()) {
        if ((widget->focusPolicy() & Qt::ClickFocus) == 0 || !widget->isVisible() || !widget->isEnabled())
            continue;
        widget->setFocus();
        for (const Side each : BothSides)
            if (NameOf(widget).endsWith(SideName(each)))
                side = each;
        QGuiApplication::clipboard()->setText("Snow Bear");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
        if (EditOf(widget) == nullptr)
            lines[side] += "Snow Bear";
        else
            ++fields;
        for (const Side each : BothSides)
            ASSERT_EQ(Lines(each), lines[each]) << NameOf(widget).toStdString();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), pad_.BattleAsText());
    }
    EXPECT_GE(fields, 4);
    EXPECT_EQ(lines.Defender.size(), 7) << "by six controls";
    EXPECT_GT(lines.Attacker.size(), 9) << "by those of the middle too, which come next";
}

TEST_F(Lists, ButtonsKeysAndMouseMoveCopyAndRemoveLines) {
    for (const Side side : BothSides) {
        QListWidget* const list = List(side);
        const auto click = [&](const QString& button) {
            Click(ButtonCalled(button + ", " + SideName(side)));
        };
        click("Duplicate"); // no line to copy
        for (const char* army : {"Oath Guard", "Snow Bear", "Thane"})
            Pick(side, army);
        ClickLine(list, 1);
        click("Army Up");
        EXPECT_EQ(Lines(side), (QStringList{"Snow Bear", "Oath Guard", "Thane"}));
        EXPECT_EQ(list->currentRow(), 0);
        EXPECT_TRUE(list->item(0)->isSelected());
        EXPECT_FALSE(list->item(1)->isSelected());
        click("Army Dn");
        click("Army Dn");
        EXPECT_EQ(Lines(side), (QStringList{"Oath Guard", "Thane", "Snow Bear"}));
        EXPECT_EQ(list->currentRow(), 2);
        Type(Find<QWidget>(&main_, "Number of Duplicates, " + SideName(side)), "2");
        click("Duplicate");
        EXPECT_EQ(Lines(side), (QStringList{"Oath Guard", "Thane", "Snow Bear", "Snow Bear", "Snow Bear"}));
        EXPECT_EQ(list->currentRow(), 2);
        for (const auto& [button, line] : {std::pair{Qt::MiddleButton, 1}, {Qt::LeftButton, 0}}) {
            const QPoint place = list->visualItemRect(list->item(line)).center();
            QTest::mouseClick(list->viewport(), button, {}, place);
            QTest::mouseDClick(list->viewport(), button, {}, place);
        }
        EXPECT_EQ(Lines(side), (QStringList{"Thane", "Snow Bear", "Snow Bear", "Snow Bear"}));
        ClickLine(list, 0);
        ClickLine(list, 2, Qt::ShiftModifier);
        QTest::keyClick(list, Qt::Key_Delete);
        EXPECT_EQ(Lines(side), QStringList{"Snow Bear"});
        click("Clear List");
        EXPECT_EQ(list->count(), 0);
    }
}

TEST_F(Lists, ShowWhatIsAddedAndWhatWillBeActedOn) {
    QListWidget* const list = List(Side::Attacker);
    const auto isWhollyVisible = [&](int line) {
        return list->viewport()->rect().contains(list->visualItemRect(list->item(line)));
    };
    const auto outline = [&](int line) {
        const QRect place = list->visualItemRect(list->item(line));
        const QImage picture = list->viewport()->grab(place).toImage();
        return picture.pixelColor(picture.width() / 2, 0) == list->palette().color(QPalette::Highlight) &&
               picture.pixelColor(picture.width() / 2, 2) != list->palette().color(QPalette::Highlight);
    };
    LineUp({"Oath Guard"}, {});
    const int lineHeight = list->visualItemRect(list->item(0)).height();
    EXPECT_GE(list->sizeHint().height(), 32 * lineHeight);

    // The Tab key brings the focus into the list, but no line becomes the one that is acted on.
    list->setCurrentRow(-1);
    QTest::keyClick(Picker(Side::Attacker), Qt::Key_Tab);
    ASSERT_TRUE(list->hasFocus());
    EXPECT_EQ(list->currentRow(), -1);
    Click(ButtonCalled("Duplicate, Attacking Armies"));
    EXPECT_EQ(list->count(), 1);
    ClickLine(list, 0);
    ClickLine(list, 0, Qt::ControlModifier);
    EXPECT_TRUE(outline(0)) << "current, but not selected";

    main_.resize(main_.width(), main_.minimumSizeHint().height());
    list->setFixedHeight(12 * lineHeight);
    Type(Find<QWidget>(&main_, "Number of Duplicates, Attacking Armies"), "25");
    Click(ButtonCalled("Duplicate, Attacking Armies"));
    QTest::qWait(1);
    EXPECT_EQ(list->count(), 26);
    EXPECT_TRUE(isWhollyVisible(25));
    EXPECT_FALSE(outline(25));
    list->scrollToTop();
    Pick(Side::Attacker, "Thane");
    EXPECT_TRUE(isWhollyVisible(26));
}

TEST_F(Lists, ShowWhereTheirStacksBeginWhileTheyScroll) {
    LineUp({"Oath Guard"}, {});
    QListWidget* const list = List(Side::Attacker);
    const int lineHeight = list->visualItemRect(list->item(0)).height();
    main_.resize(main_.width(), main_.minimumSizeHint().height());
    list->setFixedHeight(12 * lineHeight);
    ClickLine(list, 0);
    Type(Find<QWidget>(&main_, "Number of Duplicates, Attacking Armies"), "26");
    Click(ButtonCalled("Duplicate, Attacking Armies"));
    // Beside every eighth line stands its stack's label, as far as the line is in view.
    for (const int top : {0, 6, 14}) {
        list->verticalScrollBar()->setValue(top * lineHeight);
        QTest::qWait(1);
        EXPECT_EQ(list->verticalScrollBar()->value(), top * lineHeight);
        const QImage picture = list->viewport()->grab().toImage();
        for (int line = 0; line < list->count(); ++line) {
            const QPoint middle = list->visualItemRect(list->item(line)).center();
            if (!picture.rect().contains(middle) || list->item(line)->isSelected())
                continue;
            EXPECT_EQ(picture.pixelColor(middle) == list->palette().color(QPalette::Base), line / 8 % 2 == 0)
                << "line " << line << " from line " << top;
        }
        for (int stack = 0; stack < 4; ++stack) {
            const auto* const label = Find<QLabel>(&main_, "Stack " + QString::number(stack + 1));
            const QRect line = list->visualItemRect(list->item(8 * stack));
            const bool isInView = list->viewport()->rect().contains(line.adjusted(0, 0, 0, -1));
            EXPECT_EQ(label->isVisible(), isInView) << "stack " << stack + 1 << " from line " << top;
            const int labelTop = label->mapTo(&main_, QPoint(0, 0)).y();
            EXPECT_TRUE(!isInView || labelTop == list->viewport()->mapTo(&main_, line.topLeft()).y());
        }
    }
}

} // namespace
} // namespace vorhaven::test
