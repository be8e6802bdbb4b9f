// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/controls/DropDown.h"

#include <QElapsedTimer>
#include <QListView>

#include <utility>

namespace vorhaven {

/// The open list of a picker. Letters typed within the toolkit's keyboard input interval of each other look
/// up an entry: first those whose name begins with them, then those of which a later word does. A letter that
/// finds nothing changes nothing; the same letter again goes on to the next entry that it finds.
class PickerList final : public QListView {
public:
    using QListView::QListView;

    void keyboardSearch(const QString& text) override;

    /// Measures the names (column 0) and the columns of their details; returns what all take side by side, in
    /// pixels.
    int MeasureColumns();
    [[nodiscard]] const QList<int>& ColumnWidths() const { return columnWidths_; }

    /// Begins a new look-up with the next letter.
    void EndSearch() { typed_.clear(); }

protected:
    void focusInEvent(QFocusEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    /// The rows that some letters find, in the order in which they are offered.
    [[nodiscard]] QList<int> RowsFoundBy(const QString& letters) const;

    QList<int> columnWidths_;
    QString typed_;
    QElapsedTimer sinceLetter_;
};

/// A drop-down list from which each choice in the open list counts as a pick. While it is closed no key picks
/// anything: a key that would move the selection opens the list instead, and letters look up an entry in it.
class Picker final : public DropDown {
public:
    /// The role of what is shown quietly beside an entry in the open list: a list of texts, one a column.
    static constexpr int DetailsRole = Qt::UserRole;

    explicit Picker(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    void showPopup() override;

    /// Whether an activated entry counts as a pick: one does for each opening of the list. While a screen
    /// reader listens, the toolkit offers each key to the list twice, and either offer activates the entry.
    [[nodiscard]] bool TakePick() { return std::exchange(awaitsPick_, false); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeList();

    /// Made when it opens for the first time, so that the window is up sooner: it is most of a picker.
    PickerList* list_ = nullptr;
    /// The list has been opened since the last pick.
    bool awaitsPick_ = false;
};

} // namespace vorhaven
