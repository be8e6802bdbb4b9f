// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CsvCatalogue.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <numeric>
#include <set>

namespace vorhaven {
namespace {

using namespace std::string_literals;
using enum CatalogueProvider::Selector;

/// The armies, the heroes and the powers. In row 0 of the units most cells hold the number of their column.
using Texts = std::array<std::string, 3>;
const Texts validTexts{
    "id,name,plural,faction,cost,strength,upkeep,hits,turns,moves,view,trait1,trait2,movement,building,"
    "weapon,"
    "armour,terrain,bonus,size,description,notes,power,powersize\n"
    "0,Reeds,c2,c3,4,5,6,7,8,9,10,c11,c12,c13,c14,c15,c16,ice,18,c19,c20,c21,22,23\n"
    "1,Kites,12,,,-5,,-2147483648,2147483647,,,,,Fly,,,,,0,,,,-1,0\n",
    "id,name,plural,faction,cost,upkeep,moves,view,strength,weapon,hits,armour,movement,mount,description,"
    "notes,terrain,bonus\n0,Thane,c2,c3,4,5,6,7,8,c9,10,c11,c12,c13,c14,c15,woods,17\n",
    "code,name\n22,Sparks\n-32768,\"Frost, \"\"deep\"\"\"\n"};
constexpr std::size_t A = 0, H = 1, P = 2;
const std::array<std::string, 3> fileNames{"armies.csv", "heroes.csv", "powers.csv"};

CsvCatalogue Read(const Texts& texts) {
    return CsvCatalogue{{fileNames[A], texts[A]}, {fileNames[H], texts[H]}, {fileNames[P], texts[P]}};
}

/// The valid texts with one change: `from` becomes `to` in a file, and no `from` means the whole file.
Texts Changed(std::size_t file, const std::string& from, const std::string& to) {
    Texts texts = validTexts;
    EXPECT_NE(texts[file].find(from), std::string::npos) << from;
    texts[file].replace(texts[file].find(from), from.empty() ? std::string::npos : from.size(), to);
    return texts;
}

/// Everything in a catalogue; a number has a # before it.
std::string Contents(const CsvCatalogue& catalogue) {
    std::string cells = catalogue.PowerName(22) + '|' + catalogue.PowerName(-32768) + '|';
    for (const auto& [selector, columns] : {std::pair{Armies, 24}, std::pair{Heroes, 18}})
        for (std::int32_t row = 0; row < catalogue.GetTable(selector).RowCount(); ++row)
            for (std::int32_t column = 0; column < columns; ++column) {
                const Cell& cell = catalogue.GetTable(selector)(row, column);
                cells.append(std::holds_alternative<Long>(cell) ? "#" : "").append(CellText(cell) + '|');
            }
    return cells;
}

std::string ContentsOrError(const auto& open) {
    try {
        return Contents(open());
    } catch (const CatalogueError& error) {
        return error.what();
    }
}

TEST(Catalogue, PutsEveryCellInItsPlaceHoweverTheFileIsWritten) {
    const Texts variants[] = {
        validTexts,
        Changed(A, "id,name", "\xEF\xBB\xBFid,name"),
        Changed(A, "id,name", "\n \t\n\"id\" , name "),
        Changed(A, "\n1,Kites,", "\r\n\n \t\r\n1,\" Kites \"\t,"),
        Changed(A, ",5,6,", ", \"5\" ,+6,"),
        Changed(A, "-1,0\n", "-1,0"),
        Changed(P, "", "more,name,code\r\n,Sparks,22\r\nx,\"Frost, \"\"deep\"\"\",-32768\r\n\r\n"),
    };
    for (const Texts& texts : variants)
        EXPECT_EQ(Contents(Read(texts)),
                  "Sparks|Frost, \"deep\"|"
                  "#0|Reeds|c2|c3|#4|#5|#6|#7|#8|#9|#10|c11|c12|c13|c14|c15|c16|ice|#18|c19|c20|c21|#22|#23|"
                  "#1|Kites|12|||#-5||#-2147483648|#2147483647|||||Fly|||||#0||||#-1|#0|"
                  "#0|Thane|c2|c3|#4|#5|#6|#7|#8|c9|#10|c11|c12|c13|c14|c15|woods|#17|");
}

TEST(Catalogue, RefusesABrokenFileAndTellsWhereAndWhy) {
    const auto header = "a header that names each column once, with commas between the names";
    const auto cells = "as many cells as the header has (a text with a comma stands in quotes)";
    const auto quotes = "quotes around the whole cell, on one line, and a quote within it doubled";
    const auto utf8 = "text that is saved as UTF-8", notUtf8 = "bytes that are not UTF-8";
    const auto number = "a whole number from -2147483648 to 2147483647",
               code = "a whole number from -32768 to 32767";
    const auto name = "a name other than None", unique = "a name that no other army type or hero type has";
    const auto terrain = "city, ice, hills, marsh, field, woods, or an empty cell for no bonus";
    const auto reedsAgain = R"("Reeds" again, after armies.csv, line 2, column "name")";
    const struct {
        std::size_t file;
        std::string from, to, place, found, expected;
    } cases[] = {
        {A, "", "", "", "an empty file", header},
        {H, "", "\n \r\n", "", "an empty file", header},
        {P, "", "code,name\n\n", ", line 2", "no row below the header", "at least one"},
        {P, "", "code;name\n1;Hero\n", R"(, line 1, column "code")", "no such column", header},
        {A, ",hits,", ",Hits,", R"(, line 1, column "hits")", "no such column", header},
        {H, ",view,", ",hits,", R"(, line 1, column "hits")", "it twice", header},
        {A, "-1,0\n", "-1\n", ", line 3", "too few cells", cells},
        {A, "Kites", "Kites, black", ", line 3", "too many cells", cells},
        {A, ",-5,", ",strong,", R"(, line 3, column "strength")", R"("strong")", number},
        {A, ",-5,", ",,", R"(, line 3, column "strength")", "an empty cell", number},
        {A, ",-5,", ",+-5,", R"(, line 3, column "strength")", R"("+-5")", number},
        {H, ",4,5", ",1.0,5", R"(, line 2, column "cost")", R"("1.0")", number},
        {A, "2147483647", "2147483648", R"(, line 3, column "turns")", R"("2147483648")", number},
        {A, ",22,23", ",32768,23", R"(, line 2, column "power")", R"("32768")", code},
        {P, "-32768", "-32769", R"(, line 3, column "code")", R"("-32769")", code},
        {P, "-32768", "22", R"(, line 3, column "code")", R"("22" again)", "each power code once"},
        {P, "Sparks", "", R"(, line 2, column "name")", "an empty cell", "the power's name"},
        {A, "\n1,", "\n2,", R"(, line 3, column "id")", R"("2")", "1: identifiers count the rows from 0"},
        {A, "Kites", "\"  \"", R"(, line 3, column "name")", "an empty cell", name},
        {H, "Thane", "\" None\"", R"(, line 2, column "name")", R"("None")", name},
        {A, "Kites", "Reeds", R"(, line 3, column "name")", reedsAgain, unique},
        {H, "Thane", "Reeds", R"(, line 2, column "name")", reedsAgain, unique},
        {A, "id,", "\"id,", ", line 1", "a quote that is never closed", quotes},
        {A, "Kites", "\"Kites\nblack\"", ", line 3", "a quote that is never closed", quotes},
        {A, "Kites", "Big \"red\" kites", ", line 3", "a quote in the middle of a cell", quotes},
        {A, "Kites", "\"Ki\"te\"s\"", ", line 3", "a quote in the middle of a cell", quotes},
        {H, "Thane", "Th\xE4ne", ", line 2", notUtf8, utf8},
        {H, "Thane", "Th\xED\xA0\x80ne", ", line 2", notUtf8, utf8},
        {H, "", "id,n\xC3", ", line 1", notUtf8, utf8},
        {P, "", "\xFF\xFE\x63\0o\0"s, ", line 1", notUtf8, utf8},
        {P, "Sparks", "Spa\0rks"s, ", line 2", "the control character 0", utf8},
        {P, "Sparks\n", "Sparks\r", ", line 2", "the control character 13", utf8},
        {A, ",ice,", ",Ice,", R"(, line 2, column "terrain")", R"("Ice")", terrain},
    };
    for (const auto& test : cases)
        EXPECT_EQ(ContentsOrError([&] { return Read(Changed(test.file, test.from, test.to)); }),
                  fileNames[test.file] + test.place + ": found " + test.found + ", expected " +
                      test.expected + ".");
}

TEST(Catalogue, TheFirstFolderThatExistsTakesTheBuiltInOnesPlaceWholly) {
    const std::filesystem::path root{testing::TempDir() + "vorhaven-catalogue-test"};
    const auto missing = root / "missing", file = root / "own/armies.csv";
    std::filesystem::remove_all(root);
    std::filesystem::create_directories(root / "own");
    std::filesystem::create_directories(root / "odd/armies.csv");
    for (std::size_t i = 0; i < 2; ++i)
        std::ofstream{root / "own" / fileNames[i]} << validTexts[i];
    const auto open = [&](const char* own) {
        return ContentsOrError([&] {
            return CsvCatalogue::FromFirstFolder({missing, file, root / own, root});
        });
    };
    EXPECT_TRUE(open("own").starts_with((root / "own/powers.csv").string() + ": found no such file, "));
    EXPECT_TRUE(open("odd").starts_with((root / "odd/armies.csv").string() + ": found no way to read it, "));
    std::ofstream{root / "own/powers.csv"} << validTexts[P];
    EXPECT_EQ(open("own"), Contents(Read(validTexts)));
    EXPECT_EQ(Contents(CsvCatalogue::FromFirstFolder({missing, file})), Contents(CsvCatalogue::BuiltIn()));
    std::filesystem::remove_all(root);
}

TEST(Catalogue, TheBuiltInUnitsUseEverythingThatTheGameOffers) {
    const CsvCatalogue catalogue = CsvCatalogue::BuiltIn();
    const Table& armies = catalogue.GetTable(Armies);
    const auto values = [&](std::int32_t column) {
        std::set<std::string> texts;
        for (std::int32_t row = 0; row < armies.RowCount(); ++row)
            texts.insert(CellText(armies(row, column)));
        return std::accumulate(texts.begin(), texts.end(), ""s,
                               [](const auto& all, const auto& text) { return all + text + ' '; });
    };
    EXPECT_EQ(values(ArmyColumn::Strength), "1 2 3 4 5 6 7 8 9 ");
    EXPECT_EQ(values(ArmyColumn::Hits), "1 2 3 4 ");
    EXPECT_EQ(values(ArmyColumn::Turns), "1 2 3 4 5 6 ");
    EXPECT_EQ(values(ArmyColumn::Movement), "fly ride swim walk ");
    EXPECT_EQ(values(ArmyColumn::BonusTerrain), " city field hills ice marsh woods ");
    EXPECT_EQ(values(ArmyColumn::PowerCode), "0 2 26 27 28 3 30 32 33 37 38 39 4 41 5 6 ");
    for (const std::int32_t column : {ArmyColumn::FirstTrait, ArmyColumn::SecondTrait})
        EXPECT_NE(values(column).find(" undead "), std::string::npos);
    for (const int code : {0, 1, 2, 3, 4, 5, 6, 26, 27, 28, 30, 32, 33, 37, 38, 39, 41})
        EXPECT_NE(catalogue.PowerName(static_cast<std::int16_t>(code)), "") << code;
}

} // namespace
} // namespace vorhaven
