// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Controls.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vorhaven {

/// What a chart says beside its columns.
struct ChartRemarks {
    /// The mean of the categories, as a category.
    std::optional<double> Mean;
    std::string MeanText;
    /// How many categories can occur, from the first one on; and why no others.
    Long Reachable;
    std::string WhyUnreachable;
    std::string Sentence;
    /// The highest value of each series that the chart has to have room for.
    std::array<double, 2> Highest{};
    /// Figures that are copied below those of the rows, with their names.
    std::vector<std::pair<std::string, std::string>> Totals;

    bool operator==(const ChartRemarks&) const = default;
};

/// A column chart of two series over named categories. Rows and series count from 1.
class Chart : public Control {
public:
    struct Row {
        std::string Label;
        /// By series.
        std::array<Long, 2> Values;
        /// The first value as it is written above its column; empty for none.
        std::string Figure;
        /// What the first value would be without chance.
        std::optional<double> Exact;
        /// How many of what is counted fell into the category.
        Long Count;
        /// What there is to say about the row, and whether that is zeros only.
        std::string Details;
        bool IsEmpty = true;

        /// Whether the exact value is large enough for a mark in the chart.
        [[nodiscard]] bool HasExactMark() const { return Exact && *Exact >= LeastExactMark; }
    };
    /// Exact values below this are as good as none to the eye.
    static constexpr double LeastExactMark = 0.05;

    Chart(Long rows, std::string title, std::string categoryTitle, std::array<std::string, 2> valueTitles)
        : Title(std::move(title)), CategoryTitle(std::move(categoryTitle)),
          ValueTitles(std::move(valueTitles)), rows_(rows.Index()) {}

    const std::string Title;
    const std::string CategoryTitle;
    /// The axis title of each series, which is its name in the legend too.
    const std::array<std::string, 2> ValueTitles;
    /// The name of the exact values in the legend, and before the first series' name that of their column in
    /// a copy; the name of the counts there.
    const std::string ExactTitle = "Exact";
    const std::string CountTitle = "Battles";

    /// The captions of the chart's own menu.
    const std::string CopyPicture = "Copy Picture";
    const std::string CopyNumbers = "Copy Numbers";

    [[nodiscard]] const std::vector<Row>& Rows() const { return rows_; }
    [[nodiscard]] bool HasExactMarks() const;

    // These raise error 9 outside the chart.
    void SetRowLabel(Long row, std::string label);
    void SetData(Long row, Long series, Long value);
    void SetFigure(Long row, std::string figure);
    void SetExact(Long row, std::optional<double> exact);
    void SetCount(Long row, Long count);
    void SetDetails(Long row, std::string details, bool isEmpty);

    Property<ChartRemarks> Remarks{*this, {}};

    /// The numbers as a table, columns separated by tabs and rows by line ends: headings, rows, totals and
    /// the sentence.
    [[nodiscard]] std::string Numbers() const;
    /// The remarks, then the details of the rows that are not empty, a line each: the chart for those who
    /// cannot see it.
    [[nodiscard]] std::string Description() const;

private:
    [[nodiscard]] Row& At(Long row);

    std::vector<Row> rows_;
};

} // namespace vorhaven
