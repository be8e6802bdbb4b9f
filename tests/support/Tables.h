// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Catalogue.h"

#include <string>
#include <utility>
#include <vector>

namespace vorhaven::test {

/// A catalogue's table of units that have something in these columns alone.
inline Table TableOf(const std::vector<std::size_t>& columns, std::vector<std::vector<Cell>> units) {
    for (auto& unit : units) {
        const auto cells = std::exchange(unit, std::vector<Cell>(24));
        for (std::size_t i = 0; i < columns.size(); ++i)
            unit[columns[i]] = cells[i];
    }
    return Table{units};
}

/// A catalogue of two tables, whose powers have no names of their own.
struct TableCatalogue : CatalogueProvider {
    TableCatalogue(Table armies, Table heroes) : Armies(std::move(armies)), Heroes(std::move(heroes)) {}
    const Table& GetTable(Selector name) const override { return name == Selector::Armies ? Armies : Heroes; }
    std::string PowerName(std::int16_t code) const override { return "power " + std::to_string(code); }

    const Table Armies, Heroes;
};

} // namespace vorhaven::test
