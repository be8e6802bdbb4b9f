// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/ListBox.h"

#include <QListWidget>

#include <functional>
#include <vector>

class QLabel;

namespace vorhaven {

/// A list box's widget, in which each line has the same height, known also while the list is empty. The
/// current line is always to be seen, selected or not, since it is what the buttons beside the list act on.
class ArmyListView final : public QListWidget {
public:
    explicit ArmyListView(QWidget* parent = nullptr);

    /// Height of a line, in pixels.
    [[nodiscard]] int LineHeight() const;

    /// The role of what is told quietly at the right end of a line.
    static constexpr int NoteRole = Qt::UserRole;

    /// Called for a right click, or for the menu key or Shift+F10, with the position for a menu. As with
    /// DeletePressed, the current line is selected by then, alone if it was not among the selected ones;
    /// without a current line nothing is called.
    std::function<void(const QPoint&)> MenuRequested;
    /// Called for the Delete key.
    std::function<void()> DeletePressed;
    /// Called for the keys that copy the selected lines, and that paste.
    std::function<void()> CopyPressed;
    std::function<void()> PastePressed;

    /// Shows where the list's stacks begin and end, also while it is empty.
    void ShowStacks();

    /// Makes the end of the list visible.
    void ShowLastLine();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void RequestMenuAtCurrentLine();
    /// Selects the current line alone where it is not selected; false where there is none.
    bool SelectCurrentLine();

    bool areStacksShown_ = false;
};

/// The labels beside a list, each beside the line where its stack of eight begins; they move with the list's
/// lines.
class StackLabels final : public QWidget {
public:
    /// The first label belongs to line 0, the second to line 8, and so on.
    StackLabels(ArmyListView& list, const std::vector<QLabel*>& labels, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Align();

    ArmyListView* list_;
    std::vector<QLabel*> labels_;
};

} // namespace vorhaven
