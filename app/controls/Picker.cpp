// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/Picker.h"

#include "app/program/Shade.h"
#include "model/CAttackArmies.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace vorhaven {
namespace {

bool HasLaterWord(const QString& name, const QString& beginning) {
    for (qsizetype space = name.indexOf(' '); space >= 0; space = name.indexOf(' ', space + 1))
        if (name.mid(space + 1).startsWith(beginning, Qt::CaseInsensitive))
            return true;
    return false;
}

bool IsOneLetterRepeated(const QString& letters) {
    return letters.count(letters.front(), Qt::CaseInsensitive) == letters.size();
}

/// A picker is at least as wide as so many letters; the names in it may be longer.
constexpr int LeastLetters = 12;

int GapOf(const QFontMetrics& metrics) {
    return 2 * metrics.averageCharWidth();
}

/// The application's style, with a drop-down list that scrolls below its field instead of a menu as high as
/// the screen. A list that is wider than its field does not go beyond the window's edge: where windows do not
/// know their place on the screen, as on Wayland, that is all that keeps it on the screen.
class ListBelowField final : public QProxyStyle {
public:
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl part, const QWidget* widget) const override {
        QRect place = QProxyStyle::subControlRect(control, option, part, widget);
        const auto* const picker = qobject_cast<const QComboBox*>(widget);
        if (part != SC_ComboBoxListBoxPopup || picker == nullptr)
            return place;
        place.setWidth(std::max(place.width(), picker->view()->parentWidget()->minimumSizeHint().width()));
        const QRect window(picker->mapFrom(picker->window(), QPoint(0, 0)), picker->window()->size());
        place.moveRight(std::min(place.right(), window.right()));
        place.moveLeft(std::max(place.left(), window.left()));
        return place;
    }

    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returnData) const override {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

/// Paints an entry's details in columns behind its name.
class DetailsDelegate final : public QStyledItemDelegate {
public:
    explicit DetailsDelegate(PickerList& list) : QStyledItemDelegate(&list), list_(&list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const QStringList details = index.data(Picker::DetailsRole).toStringList();
        const QList<int>& widths = list_->ColumnWidths();
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        const QColor text = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
        painter->save();
        painter->setPen(isSelected ? text : Shaded(text, option.palette.color(QPalette::Base), Shade::Quiet));
        const int gap = GapOf(option.fontMetrics);
        int left = gap + widths.value(0);
        for (qsizetype column = 0; column + 1 < widths.size() && column < details.size(); ++column) {
            left += gap;
            const QRect room(option.rect.left() + left, option.rect.top(), widths[column + 1],
                             option.rect.height());
            painter->drawText(QStyle::visualRect(option.direction, option.rect, room),
                              Qt::AlignVCenter | Qt::AlignLeft, details[column]);
            left += widths[column + 1];
        }
        painter->restore();
    }

private:
    PickerList* list_;
};

} // namespace

QList<int> PickerList::RowsFoundBy(const QString& letters) const {
    QList<int> rows;
    QList<int> rowsByLaterWord;
    for (int row = 0; row < model()->rowCount(); ++row) {
        const QString name = model()->index(row, 0).data().toString();
        if (name.startsWith(letters, Qt::CaseInsensitive))
            rows += row;
        else if (HasLaterWord(name, letters))
            rowsByLaterWord += row;
    }
    return rows + rowsByLaterWord;
}

void PickerList::keyboardSearch(const QString& text) {
    if (text.isEmpty())
        return;
    if (!sinceLetter_.isValid() || sinceLetter_.hasExpired(QApplication::keyboardInputInterval()))
        typed_.clear();
    sinceLetter_.start();

    const int current = currentIndex().row();
    const QString letters = typed_ + text;
    QList<int> rows = RowsFoundBy(letters);
    bool isNextWanted = typed_.isEmpty();
    if (rows.isEmpty() && IsOneLetterRepeated(letters)) {
        rows = RowsFoundBy(text);
        isNextWanted = true;
    }
    if (rows.isEmpty())
        return;
    typed_ = letters;
    // The list of what is found is gone through from the current entry on, round and round.
    const auto place = rows.indexOf(current);
    if (place < 0)
        setCurrentIndex(model()->index(rows.front(), 0));
    else if (isNextWanted)
        setCurrentIndex(model()->index(rows[(place + 1) % rows.size()], 0));
}

int PickerList::MeasureColumns() {
    columnWidths_.clear();
    for (int row = 0; row < model()->rowCount(); ++row) {
        const QModelIndex index = model()->index(row, 0);
        const QStringList texts =
            QStringList{index.data().toString()} + index.data(Picker::DetailsRole).toStringList();
        columnWidths_.resize(std::max(columnWidths_.size(), texts.size()));
        for (qsizetype column = 0; column < texts.size(); ++column)
            columnWidths_[column] =
                std::max(columnWidths_[column], fontMetrics().horizontalAdvance(texts[column]));
    }
    int width = fontMetrics().averageCharWidth() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    for (const int column : columnWidths_)
        width += column + GapOf(fontMetrics());
    return width;
}

QModelIndex PickerList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    // From nowhere the toolkit would go to the first entry, whatever the key.
    if (action == MoveEnd && !currentIndex().isValid())
        return model()->index(model()->rowCount() - 1, 0);
    return QListView::moveCursor(action, modifiers);
}

void PickerList::focusInEvent(QFocusEvent* event) {
    // By any other reason the toolkit would make the first entry current, which nobody has chosen.
    QFocusEvent asByMouse(event->type(), Qt::MouseFocusReason);
    QListView::focusInEvent(&asByMouse);
}

Picker::Picker(QWidget* parent) : DropDown(parent) {
    setMaxVisibleItems(MaxLines);
}

QSize Picker::sizeHint() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize letters = fontMetrics().size(Qt::TextSingleLine, QString(LeastLetters, 'x'));
    // A pixel above and below, as in the toolkit's other boxes.
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, letters + QSize(0, 2), this);
}

void Picker::MakeList() {
    list_ = new PickerList;
    setView(list_);
    // Unlike a menu, for which the toolkit has taken it so far.
    list_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    list_->setItemDelegate(new DetailsDelegate(*list_));
    auto* const style = new ListBelowField;
    style->setParent(this);
    setStyle(style);
}

void Picker::showPopup() {
    if (list_ == nullptr)
        MakeList();
    list_->setMinimumWidth(std::max(width(), list_->MeasureColumns()));
    list_->EndSearch();
    awaitsPick_ = true;
    DropDown::showPopup();
}

void Picker::keyPressEvent(QKeyEvent* event) {
    // A key held down since before the list was left, or before the focus came here, opens nothing.
    if (event->isAutoRepeat()) {
        event->ignore();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
        showPopup();
        return;
    default:
        break;
    }
    const QString text = event->text();
    const bool isLetter = !text.isEmpty() && text.front().isLetterOrNumber() &&
                          !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!isLetter) {
        event->ignore();
        return;
    }
    showPopup();
    list_->keyboardSearch(text);
}

} // namespace vorhaven
