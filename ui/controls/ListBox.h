// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Controls.h"

#include <vector>

namespace vorhaven {

/// A list box in which the user selects any number of lines. Lines count from 0. Apart from the selected
/// lines there is the current one: the line of the user's last click or key, selected or not. Members that
/// take a line raise error 5 when there is no such line.
class ListBox : public Control {
public:
    explicit ListBox(std::string toolTip = {}) : Control(std::move(toolTip)) {}

    std::function<void()> DblClick;

    void AddItem(const ListEntry& entry);
    /// Removes a line. The current line stays on its place: where it is removed itself, the line that takes
    /// its place (or else the last) becomes current, and selected too if the removed one alone was selected.
    void RemoveItem(Long line);
    void Clear();
    /// Replaces all lines; none of the new ones is current or selected.
    void SetEntries(const std::vector<ListEntry>& entries);

    [[nodiscard]] Long ListCount() const { return SizeOf(lines_); }
    [[nodiscard]] const ListEntry& Entry(Long line) const { return lines_[IndexOf(line)].Entry; }
    void SetEntry(Long line, const ListEntry& entry);
    void SetText(Long line, const std::string& text) {
        SetEntry(line, {text, Entry(line).Datum, Entry(line).Id});
    }
    /// A remark on a line, for the view to show quietly beside its entry.
    [[nodiscard]] const std::string& Note(Long line) const { return lines_[IndexOf(line)].Note; }
    void SetNote(Long line, const std::string& note);

    /// A figure of a line, for the view to show in a column of its own: its text, the same exactly
    /// as a sentence, and as words that go on after the line's text. All empty without one.
    struct Figure {
        std::string Text{};
        std::string Sentence{};
        std::string Words{};

        bool operator==(const Figure&) const = default;
    };
    [[nodiscard]] const Figure& FigureOf(Long line) const { return lines_[IndexOf(line)].Figure; }
    /// Gives every line its figure; those behind the last one get none.
    void SetFigures(const std::vector<Figure>& figures);

    /// The current line, -1 for none. Making a line current selects nothing.
    [[nodiscard]] Long ListIndex() const { return listIndex_; }
    void SetListIndex(Long line);

    [[nodiscard]] bool Selected(Long line) const { return lines_[IndexOf(line)].Selected; }
    void SetSelected(Long line, bool selected);
    [[nodiscard]] std::vector<Long> SelectedLines() const;

    /// The current line and the selected lines together.
    struct Selection {
        Long Current = -1;
        std::vector<Long> Lines;
    };
    [[nodiscard]] Selection CurrentSelection() const { return {listIndex_, SelectedLines()}; }
    /// The user's selection. Lines that the list does not have are left out.
    void Select(const Selection& selection);

    void DoubleClick() { Raise(DblClick); }

private:
    struct Line {
        ListEntry Entry{};
        bool Selected = false;
        std::string Note{};
        ListBox::Figure Figure{};
    };

    [[nodiscard]] std::size_t IndexOf(Long line) const;

    std::vector<Line> lines_;
    Long listIndex_ = -1;
};

} // namespace vorhaven
