// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/controls/Grid.h"

#include <algorithm>

namespace vorhaven {

Grid::Grid(Long rows, std::string_view headerFormat, std::string toolTip) : Control(std::move(toolTip)) {
    while (true) {
        const std::size_t bar = headerFormat.find('|');
        const std::string_view field = headerFormat.substr(0, bar);
        std::string_view header = field;
        if (header.starts_with('<'))
            header.remove_prefix(1);
        const std::size_t first = header.find_first_not_of(' ');
        const std::size_t last = header.find_last_not_of(' ');
        columns_.push_back({first == std::string_view::npos
                                ? std::string{}
                                : std::string(header.substr(first, last - first + 1)),
                            static_cast<int>(field.size())});
        if (bar == std::string_view::npos)
            break;
        headerFormat.remove_prefix(bar + 1);
    }
    cells_.assign(rows.Index(), std::vector<std::string>(columns_.size()));
    details_.resize(cells_.size());
    for (std::size_t column = 0; column < columns_.size(); ++column)
        cells_[0][column] = columns_[column].Header;
}

const std::string& Grid::Text(Long row, Long column) const {
    if (row < 0 || row >= RowCount() || column < 0 || column >= SizeOf(columns_))
        throw RunTimeError{ErrorNumber::SubscriptOutOfRange};
    return cells_[row.Index()][column.Index()];
}

void Grid::SetText(Long row, Long column, std::string text) {
    (void)Text(row, column);
    cells_[row.Index()][column.Index()] = std::move(text);
    Changed.Raise();
}

void Grid::Emphasise(Long row, Long column) {
    (void)Text(row, column);
    emphasised_.emplace(row, column);
    Changed.Raise();
}

bool Grid::IsEmphasised(Long row, Long column) const {
    return emphasised_.contains({row, column});
}

void Grid::Quieten(Long row, Long column) {
    (void)Text(row, column);
    quiet_.emplace(row, column);
    Changed.Raise();
}

bool Grid::IsQuiet(Long row, Long column) const {
    return quiet_.contains({row, column});
}

void Grid::SetDetails(Long row, std::string details) {
    (void)Text(row, 0);
    details_[row.Index()] = std::move(details);
    Changed.Raise();
}

const std::string& Grid::Details(Long row) const {
    (void)Text(row, 0);
    return details_[row.Index()];
}

Long Grid::LastFilledRow() const {
    Long row = RowCount() - 1;
    while (row > 0 && std::ranges::all_of(cells_[row.Index()], &std::string::empty))
        --row;
    return row;
}

std::string Grid::Numbers() const {
    std::string table;
    for (Long row = 0; row <= LastFilledRow(); ++row) {
        std::string line;
        for (const std::string& text : cells_[row.Index()])
            line += (&text == &cells_[row.Index()].front() ? "" : "\t") + text;
        table += line + "\n";
    }
    return table;
}

} // namespace vorhaven
