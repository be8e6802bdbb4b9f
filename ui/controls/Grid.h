// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"
#include "ui/controls/Control.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorhaven {

/// A table of texts with a header row, which is row 0.
class Grid : public Control {
public:
    /// One column as the header format gives it.
    struct Column {
        std::string Header;
        /// Least width, in characters.
        int Width = 0;
    };

    /// `rows` counts the header row. `headerFormat`: the column texts separated by "|", each with an
    /// alignment mark ("<" for left, which is also what a text without a mark is) and blanks that make up its
    /// width.
    Grid(Long rows, std::string_view headerFormat, std::string toolTip = {});

    [[nodiscard]] Long RowCount() const { return SizeOf(cells_); }
    [[nodiscard]] const std::vector<Column>& Columns() const { return columns_; }

    /// The text of a cell; raises error 9 outside the grid.
    [[nodiscard]] const std::string& Text(Long row, Long column) const;
    void SetText(Long row, Long column, std::string text);

    /// Makes a cell stand out from the rest of its row; raises error 9 outside the grid.
    void Emphasise(Long row, Long column);
    [[nodiscard]] bool IsEmphasised(Long row, Long column) const;

private:
    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> cells_;
    std::set<std::pair<Long, Long>> emphasised_;
};

} // namespace vorhaven
