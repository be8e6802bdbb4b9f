// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"
#include "ui/controls/Control.h"

#include <functional>
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

    /// The last row that has a text, at least 0: the rows below it need not be shown.
    [[nodiscard]] Long LastFilledRow() const;

    /// Makes a cell stand out from the rest of its row; raises error 9 outside the grid.
    void Emphasise(Long row, Long column);
    [[nodiscard]] bool IsEmphasised(Long row, Long column) const;
    /// Makes a cell step back behind the rest of its row; raises error 9 outside the grid.
    void Quieten(Long row, Long column);
    [[nodiscard]] bool IsQuiet(Long row, Long column) const;

    /// What there is to say about a row beyond its texts; raises error 9 outside the grid.
    void SetDetails(Long row, std::string details);
    [[nodiscard]] const std::string& Details(Long row) const;

    /// Raised when the user makes a row the current one.
    std::function<void(Long)> RowPicked;
    void PickRow(Long row) const {
        if (RowPicked)
            RowPicked(row);
    }

    /// The caption of the grid's own menu.
    const std::string CopyNumbers = "Copy Numbers";
    /// The filled rows as a table, columns separated by tabs and rows by line ends, headings first.
    [[nodiscard]] std::string Numbers() const;

private:
    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> cells_;
    std::vector<std::string> details_;
    std::set<std::pair<Long, Long>> emphasised_;
    std::set<std::pair<Long, Long>> quiet_;
};

} // namespace vorhaven
