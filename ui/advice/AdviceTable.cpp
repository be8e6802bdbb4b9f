// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/AdviceTable.h"

#include "base/Chance.h"
#include "base/Conversion.h"

#include <algorithm>
#include <utility>

namespace vorhaven {

void AdviceTable::SetHeader(std::size_t column, const std::string& header) {
    if (std::exchange(columns_.at(column).Header, header) == header)
        return;
    ++edition_;
    Changed.Raise();
}

void AdviceTable::SetRows(std::vector<Row> rows) {
    const std::string key = current_ ? rows_[*current_].Key : std::string();
    rows_ = std::move(rows);
    ++edition_;
    auto row = rows_.end();
    if (current_)
        row =
            std::ranges::find_if(rows_, [&](const Row& each) { return !each.IsHeading && each.Key == key; });
    if (row == rows_.end() && !IsToRead)
        row = std::ranges::find(rows_, false, &Row::IsHeading);
    current_.reset();
    if (row != rows_.end())
        current_ = static_cast<std::size_t>(row - rows_.begin());
    Changed.Raise();
    Raise(CurrentChanged);
}

void AdviceTable::SetCurrent(std::optional<std::size_t> row) {
    if (row == current_)
        return;
    current_ = row;
    Changed.Raise();
    Raise(CurrentChanged);
}

void AdviceTable::Pick(std::size_t row) {
    if (IsToRead || row >= rows_.size() || rows_[row].IsHeading)
        return;
    SetCurrent(row);
    Raise(Picked);
}

AdviceTable::Cell GainCell(double points) {
    const std::string text = ToSignedText(points, 1);
    return {text, points,
            text.front() == '+' ? "gain " + ToFixedText(points, 1) + " points" : PointsInWords(points)};
}

AdviceTable::Cell ChangeCell(double points) {
    return {ToSignedText(points, 1), points, PointsInWords(points)};
}

AdviceTable::Cell NumberCell(double value, int decimals) {
    return {ToFixedText(value, decimals), value};
}

AdviceTable::Cell DifferenceCell(double value, int decimals) {
    return {ToSignedText(value, decimals), value};
}

} // namespace vorhaven
