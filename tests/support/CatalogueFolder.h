// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "catalogue/BuiltIn.h"
#include "catalogue/CsvCatalogue.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace vorhaven::test {

/// A catalogue in a folder of its own, whose name has letters that not every code page has.
class CatalogueFolder : public testing::Test {
protected:
    using Path = std::filesystem::path;

    CatalogueFolder() { Restore(); }
    ~CatalogueFolder() override { Remove(); }

    /// Makes the folder anew, with the built-in units in it; the first one has another name.
    void Restore() {
        Remove();
        std::filesystem::create_directories(folder_);
        std::string armies = BuiltInText::Armies;
        armies.replace(armies.find(BuiltInFirst()), BuiltInFirst().size(), OwnFirst);
        for (const auto& [file, text] : {std::pair{"armies.csv", armies},
                                         {"heroes.csv", BuiltInText::Heroes},
                                         {"powers.csv", BuiltInText::Powers}})
            std::ofstream{folder_ / file, std::ios::binary} << text;
    }

    /// The name of the first army type in the catalogue that is read, or the error.
    static std::string FirstOrErrorOf(const std::vector<Path>& candidates) {
        try {
            return FirstOf(CsvCatalogue::FromFirstFolder(candidates));
        } catch (const CatalogueError& error) {
            return error.what();
        }
    }

    static std::string BuiltInFirst() { return FirstOf(CsvCatalogue::BuiltIn()); }

    void ExpectRefusal(const std::string& fault) const {
        EXPECT_EQ(FirstOrErrorOf({folder_}),
                  "The unit catalogue in " + folderText_ + " cannot be used:\n" + fault + '.');
    }

    static constexpr auto OwnFirst = "Own Reeds";
    static constexpr auto ExpectedFolder =
        ", expected a readable folder with armies.csv, heroes.csv and powers.csv";
    static constexpr auto ExpectedFile =
        ", expected a readable file (the folder of a catalogue holds armies.csv, heroes.csv and powers.csv)";

private:
    static std::string FirstOf(const CsvCatalogue& catalogue) {
        return CellText(catalogue.GetTable(CatalogueProvider::Selector::Armies)(0, ArmyColumn::Name));
    }
    void Remove() const { std::filesystem::remove_all(root_); }

    const std::string rootText_ =
        testing::TempDir() + "vorhaven-größe-Ω-" + std::to_string(std::random_device{}());
    const std::string folderText_ = rootText_ + static_cast<char>(Path::preferred_separator) + "catalogue";

protected:
    const Path root_ = std::u8string{rootText_.begin(), rootText_.end()};
    const Path folder_ = root_ / "catalogue";
    const Path armies_ = folder_ / "armies.csv";
};

} // namespace vorhaven::test
