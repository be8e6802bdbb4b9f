// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/controls/Chart.h"

#include "base/Conversion.h"

#include <algorithm>

namespace vorhaven {
namespace {

constexpr int CopiedDecimals = 6;

} // namespace

Chart::Row& Chart::At(Long row) {
    if (row < 1 || row > SizeOf(rows_))
        throw RunTimeError{ErrorNumber::SubscriptOutOfRange};
    return rows_[row.Index() - 1];
}

void Chart::SetRowLabel(Long row, std::string label) {
    At(row).Label = std::move(label);
    Changed.Raise();
}

void Chart::SetData(Long row, Long series, Long value) {
    if (series < 1 || series > 2)
        throw RunTimeError{ErrorNumber::SubscriptOutOfRange};
    At(row).Values[series.Index() - 1] = value;
    Changed.Raise();
}

void Chart::SetFigure(Long row, std::string figure) {
    At(row).Figure = std::move(figure);
    Changed.Raise();
}

void Chart::SetExact(Long row, std::optional<double> exact) {
    At(row).Exact = exact;
    Changed.Raise();
}

void Chart::SetCount(Long row, Long count) {
    At(row).Count = count;
    Changed.Raise();
}

bool Chart::HasExactMarks() const {
    return std::ranges::any_of(rows_, &Row::HasExactMark);
}

void Chart::SetDetails(Long row, std::string details, bool isEmpty) {
    At(row).Details = std::move(details);
    At(row).IsEmpty = isEmpty;
    Changed.Raise();
}

std::string Chart::Numbers() const {
    std::string table = CategoryTitle + "\t" + ValueTitles[0] + "\t" + ValueTitles[1] + "\t" + CountTitle +
                        "\t" + ExactTitle + " " + ValueTitles[0] + "\n";
    for (const Row& row : rows_)
        table.append(row.Label)
            .append("\t" + ToText(row.Values[0]))
            .append("\t" + ToText(row.Values[1]))
            .append("\t" + ToText(row.Count))
            .append("\t" + (row.Exact ? ToFixedText(*row.Exact, CopiedDecimals) : ""))
            .append("\n");
    for (const auto& [name, total] : Remarks.Get().Totals)
        table.append(name).append("\t" + total).append("\n");
    return table + Remarks.Get().Sentence + "\n";
}

std::string Chart::Description() const {
    std::string description = Remarks.Get().Sentence;
    for (const std::string& remark : {Remarks.Get().MeanText, Remarks.Get().WhyUnreachable})
        if (!remark.empty())
            description += "\n" + remark;
    for (const Row& row : rows_)
        if (!row.IsEmpty)
            description += "\n" + row.Details;
    return description;
}

} // namespace vorhaven
