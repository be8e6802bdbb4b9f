// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CsvCatalogue.h"

#include "catalogue/BuiltIn.h"
#include "catalogue/CsvRows.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <system_error>

namespace vorhaven {

namespace {

using Place = CatalogueError::Place;

/// What the cells of a column hold.
enum class Content { Identifier, Name, Text, Number, OptionalNumber, Terrain, PowerCode };

struct Column {
    const char* header;
    Content content;
};

/// The columns of a table in the table's order.
constexpr std::array<Column, 24> ArmyColumns{{
    {"id", Content::Identifier},         {"name", Content::Name},
    {"plural", Content::Text},           {"faction", Content::Text},
    {"cost", Content::OptionalNumber},   {"strength", Content::Number},
    {"upkeep", Content::OptionalNumber}, {"hits", Content::Number},
    {"turns", Content::Number},          {"moves", Content::OptionalNumber},
    {"view", Content::OptionalNumber},   {"trait1", Content::Text},
    {"trait2", Content::Text},           {"movement", Content::Text},
    {"building", Content::Text},         {"weapon", Content::Text},
    {"armour", Content::Text},           {"terrain", Content::Terrain},
    {"bonus", Content::Number},          {"size", Content::Text},
    {"description", Content::Text},      {"notes", Content::Text},
    {"power", Content::PowerCode},       {"powersize", Content::Number},
}};

constexpr std::array<Column, 18> HeroColumns{{
    {"id", Content::Identifier},
    {"name", Content::Name},
    {"plural", Content::Text},
    {"faction", Content::Text},
    {"cost", Content::OptionalNumber},
    {"upkeep", Content::OptionalNumber},
    {"moves", Content::OptionalNumber},
    {"view", Content::OptionalNumber},
    {"strength", Content::Number},
    {"weapon", Content::Text},
    {"hits", Content::Number},
    {"armour", Content::Text},
    {"movement", Content::Text},
    {"mount", Content::Text},
    {"description", Content::Text},
    {"notes", Content::Text},
    {"terrain", Content::Terrain},
    {"bonus", Content::Number},
}};

constexpr std::array<const char*, 6> terrains{"city", "ice", "hills", "marsh", "field", "woods"};

/// Where the first unit of a name stands, by the name.
using UnitNames = std::map<std::string, Place>;

std::string Quoted(const std::string& cell) {
    return cell.empty() ? "an empty cell" : '"' + cell + '"';
}

template <class Number>
Number ToNumber(const Place& place, const std::string& cell) {
    using Limits = std::numeric_limits<Number>;
    Number number{};
    const bool hasPlus = cell.starts_with('+') && !cell.starts_with("+-");
    const char* const end = cell.data() + cell.size();
    const auto [rest, error] = std::from_chars(cell.data() + (hasPlus ? 1 : 0), end, number);
    if (error != std::errc{} || rest != end)
        throw CatalogueError{place, Quoted(cell),
                             "a whole number from " + std::to_string(Limits::min()) + " to " +
                                 std::to_string(Limits::max())};
    return number;
}

void CheckUnitName(const Place& place, const std::string& name, UnitNames& names) {
    if (name.empty() || name == "None")
        throw CatalogueError{place, Quoted(name), "a name other than None"};
    const auto [first, isNew] = names.try_emplace(name, place);
    if (!isNew)
        throw CatalogueError{place, Quoted(name) + " again, after " + CatalogueError::ToText(first->second),
                             "a name that no other army type or hero type has"};
}

void CheckTerrain(const Place& place, const std::string& terrain) {
    if (terrain.empty() || std::find(terrains.begin(), terrains.end(), terrain) != terrains.end())
        return;
    throw CatalogueError{place, Quoted(terrain),
                         "city, ice, hills, marsh, field, woods, or an empty cell for no bonus"};
}

Cell ToCell(const Place& place, Content content, const std::string& text, std::size_t row, UnitNames& names) {
    switch (content) {
    case Content::Identifier:
        if (text != std::to_string(row))
            throw CatalogueError{place, Quoted(text),
                                 std::to_string(row) + ": identifiers count the rows from 0"};
        return Long{static_cast<std::int32_t>(row)};
    case Content::Name:
        CheckUnitName(place, text, names);
        return text;
    case Content::Number:
        return Long{ToNumber<std::int32_t>(place, text)};
    case Content::OptionalNumber:
        if (text.empty())
            return {};
        return Long{ToNumber<std::int32_t>(place, text)};
    case Content::PowerCode:
        return Long{ToNumber<std::int16_t>(place, text)};
    case Content::Terrain:
        CheckTerrain(place, text);
        return text;
    case Content::Text:
        break;
    }
    return text;
}

template <std::size_t N>
Table ReadUnits(const TextFile& file, const std::array<Column, N>& columns, UnitNames& names) {
    std::array<std::string, N> headers;
    std::transform(columns.begin(), columns.end(), headers.begin(),
                   [](const Column& column) { return column.header; });
    std::vector<std::vector<Cell>> cells;
    for (const CsvRow<N>& row : ReadCsvRows(file, headers)) {
        std::vector<Cell> unit;
        for (std::size_t i = 0; i < N; ++i)
            unit.push_back(ToCell({file.name, row.line, headers[i]}, columns[i].content, row.cells[i],
                                  cells.size(), names));
        cells.push_back(std::move(unit));
    }
    return Table{std::move(cells)};
}

std::map<std::int16_t, std::string> ReadPowers(const TextFile& file) {
    std::map<std::int16_t, std::string> powers;
    for (const auto& [line, cells] : ReadCsvRows<2>(file, {"code", "name"})) {
        const auto& [code, name] = cells;
        const Place codePlace{file.name, line, "code"};
        if (name.empty())
            throw CatalogueError{{file.name, line, "name"}, Quoted(name), "the power's name"};
        if (!powers.try_emplace(ToNumber<std::int16_t>(codePlace, code), name).second)
            throw CatalogueError{codePlace, Quoted(code) + " again", "each power code once"};
    }
    return powers;
}

} // namespace

CsvCatalogue::CsvCatalogue(const TextFile& armies, const TextFile& heroes, const TextFile& powers) {
    UnitNames names;
    armies_ = ReadUnits(armies, ArmyColumns, names);
    heroes_ = ReadUnits(heroes, HeroColumns, names);
    powers_ = ReadPowers(powers);
}

CsvCatalogue CsvCatalogue::BuiltIn() {
    return CsvCatalogue{{"built-in armies.csv", BuiltInText::Armies},
                        {"built-in heroes.csv", BuiltInText::Heroes},
                        {"built-in powers.csv", BuiltInText::Powers}};
}

CsvCatalogue CsvCatalogue::FromFolder(const std::filesystem::path& folder) {
    return CsvCatalogue{ReadTextFile(folder / "armies.csv"), ReadTextFile(folder / "heroes.csv"),
                        ReadTextFile(folder / "powers.csv")};
}

CsvCatalogue CsvCatalogue::FromFirstFolder(const std::vector<std::filesystem::path>& candidates) {
    for (const std::filesystem::path& candidate : candidates) {
        std::error_code unused;
        if (std::filesystem::is_directory(candidate, unused))
            return FromFolder(candidate);
    }
    return BuiltIn();
}

const Table& CsvCatalogue::GetTable(Selector selector) const {
    return selector == Selector::Armies ? armies_ : heroes_;
}

std::string CsvCatalogue::PowerName(std::int16_t code) const {
    const auto power = powers_.find(code);
    return power == powers_.end() ? std::string{} : power->second;
}

} // namespace vorhaven
