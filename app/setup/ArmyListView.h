// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/ListBox.h"

#include <QLabel>
#include <QListWidget>

#include <algorithm>
#include <functional>
#include <vector>

namespace vorhaven {

/// A list box's widget, in which each line has the same height, known also while the list is empty. The
/// current line is always to be seen, selected or not, since it is what the buttons beside the list act on;
/// so is the focus, with a current line or without. While the focus is elsewhere the selection is dimmer.
class ArmyListView final : public QListWidget {
public:
    explicit ArmyListView(QWidget* parent = nullptr);

    /// Height of a line, in pixels.
    [[nodiscard]] int LineHeight() const { return std::max(lineHeight_, LeastLineHeight()); }
    /// Makes the lines as high as a full list needs to fill so many pixels, within limits; the list grows no
    /// higher than that.
    void FitLines(int room);

    /// The role of what is said quietly at the right end of a line.
    static constexpr int NoteRole = Qt::UserRole;
    /// The role of the figure that comes after that, in a column of its own.
    static constexpr int FigureRole = Qt::UserRole + 1;

    /// How wide the column of figures is, in pixels: 0 in a list that is too narrow for it.
    [[nodiscard]] int FigureColumnWidth() const;
    /// From the column of figures, or a line's end, to the list's edge, in pixels.
    [[nodiscard]] int MarginOfFigures() const;

    /// Called for a right click on a line, or for the menu key or Shift+F10, with the position for a menu. As
    /// with DeletePressed, the current line is selected by then, alone if it was not among the selected ones.
    std::function<void(const QPoint&)> MenuRequested;
    /// The same for a right click beside the lines, and for the keys where no line is the current one.
    std::function<void(const QPoint&)> BareMenuRequested;
    /// Called for the Delete key.
    std::function<void()> DeletePressed;
    /// Called for the keys that copy the selected lines.
    std::function<void()> CopyPressed;

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
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    [[nodiscard]] int LeastLineHeight() const;
    void PaintStacks(QPainter& painter) const;
    void RequestMenuAtCurrentLine();
    /// Selects the current line alone where it is not selected; false where there is none.
    bool SelectCurrentLine();

    bool areStacksShown_ = false;
    int lineHeight_ = 0;
};

/// The small caption above a list's column of figures. It keeps its height while it has no text, and where
/// the list has no such column.
class FigureCaption final : public QLabel {
public:
    /// `list` must outlive the caption.
    explicit FigureCaption(ArmyListView& list, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    ArmyListView* list_;
};

/// A label that is read from below, where there is more height than width.
class UprightLabel final : public QLabel {
public:
    using QLabel::QLabel;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The labels beside a list, each from the line on where its stack of eight begins; they move with the list's
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
