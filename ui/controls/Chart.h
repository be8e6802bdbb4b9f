// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Controls.h"

#include <array>
#include <string>
#include <vector>

namespace vorhaven {

/// A column chart of two series over named categories. Rows and series count from 1.
class Chart : public Control {
public:
    struct Row {
        std::string Label;
        /// By series.
        std::array<Long, 2> Values;
        /// What the user is told about the row, and whether there is anything to tell beyond zeros.
        std::string Details;
        bool IsEmpty = true;
    };

    Chart(Long rows, std::string title, std::string categoryTitle, std::array<std::string, 2> valueTitles)
        : Title(std::move(title)), CategoryTitle(std::move(categoryTitle)),
          ValueTitles(std::move(valueTitles)), rows_(rows.Index()) {}

    const std::string Title;
    const std::string CategoryTitle;
    /// The axis title of each series, which is its name in the legend too.
    const std::array<std::string, 2> ValueTitles;

    /// The captions of the chart's own menu.
    const std::string CopyPicture = "Copy Picture";
    const std::string CopyNumbers = "Copy Numbers";

    [[nodiscard]] const std::vector<Row>& Rows() const { return rows_; }

    // These raise error 9 outside the chart.
    void SetRowLabel(Long row, std::string label);
    void SetData(Long row, Long series, Long value);
    void SetDetails(Long row, std::string details, bool isEmpty);

    /// The numbers as a table, columns separated by tabs and rows by line ends, headings first.
    [[nodiscard]] std::string Numbers() const;
    /// The details of the rows that are not empty, a line each: the chart for those who cannot see it.
    [[nodiscard]] std::string Description() const;

private:
    [[nodiscard]] Row& At(Long row);

    std::vector<Row> rows_;
};

} // namespace vorhaven
