// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "catalogue/CatalogueError.h"
#include "catalogue/Ranges.h"
#include "model/Catalogue.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace vorhaven {

/// Where the first unit of each name is.
using UnitNames = std::map<std::string, CataloguePlace>;

/// Checks the cells of one row of a catalogue's file and adds a fault for each that breaks a rule.
class RowReader {
public:
    /// `line`: from 1. The faults must outlive the reader.
    RowReader(std::string file, unsigned line, CatalogueFaults& faults)
        : file_(std::move(file)), line_(line), faults_(&faults) {}

    /// A fault in the cell of a column: what it holds, empty or in quotes, with a remark behind it.
    void Refuse(std::string_view column, const std::string& cell, const std::string& expected,
                const std::string& remark = {});

    /// The number in a cell; an empty cell in the place of a fault.
    [[nodiscard]] Cell Number(std::string_view column, const std::string& cell, Range range);

    /// An identifier is the row's number. `shift`: by how much the last one was wrong; one that counts on
    /// from a wrong one is not refused again.
    void CheckIdentifier(const std::string& cell, std::size_t row, std::int64_t& shift);
    void CheckName(const std::string& cell, UnitNames& names);
    void CheckTerrain(const std::string& cell);
    /// Refuses what is nearly a word that has a meaning, in any letter case: one letter wrong, missing or too
    /// many, or two neighbours swapped.
    void CheckWord(std::string_view column, const std::string& cell, std::string_view meaningful);

    /// No bonus without a terrain.
    void CheckBonus(const Cell& terrain, const Cell& bonus);
    /// No size that the power cannot have.
    void CheckPowerSize(const Cell& power, const Cell& size);

private:
    [[nodiscard]] CataloguePlace PlaceOf(std::string_view column) const;

    std::string file_;
    unsigned line_;
    CatalogueFaults* faults_;
};

} // namespace vorhaven
