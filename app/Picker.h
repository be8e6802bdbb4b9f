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

    /// Begins a new look-up with the next letter.
    void EndSearch() { typed_.clear(); }

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    /// The rows that some letters find, in the order in which they are offered.
    [[nodiscard]] QList<int> RowsFoundBy(const QString& letters) const;

    QString typed_;
    QElapsedTimer sinceLetter_;
};

/// A drop-down list from which each choice in the open list counts as a pick. While it is closed no key picks
/// anything: a key that would move the selection opens the list instead, and letters look up an entry in it.
class Picker final : public DropDown {
public:
    explicit Picker(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    PickerList* list_;
};

} // namespace vorhaven
