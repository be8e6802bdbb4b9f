// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/controls/ListBox.h"

#include <algorithm>
#include <utility>

namespace vorhaven {

void ListBox::AddItem(const ListEntry& entry) {
    lines_.push_back({entry});
    Changed.Raise();
}

void ListBox::RemoveItem(Long line) {
    const std::size_t place = IndexOf(line);
    const bool wasOnlyOne = lines_[place].Selected && SelectedLines().size() == 1;
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(place));
    if (line == listIndex_) {
        listIndex_ = std::min(listIndex_, ListCount() - 1);
        if (wasOnlyOne && listIndex_ >= 0)
            lines_[IndexOf(listIndex_)].Selected = true;
    } else if (line < listIndex_) {
        listIndex_ = listIndex_ - 1;
    }
    Changed.Raise();
}

void ListBox::Clear() {
    lines_.clear();
    listIndex_ = -1;
    Changed.Raise();
}

void ListBox::SetEntries(const std::vector<ListEntry>& entries) {
    lines_.clear();
    for (const ListEntry& entry : entries)
        lines_.push_back({entry});
    listIndex_ = -1;
    Changed.Raise();
}

void ListBox::SetNote(Long line, const std::string& note) {
    if (std::exchange(lines_[IndexOf(line)].Note, note) != note)
        Changed.Raise();
}

void ListBox::SetFigures(const std::vector<Figure>& figures) {
    bool isAnyNew = false;
    for (std::size_t line = 0; line < lines_.size(); ++line) {
        const Figure figure = line < figures.size() ? figures[line] : Figure{};
        isAnyNew = std::exchange(lines_[line].Figure, figure) != figure || isAnyNew;
    }
    if (isAnyNew)
        Changed.Raise();
}

void ListBox::SetEntry(Long line, const ListEntry& entry) {
    lines_[IndexOf(line)].Entry = entry;
    Changed.Raise();
}

void ListBox::SetListIndex(Long line) {
    if (line != -1)
        (void)IndexOf(line);
    listIndex_ = line;
    Changed.Raise();
}

void ListBox::SetSelected(Long line, bool selected) {
    lines_[IndexOf(line)].Selected = selected;
    Changed.Raise();
}

std::vector<Long> ListBox::SelectedLines() const {
    std::vector<Long> selected;
    for (Long line = 0; line < ListCount(); ++line)
        if (Selected(line))
            selected.push_back(line);
    return selected;
}

void ListBox::Select(const Selection& selection) {
    for (Line& line : lines_)
        line.Selected = false;
    for (const Long line : selection.Lines)
        if (line >= 0 && line < ListCount())
            lines_[IndexOf(line)].Selected = true;
    listIndex_ = selection.Current < ListCount() ? selection.Current : Long{-1};
    Changed.Raise();
}

std::size_t ListBox::IndexOf(Long line) const {
    if (line < 0 || line >= ListCount())
        throw RunTimeError{ErrorNumber::InvalidCall};
    return line.Index();
}

} // namespace vorhaven
