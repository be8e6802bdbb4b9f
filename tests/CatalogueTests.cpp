// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CsvCatalogue.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <utility>
#include <vector>

namespace vorhaven {
namespace {

using namespace std::string_literals;
using enum CatalogueProvider::Selector;

/// The armies, the heroes and the powers. In row 0 of the units most cells hold the number of their column;
/// row 1 has the other end of the ranges.
using Texts = std::array<std::string, 3>;
const Texts ValidTexts{
    "id,name,plural,faction,cost,strength,upkeep,hits,turns,moves,view,trait1,trait2,movement,building,"
    "weapon,"
    "armour,terrain,bonus,size,description,notes,power,powersize\n"
    "0,Reeds,c2,c3,4,5,6,3,8,9,10,c11,c12,c13,c14,c15,c16,ice,13,c19,c20,c21,22,23\n"
    "1,Kites,12,,,14,-2147483648,4,99,2147483647,,,Undead,Fly,,,,,0,,,,-1,0\n",
    "id,name,plural,faction,cost,upkeep,moves,view,strength,weapon,hits,armour,movement,mount,description,"
    "notes,terrain,bonus\n0,Thane,c2,c3,4,5,6,7,8,c9,1,c11,c12,c13,c14,c15,woods,-13\n",
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
        const char* Reason;
        Texts Files;
    } cases[] = {
        {"as it is", ValidTexts},
        {"byte order mark", Changed(A, "id,name", "\xEF\xBB\xBFid,name")},
        {"blank lines, blanks around and within quotes in the header",
            Changed(A, "id,name", "\n \t\n\"id\" , \" name\t\" ")},
        {"CR LF, blanks around and within a quoted cell", Changed(A, "\n1,Kites,",
            "\r\n\n \t\r\n1,\" Kites \"\t,")},
        {"a number with quotes or a sign", Changed(A, ",5,6,", ", \"5\" ,+6,")},
        {"no end of the last line", Changed(A, "-1,0\n", "-1,0")},
        {"other columns, another order", Changed(P, "",
            "more,name,code\r\n,Sparks,22\r\nx,\"Frost, \"\"deep\"\"\",-32768\r\n\r\n")},
    };
    for (const auto& test : cases)
        EXPECT_EQ(ContentsOrError([&] { return Read(test.Files); }),
                  "Sparks|Frost, \"deep\"|"
                  "#0|Reeds|c2|c3|#4|#5|#6|#3|#8|#9|#10|c11|c12|c13|c14|c15|c16|ice|#13|c19|c20|c21|#22|#23|"
                  "#1|Kites|12|||#14|#-2147483648|#4|#99|#2147483647|||Undead|Fly|||||#0||||#-1|#0|"
                  "#0|Thane|c2|c3|#4|#5|#6|#7|#8|c9|#1|c11|c12|c13|c14|c15|woods|#-13|")
            << test.Reason;
}

struct BrokenFile {
    std::size_t File;
    std::string From, To, Where, Found, Expected;
};

void ExpectRefused(const std::vector<BrokenFile>& cases) {
    for (const auto& test : cases)
        EXPECT_EQ(ContentsOrError([&] { return Read(Changed(test.File, test.From, test.To)); }),
                  "The unit catalogue cannot be used:\n" + FileNames[test.File] + test.Where + ": found " +
                      test.Found + ", expected " + test.Expected + '.');
}

TEST(Catalogue, RefusesAFileThatIsNoTableAndSaysWhereAndWhy) {
    const auto header = "a header that names each column once, with commas between the names";
    const auto cells = "as many cells as the header has (a text with a comma needs quotes around it)";
    const auto quotes = "quotes around the whole cell, on one line, and a quote within it doubled";
    const auto utf8 = "text that is saved as UTF-8", notUtf8 = "bytes that are not UTF-8";
    const auto cr = "a line end of CR alone", lf = "line ends of LF or CR LF";
    const auto code = "a whole number from -32768 to 32767";
    const std::size_t rest = MaxFileSize - ValidTexts[P].size();
    ExpectRefused({
        {A, "", "", "", "an empty file", header},
        {H, "", "\n \r\n", "", "an empty file", header},
        {P, "", "code,name\n\n", ", line 2", "no row below the header", "at least one"},
        {P, "\n-", std::string(rest + 2, '\n') + '-', "", "a file that is too large", "at most 4 MiB"},
        // 4 MiB exactly
        {P, "\n-", std::string(rest, '\n') + "--", ", line " + std::to_string(rest + 2) + ", column \"code\"",
            "\"--32768\"", code},
        {P, "", "code;name\n1;Hero\n", ", line 1", "none of the columns", header},
        {A, ",hits,", ",Hits,", R"(, line 1, column "hits")", "no such column", header},
        {H, ",view,", ",view,hits,", R"(, line 1, column "hits")", "it twice", header},
        {A, "Kites", "Kites, black", ", line 3", "too many cells", cells},
        {A, "id,", "\"id,", ", line 1", "a quote that is never closed", quotes},
        {A, "Kites", "\"Kites", ", line 3", "a quote that is never closed", quotes},
        {A, "Kites", "Big \"red\" kites", ", line 3", "a quote in the middle of a cell", quotes},
        {A, "id,", "id,id,n\"o\"te,", ", line 1", "a quote in the middle of a cell", quotes},
        {H, "", "id,n\xC3", ", line 1", notUtf8, utf8},            // a character cut in two
        {P, "", "\xFF\xFE\x63\0o\0"s, ", line 1", notUtf8, utf8},  // UTF-16
        {P, "Sparks", "Spa\0rks\xFF"s, ", line 2", "the control character 0", utf8},
        {P, "", "code,name\r22,Sparks\r", ", line 1", cr, lf},
        {P, "Sparks\n", "Sparks\r\r\n", ", line 2", cr, lf},
    });
}

TEST(Catalogue, RefusesCellsThatAreNoneAndSaysWhereAndWhy) {
    const auto strength = "a whole number from 1 to 14", hits = "a whole number from 1 to 4",
               turns = "a whole number from 0 to 99", bonus = "a whole number from -13 to 13",
               any = "a whole number from -2147483648 to 2147483647",
               code = "a whole number from -32768 to 32767";
    const auto name = "a name other than None", unique = "a name that no other army type or hero type has";
    const auto mark = "a name without an asterisk at its end, which marks a unit with conditions";
    const auto heading = "a name that does not read as a heading or a setting of a battle's text";
    const auto terrain = "city, ice, hills, marsh, field, woods, or an empty cell for no bonus";
    const auto noTerrain = "the terrain of the bonus, or a bonus of 0";
    const auto undead = R"("undead", or a word that is less like it)",
               fly = R"("fly", or a word that is less like it)";
    const auto reedsAgain = R"("Reeds" again, after armies.csv, line 2, column "name")";
    const std::string o41(41, 'o'), o39e = std::string(39, 'o') + "\u2026";
    ExpectRefused({
        {A, ",14,", ",+-5,", R"(, line 3, column "strength")", R"("+-5")", strength},
        {A, ",14,", ",15,", R"(, line 3, column "strength")", R"("15")", strength},
        {H, ",8,", ",0,", R"(, line 2, column "strength")", R"("0")", strength},
        {A, ",4,99,", ",5,99,", R"(, line 3, column "hits")", R"("5")", hits},
        {H, ",1,c11", ",0,c11", R"(, line 2, column "hits")", R"("0")", hits},
        {A, ",99,", ",100,", R"(, line 3, column "turns")", R"("100")", turns},
        {A, ",8,9,", ",-1,9,", R"(, line 2, column "turns")", R"("-1")", turns},
        {A, "ice,13", "ice,14", R"(, line 2, column "bonus")", R"("14")", bonus},
        {H, "woods,-13", "woods,-14", R"(, line 2, column "bonus")", R"("-14")", bonus},
        {A, "2147483647", "2147483648", R"(, line 3, column "moves")", R"("2147483648")", any},
        {A, ",22,23", ",32768,23", R"(, line 2, column "power")", R"("32768")", code},
        {P, "-32768", "22", R"(, line 3, column "code")", R"("22" again)", "each power code once"},
        {P, "Sparks", "", R"(, line 2, column "name")", "an empty cell", "the power's name"},
        {A, "\n1,", "\n2,", R"(, line 3, column "id")", R"("2")", "1: identifiers count the rows from 0"},
        {A, "\n0,Reeds", "\n1,Reeds", R"(, line 2, column "id")", R"("1")",
            "0: identifiers count the rows from 0"},
        {A, "Kites", "\"  \"", R"(, line 3, column "name")", "an empty cell", name},
        {H, "Thane", "\" None\"", R"(, line 2, column "name")", R"("None")", name},
        {A, "Kites", "\"Kites * \"", R"(, line 3, column "name")", R"("Kites *")", mark},
        {A, "Kites", "terrain : city", R"(, line 3, column "name")", R"("terrain : city")", heading},
        {H, "Thane", "Number of Battles:", R"(, line 2, column "name")", R"("Number of Battles:")", heading},
        {H, "Thane", "Defending armies", R"(, line 2, column "name")", R"("Defending armies")", heading},
        {A, "Kites", "QUICK RESULTS:", R"(, line 3, column "name")", R"("QUICK RESULTS:")", heading},
        {A, "Kites", "Reeds", R"(, line 3, column "name")", reedsAgain, unique},
        {H, "Thane", "Reeds", R"(, line 2, column "name")", reedsAgain, unique},
        {A, ",14,", ',' + o41 + ',', R"(, line 3, column "strength")", '"' + o39e + '"', strength},
        {A, ",ice,", ",Ice,", R"(, line 2, column "terrain")", R"("Ice")", terrain},
        {A, ",ice,", ",,", R"(, line 2, column "terrain")", "an empty cell", noTerrain},
        {H, ",woods,", ",,", R"(, line 2, column "terrain")", "an empty cell", noTerrain},
        {A, "c11", "Undeed", R"(, line 2, column "trait1")", R"("Undeed")", undead},
        {A, "c12", "udnead", R"(, line 2, column "trait2")", R"("udnead")", undead},
        {A, "Fly", "Flys", R"(, line 3, column "movement")", R"("Flys")", fly},
        {H, "c12", "fy", R"(, line 2, column "movement")", R"("fy")", fly},
    });
}

TEST(Catalogue, TakesTheSizesOfAPowerThatDifferToTheRules) {
    const auto read = [](const std::string& power, int size) {
        return ContentsOrError([&] { return Read(Changed(A, "22,23", power + ',' + std::to_string(size))); });
    };
    for (const auto& [powers, highest] : {std::pair{"2 3 4 5 6", 5}, {"26 27 33", 25}, {"32", 3}, {"37", 13},
                                          {"28 30 38 39 41", 99}, {"1 -1 29", 99}, {"0", 0}})
        for (const std::string& power : test::Split(powers, ' ')) {
            EXPECT_NE(read(power, highest).find('#' + power + "|#" + std::to_string(highest) + '|'),
                std::string::npos);
            for (const int size : {-1, highest + 1})
                EXPECT_EQ(read(power, size),
                    "The unit catalogue cannot be used:\narmies.csv, line 2, column \"powersize\": found \"" +
                        std::to_string(size) + "\", expected " + (highest == 0 ? "" : "a whole number from 0 to ") +
                        std::to_string(highest) + " for power " + power + '.');
        }
}

TEST(Catalogue, ListsItsFaultsUpToTen) {
    Texts texts{Changed(A, "0,Reeds,c2,c3,4,5,6,3,8,", "5,,c2,c3,much,0,6,,2.5,")[A], "Id;name\n0;Thane\n",
        ValidTexts[P] + "7\n,\n"};
    texts[A].replace(texts[A].find("1,Kites"), 1, "6");  // counts on from the 5
    const auto listed = [&] { return ContentsOrError([&] { return Read(texts); }); };
    const std::string eight = "The unit catalogue cannot be used:\n"
        "armies.csv, line 2, column \"id\": found \"5\", expected 0: identifiers count the rows from 0.\n"
        "armies.csv, line 2, column \"name\": found an empty cell, expected a name other than None.\n"
        "armies.csv, line 2, column \"cost\": found \"much\", expected a whole number from "
        "-2147483648 to 2147483647.\n"
        "armies.csv, line 2, column \"strength\": found \"0\", expected a whole number from 1 to 14.\n"
        "armies.csv, line 2, column \"hits\": found an empty cell, expected a whole number from 1 to 4.\n"
        "armies.csv, line 2, column \"turns\": found \"2.5\", expected a whole number from 0 to 99.\n"
        "heroes.csv, line 1: found none of the columns, expected a header that names each column once, "
        "with commas between the names.\n"
        "powers.csv, line 4: found too few cells, expected as many cells as the header has (a text "
        "with a comma needs quotes around it).";
    const std::string ten = eight + "\n"
        "powers.csv, line 5, column \"name\": found an empty cell, expected the power's name.\n"
        "powers.csv, line 5, column \"code\": found an empty cell, expected a whole number from "
        "-32768 to 32767.";
    EXPECT_EQ(listed(), ten);
    texts[P] += ",\n1\n";
    EXPECT_EQ(listed(), ten + "\nAnd 3 more.");
}
// clang-format on

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
