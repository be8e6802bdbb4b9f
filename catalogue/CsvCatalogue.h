// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "catalogue/CatalogueError.h"
#include "catalogue/TextFile.h"
#include "model/Catalogue.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace vorhaven {

/// The unit catalogue, read from three CSV files: army types, hero types, and the names of the powers.
/// docs/catalogue.md describes their columns and rules. A catalogue that breaks a rule is refused as a whole,
/// with all its faults.
class CsvCatalogue final : public CatalogueProvider {
public:
    /// Reads the three files from memory; `origin` is the folder that they are from. Throws CatalogueError.
    CsvCatalogue(const TextFile& armies, const TextFile& heroes, const TextFile& powers,
                 std::string origin = {});

    /// The catalogue that is compiled into the program.
    [[nodiscard]] static CsvCatalogue BuiltIn();

    /// The catalogue at the first candidate where anything exists, which replaces the built-in one
    /// completely; the built-in one when there is nothing at any. Throws CatalogueError, also when what
    /// exists there is no readable folder.
    [[nodiscard]] static CsvCatalogue FromFirstFolder(const std::vector<std::filesystem::path>& candidates);

    [[nodiscard]] const Table& GetTable(Selector selector) const override;
    [[nodiscard]] std::string PowerName(std::int16_t code) const override;
    /// The folder that it was read from; empty also for a folder with the built-in units.
    [[nodiscard]] std::string Origin() const override { return origin_; }

private:
    /// The catalogue in armies.csv, heroes.csv and powers.csv of a folder. Throws CatalogueError, also when
    /// the folder or a file is missing or cannot be read.
    [[nodiscard]] static CsvCatalogue FromFolder(const std::filesystem::path& folder);

    std::string origin_;
    Table armies_;
    Table heroes_;
    std::map<std::int16_t, std::string> powers_;
};

} // namespace vorhaven
