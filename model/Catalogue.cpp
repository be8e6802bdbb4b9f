// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/Catalogue.h"

#include "base/Conversion.h"

namespace vorhaven {

Long CellNumber(const Cell& cell) {
    if (const auto* number = std::get_if<Long>(&cell))
        return *number;
    if (const auto* text = std::get_if<std::string>(&cell))
        return ToLong(*text);
    return 0;
}

std::string CellText(const Cell& cell) {
    if (const auto* number = std::get_if<Long>(&cell))
        return ToText(*number);
    if (const auto* text = std::get_if<std::string>(&cell))
        return *text;
    return {};
}

const Cell& Table::operator()(Long row, Long column) const {
    if (row < 0 || row >= RowCount())
        throw RunTimeError{ErrorNumber::SubscriptOutOfRange};
    const auto& cells = rows_[row.Index()];
    if (column < 0 || column.Index() >= cells.size())
        throw RunTimeError{ErrorNumber::SubscriptOutOfRange};
    return cells[column.Index()];
}

} // namespace vorhaven
