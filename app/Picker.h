// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/DropDown.h"

#include <QElapsedTimer>
#include <QListView>

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
    /// The role of what is told quietly beside an entry in the open list: a list of texts, one a column.
    static constexpr int DetailsRole = Qt::UserRole;

    explicit Picker(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeList();

    /// Made when it opens for the first time, so that the window stands sooner: it is most of a picker.
    PickerList* list_ = nullptr;
};

} // namespace vorhaven
