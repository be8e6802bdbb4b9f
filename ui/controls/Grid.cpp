// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/controls/Grid.h"

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

} // namespace vorhaven
