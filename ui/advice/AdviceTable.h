// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Side.h"
#include "ui/controls/Control.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vorhaven {

/// A table of figures, of which the user may make one row the current one.
class AdviceTable : public Control {
public:
    enum class Weight { Quiet, Normal, Strong };

    struct Column {
        /// In one line or two.
        std::string Header;
        bool IsFigure = true;
        Weight Look = Weight::Normal;
        /// Of these figures the least is the best, of any others the greatest.
        bool IsCost = false;
    };
    struct Cell {
        std::string Text{};
        /// What a column of figures is sorted by.
        double Value = 0.0;
        /// What a screen reader says; the text where it is empty.
        std::string Words{};
        /// A part of 1, for a bar behind the text.
        std::optional<double> Share{};
    };
    struct Row {
        std::vector<Cell> Cells;
        /// Finds the row again when the table is made anew.
        std::string Key{};
        std::string ToolTip{};
        Side OfSide = Side::Attacker;
        /// A heading, in the first cell, of the rows below it. It cannot be the current row.
        bool IsHeading = false;
        bool IsDimmed = false;
    };

    /// A table to pick a row from, which the user may sort, or one to read in the order that it has.
    enum class Purpose { ToPickFrom, ToRead };

    AdviceTable(std::string title, std::vector<Column> columns, Purpose purpose = Purpose::ToPickFrom)
        : Title(std::move(title)), IsToRead(purpose == Purpose::ToRead), columns_(std::move(columns)) {}

    /// What a screen reader calls the table.
    const std::string Title;
    /// No row is the current one.
    const bool IsToRead;
    /// The rows are of an earlier set-up.
    Property<bool> IsStale{*this, false};

    [[nodiscard]] const std::vector<Column>& Columns() const { return columns_; }
    [[nodiscard]] const std::vector<Row>& Rows() const { return rows_; }
    /// Another number whenever rows or headers are others.
    [[nodiscard]] int Edition() const { return edition_; }

    void SetHeader(std::size_t column, const std::string& header);
    /// Replaces all rows. The current row stays the one with its key, or else becomes the first.
    void SetRows(std::vector<Row> rows);

    /// The current row; nothing in an empty table, or where no row is meant.
    [[nodiscard]] std::optional<std::size_t> Current() const { return current_; }
    void SetCurrent(std::optional<std::size_t> row);
    /// The user makes a row the current one.
    void Pick(std::size_t row);
    /// The user's Enter or double click on the current row.
    void Activate() const {
        if (Activated && current_)
            Activated();
    }

    /// Raised whenever what the current row says may be another.
    std::function<void()> CurrentChanged;
    /// Raised when the user has picked a row.
    std::function<void()> Picked;
    std::function<void()> Activated;

private:
    std::vector<Column> columns_;
    std::vector<Row> rows_;
    std::optional<std::size_t> current_;
    int edition_ = 0;
};

/// A difference, with its sign, as a cell: of chances in points, "gain 10.5 points" in words where it is a
/// gain and "58.5 points less" where it is a change.
[[nodiscard]] AdviceTable::Cell GainCell(double points);
[[nodiscard]] AdviceTable::Cell ChangeCell(double points);
/// A number with so many decimals, and a difference of such numbers.
[[nodiscard]] AdviceTable::Cell NumberCell(double value, int decimals);
[[nodiscard]] AdviceTable::Cell DifferenceCell(double value, int decimals);

} // namespace vorhaven
