// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CsvCatalogue.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vorhaven {
namespace {

using namespace std::string_literals;
using enum CatalogueProvider::Selector;

/// The armies, the heroes and the powers. In row 0 of the units most cells hold the number of their column.
using Texts = std::array<std::string, 3>;
const Texts ValidTexts{
    "id,name,plural,faction,cost,strength,upkeep,hits,turns,moves,view,trait1,trait2,movement,building,"
    "weapon,"
    "armour,terrain,bonus,size,description,notes,power,powersize\n"
    "0,Reeds,c2,c3,4,5,6,7,8,9,10,c11,c12,c13,c14,c15,c16,ice,18,c19,c20,c21,22,23\n"
    "1,Kites,12,,,-5,,-2147483648,2147483647,,,,,Fly,,,,,0,,,,-1,0\n",
    "id,name,plural,faction,cost,upkeep,moves,view,strength,weapon,hits,armour,movement,mount,description,"
    "notes,terrain,bonus\n0,Thane,c2,c3,4,5,6,7,8,c9,10,c11,c12,c13,c14,c15,woods,17\n",
    "code,name\n22,Sparks\n-32768,\"Frost, \"\"deep\"\"\"\n"};
constexpr std::size_t A = 0, H = 1, P = 2;
const std::array<std::string, 3> FileNames{"armies.csv", "heroes.csv", "powers.csv"};

CsvCatalogue Read(const Texts& texts) {
    return CsvCatalogue{{FileNames[A], texts[A]}, {FileNames[H], texts[H]}, {FileNames[P], texts[P]}};
}

/// The valid texts with one change: `from` becomes `to` in a file, and no `from` means the whole file.
Texts Changed(std::size_t file, const std::string& from, const std::string& to) {
    Texts texts = ValidTexts;
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

// clang-format off
TEST(Catalogue, PutsEveryCellInItsColumnHoweverTheFileIsWritten) {
    const struct {
        const char* reason;
        Texts texts;
    } cases[] = {
        {"as it stands", ValidTexts},
        {"byte order mark", Changed(A, "id,name", "\xEF\xBB\xBFid,name")},
        {"blank lines, blanks around and within quotes in the header", Changed(A, "id,name", "\n \t\n\"id\" , \" name\t\" ")},
        {"CR LF, blanks around and within a quoted cell", Changed(A, "\n1,Kites,", "\r\n\n \t\r\n1,\" Kites \"\t,")},
        {"a number with quotes or a sign", Changed(A, ",5,6,", ", \"5\" ,+6,")},
        {"no end of the last line", Changed(A, "-1,0\n", "-1,0")},
        {"other columns, another order", Changed(P, "", "more,name,code\r\n,Sparks,22\r\nx,\"Frost, \"\"deep\"\"\",-32768\r\n\r\n")},
    };
    for (const auto& test : cases)
        EXPECT_EQ(ContentsOrError([&] { return Read(test.texts); }),
                  "Sparks|Frost, \"deep\"|"
                  "#0|Reeds|c2|c3|#4|#5|#6|#7|#8|#9|#10|c11|c12|c13|c14|c15|c16|ice|#18|c19|c20|c21|#22|#23|"
                  "#1|Kites|12|||#-5||#-2147483648|#2147483647|||||Fly|||||#0||||#-1|#0|"
                  "#0|Thane|c2|c3|#4|#5|#6|#7|#8|c9|#10|c11|c12|c13|c14|c15|woods|#17|")
            << test.reason;
}

TEST(Catalogue, RefusesABrokenFileAndTellsWhereAndWhy) {
    const auto header = "a header that names each column once, with commas between the names";
    const auto cells = "as many cells as the header has (a text with a comma stands in quotes)";
    const auto quotes = "quotes around the whole cell, on one line, and a quote within it doubled";
    const auto utf8 = "text that is saved as UTF-8", notUtf8 = "bytes that are not UTF-8";
    const auto cr = "a line end of CR alone", lf = "line ends of LF or CR LF";
    const auto number = "a whole number from -2147483648 to 2147483647",
               code = "a whole number from -32768 to 32767";
    const auto name = "a name other than None", unique = "a name that no other army type or hero type has";
    const auto mark = "a name without \" *\" at its end, which marks a unit with conditions";
    const auto terrain = "city, ice, hills, marsh, field, woods, or an empty cell for no bonus";
    const auto reedsAgain = R"("Reeds" again, after armies.csv, line 2, column "name")";
    const std::string o60(60, 'o'), o59e = std::string(59, 'o') + "\xC3\xA9";
    const std::size_t rest = MaxFileSize - ValidTexts[P].size();
    const struct {
        std::size_t file;
        std::string from, to, where, found, expected;
    } cases[] = {
        {A, "", "", "", "an empty file", header},
        {H, "", "\n \r\n", "", "an empty file", header},
        {P, "", "code,name\n\n", ", line 2", "no row below the header", "at least one"},
        {P, "\n-", std::string(rest + 2, '\n') + '-', "", "a file that is too large", "at most 4 MiB"},
        {P, "\n-", std::string(rest, '\n') + "--", ", line " + std::to_string(rest + 2) + ", column \"code\"", "\"--32768\"", code},  // 4 MiB exactly
        {P, "", "code;name\n1;Hero\n", R"(, line 1, column "code")", "no such column", header},
        {A, ",hits,", ",Hits,", R"(, line 1, column "hits")", "no such column", header},
        {H, ",view,", ",hits,", R"(, line 1, column "hits")", "it twice", header},
        {A, "Kites", "Kites, black", ", line 3", "too many cells", cells},
        {A, ",-5,", ",+-5,", R"(, line 3, column "strength")", R"("+-5")", number},
        {A, "2147483647", "2147483648", R"(, line 3, column "turns")", R"("2147483648")", number},
        {A, ",22,23", ",32768,23", R"(, line 2, column "power")", R"("32768")", code},
        {P, "-32768", "22", R"(, line 3, column "code")", R"("22" again)", "each power code once"},
        {P, "Sparks", "", R"(, line 2, column "name")", "an empty cell", "the power's name"},
        {A, "\n1,", "\n2,", R"(, line 3, column "id")", R"("2")", "1: identifiers count the rows from 0"},
        {A, "Kites", "\"  \"", R"(, line 3, column "name")", "an empty cell", name},
        {H, "Thane", "\" None\"", R"(, line 2, column "name")", R"("None")", name},
        {A, "Kites", "\"Kites * \"", R"(, line 3, column "name")", R"("Kites *")", mark},
        {A, "Kites", "Reeds", R"(, line 3, column "name")", reedsAgain, unique},
        {H, "Thane", "Reeds", R"(, line 2, column "name")", reedsAgain, unique},
        {A, ",-5,", ',' + o60 + ',', R"(, line 3, column "strength")", '"' + o60 + '"', number},
        {A, ",-5,", ',' + o59e + ',', R"(, line 3, column "strength")", '"' + o60.substr(1) + "...\"", number},
        {A, "id,", "\"id,", ", line 1", "a quote that is never closed", quotes},
        {A, "Kites", "\"Kites\nblack\"", ", line 3", "a quote that is never closed", quotes},
        {A, "Kites", "Big \"red\" kites", ", line 3", "a quote in the middle of a cell", quotes},
        {H, "", "id,n\xC3", ", line 1", notUtf8, utf8},            // a character cut in two
        {P, "", "\xFF\xFE\x63\0o\0"s, ", line 1", notUtf8, utf8},  // UTF-16
        {P, "Sparks", "Spa\0rks\xFF"s, ", line 2", "the control character 0", utf8},
        {P, "", "code,name\r22,Sparks\r", ", line 1", cr, lf},
        {P, "Sparks\n", "Sparks\r\r\n", ", line 2", cr, lf},
        {A, ",ice,", ",Ice,", R"(, line 2, column "terrain")", R"("Ice")", terrain},
    };
    for (const auto& test : cases)
        EXPECT_EQ(ContentsOrError([&] { return Read(Changed(test.file, test.from, test.to)); }),
                  FileNames[test.file] + test.where + ": found " + test.found + ", expected " +
                      test.expected + '.');
}
// clang-format on

/// A valid catalogue in a folder of its own.
class CatalogueFolder : public testing::Test {
protected:
    using Path = std::filesystem::path;

    CatalogueFolder() { Restore(); }
    ~CatalogueFolder() override { Remove(); }

    void Restore() {
        Remove();
        std::filesystem::create_directories(folder_);
        for (std::size_t i = 0; i < FileNames.size(); ++i)
            std::ofstream{folder_ / FileNames[i]} << ValidTexts[i];
    }

    [[nodiscard]] std::string ContentsOrErrorOf(const std::vector<Path>& candidates) const {
        return ContentsOrError([&] { return CsvCatalogue::FromFirstFolder(candidates); });
    }

    const Path root_ = Path{testing::TempDir()} / ("vorhaven-catalogue-" + std::to_string(getpid()));
    const Path folder_ = root_ / "catalogue";

private:
    void Remove() const { std::filesystem::remove_all(root_); }
};

// clang-format off
TEST_F(CatalogueFolder, WithAFaultIsRefusedAndNotPassedOver) {
    const auto armies = folder_ / "armies.csv";
    const auto unreadable = "no way to read it", dangling = "a symbolic link that leads nowhere",
               special = "a pipe or a device";
    const auto folder = "a readable folder with armies.csv, heroes.csv and powers.csv",
               file = "a readable file (the folder of a catalogue holds armies.csv, heroes.csv and powers.csv)";
    const auto replaceByLink = [](const Path& path, const Path& target) {
        std::filesystem::remove_all(path);
        std::filesystem::create_symlink(target, path);
    };
    const struct {
        std::function<void()> spoil;
        Path where;
        std::string found, expected;
    } cases[] = {
        {[&] { std::filesystem::remove(armies); }, armies, "nothing of this name", file},
        {[&] { std::filesystem::remove(armies); std::filesystem::create_directory(armies); }, armies, "a folder", file},
        {[&] { std::filesystem::remove(armies); mkfifo(armies.c_str(), 0666); }, armies, special, file},
        {[&] { replaceByLink(armies, "/dev/zero"); }, armies, special, file},
        {[&] { replaceByLink(armies, "nowhere"); }, armies, dangling, file},
        {[&] { replaceByLink(armies, armies); }, armies, unreadable, file},
        {[&] { std::filesystem::resize_file(armies, std::uintmax_t{8} << 30); }, armies, "a file that is too large", "at most 4 MiB"},
        {[&] { replaceByLink(folder_, "nowhere"); }, folder_, dangling, folder},
        {[&] { replaceByLink(folder_, folder_); }, folder_, unreadable, folder},
        {[&] { std::filesystem::remove_all(folder_); std::ofstream{folder_}; }, folder_, "a file", folder},
    };
    for (const auto& test : cases) {
        Restore();
        test.spoil();
        EXPECT_EQ(ContentsOrErrorOf({folder_}),
                  test.where.string() + ": found " + test.found + ", expected " + test.expected + '.');
    }
}
// clang-format on

TEST_F(CatalogueFolder, ReplacesTheBuiltInCatalogueAndIsPassedOverWhereNothingExists) {
    const std::vector<Path> nothing{root_ / "missing", root_ / "missing/catalogue",
                                    folder_ / "armies.csv/catalogue"};
    EXPECT_EQ(ContentsOrErrorOf(nothing), Contents(CsvCatalogue::BuiltIn()));
    std::filesystem::create_directory_symlink(folder_, root_ / "link");
    for (const Path& own : {folder_, root_ / "link"})
        EXPECT_EQ(ContentsOrErrorOf({nothing[0], nothing[1], nothing[2], own, root_}),
                  Contents(Read(ValidTexts)));
}

TEST(Catalogue, TheBuiltInOneHasEveryPowerAndNamesIt) {
    const CsvCatalogue catalogue = CsvCatalogue::BuiltIn();
    const Table& armies = catalogue.GetTable(Armies);
    std::set<PowerType> powers;
    for (std::int32_t row = 0; row < armies.RowCount(); ++row)
        powers.insert(static_cast<PowerType>(CellNumber(armies(row, ArmyColumn::PowerCode)).Value()));
    using enum PowerType;
    for (const PowerType power : {Chaos, Morale, Fear, Siege, Fortify, Poison, Disease, Assass, Missle,
                                  Trample, Curse, Banding, Acid, Lightning, Warding}) {
        EXPECT_TRUE(powers.contains(power)) << static_cast<int>(power);
        EXPECT_NE(catalogue.PowerName(static_cast<std::int16_t>(power)), "") << static_cast<int>(power);
    }
}

} // namespace
} // namespace vorhaven
