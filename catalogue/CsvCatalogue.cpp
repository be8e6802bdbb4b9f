// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CsvCatalogue.h"

#include "catalogue/BuiltIn.h"
#include "catalogue/CsvRows.h"
#include "model/CAttackArmies.h"
#include "model/Terrain.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <new>
#include <string_view>
#include <system_error>
#include <utf8.h>

namespace vorhaven {

namespace {

using Location = CatalogueError::Location;

/// What the cells of a column hold.
enum class CellKind { Identifier, Name, Text, Number, OptionalNumber, Terrain, PowerCode };

struct Column {
    std::string_view Header;
    CellKind Kind;
};

// The columns of a table in the table's order.
// clang-format off
constexpr std::array<Column, 24> ArmyColumns{{
    {"id", CellKind::Identifier},
    {"name", CellKind::Name},
    {"plural", CellKind::Text},
    {"faction", CellKind::Text},
    {"cost", CellKind::OptionalNumber},
    {"strength", CellKind::Number},
    {"upkeep", CellKind::OptionalNumber},
    {"hits", CellKind::Number},
    {"turns", CellKind::Number},
    {"moves", CellKind::OptionalNumber},
    {"view", CellKind::OptionalNumber},
    {"trait1", CellKind::Text},
    {"trait2", CellKind::Text},
    {"movement", CellKind::Text},
    {"building", CellKind::Text},
    {"weapon", CellKind::Text},
    {"armour", CellKind::Text},
    {"terrain", CellKind::Terrain},
    {"bonus", CellKind::Number},
    {"size", CellKind::Text},
    {"description", CellKind::Text},
    {"notes", CellKind::Text},
    {"power", CellKind::PowerCode},
    {"powersize", CellKind::Number},
}};

constexpr std::array<Column, 18> HeroColumns{{
    {"id", CellKind::Identifier},
    {"name", CellKind::Name},
    {"plural", CellKind::Text},
    {"faction", CellKind::Text},
    {"cost", CellKind::OptionalNumber},
    {"upkeep", CellKind::OptionalNumber},
    {"moves", CellKind::OptionalNumber},
    {"view", CellKind::OptionalNumber},
    {"strength", CellKind::Number},
    {"weapon", CellKind::Text},
    {"hits", CellKind::Number},
    {"armour", CellKind::Text},
    {"movement", CellKind::Text},
    {"mount", CellKind::Text},
    {"description", CellKind::Text},
    {"notes", CellKind::Text},
    {"terrain", CellKind::Terrain},
    {"bonus", CellKind::Number},
}};
// clang-format on

// The program finds each column that it reads where these tables put it.
static_assert(ArmyColumns[ArmyColumn::Identifier].Header == "id");
static_assert(ArmyColumns[ArmyColumn::Name].Header == "name");
static_assert(ArmyColumns[ArmyColumn::Strength].Header == "strength");
static_assert(ArmyColumns[ArmyColumn::Hits].Header == "hits");
static_assert(ArmyColumns[ArmyColumn::Turns].Header == "turns");
static_assert(ArmyColumns[ArmyColumn::FirstTrait].Header == "trait1");
static_assert(ArmyColumns[ArmyColumn::SecondTrait].Header == "trait2");
static_assert(ArmyColumns[ArmyColumn::Movement].Header == "movement");
static_assert(ArmyColumns[ArmyColumn::BonusTerrain].Header == "terrain");
static_assert(ArmyColumns[ArmyColumn::BonusSize].Header == "bonus");
static_assert(ArmyColumns[ArmyColumn::PowerCode].Header == "power");
static_assert(ArmyColumns[ArmyColumn::PowerSize].Header == "powersize");
static_assert(HeroColumns[HeroColumn::Identifier].Header == "id");
static_assert(HeroColumns[HeroColumn::Name].Header == "name");
static_assert(HeroColumns[HeroColumn::Strength].Header == "strength");
static_assert(HeroColumns[HeroColumn::Hits].Header == "hits");
static_assert(HeroColumns[HeroColumn::Movement].Header == "movement");
static_assert(HeroColumns[HeroColumn::BonusTerrain].Header == "terrain");
static_assert(HeroColumns[HeroColumn::BonusSize].Header == "bonus");

/// Where the first unit of each name stands.
using UnitNames = std::map<std::string, Location>;

/// A cell as the errors tell it: in quotes, its beginning if it is long.
std::string Quoted(const std::string& cell) {
    constexpr std::size_t longest = 60;
    if (cell.empty())
        return "an empty cell";
    if (cell.size() <= longest)
        return '"' + cell + '"';
    // A character that is cut in two is left out.
    const auto end = cell.begin() + longest;
    return '"' + std::string{cell.begin(), utf8::find_invalid(cell.begin(), end)} + "...\"";
}

template <class Number>
Number ToNumber(const Location& location, const std::string& cell) {
    using Limits = std::numeric_limits<Number>;
    Number number{};
    const bool hasPlus = cell.starts_with('+') && !cell.starts_with("+-");
    const char* const end = cell.data() + cell.size();
    const auto [rest, error] = std::from_chars(cell.data() + (hasPlus ? 1 : 0), end, number);
    if (error != std::errc{} || rest != end)
        throw CatalogueError{location, Quoted(cell),
                             "a whole number from " + std::to_string(Limits::min()) + " to " +
                                 std::to_string(Limits::max())};
    return number;
}

void CheckUnitName(const Location& location, const std::string& name, UnitNames& names) {
    if (name.empty() || name == NoArmy)
        throw CatalogueError{location, Quoted(name), std::string{"a name other than "} + NoArmy};
    if (name.ends_with(ConditionMark))
        throw CatalogueError{location, Quoted(name),
                             "a name without \"" + std::string{ConditionMark} +
                                 "\" at its end, which marks a unit with conditions"};
    const auto [first, isNew] = names.try_emplace(name, location);
    if (!isNew)
        throw CatalogueError{location,
                             Quoted(name) + " again, after " + CatalogueError::ToText(first->second),
                             "a name that no other army type or hero type has"};
}

void CheckTerrain(const Location& location, const std::string& terrain) {
    if (terrain.empty() || std::ranges::find(Terrains::All, terrain) != Terrains::All.end())
        return;
    std::string all;
    for (const char* const known : Terrains::All)
        all.append(known).append(", ");
    throw CatalogueError{location, Quoted(terrain), all + "or an empty cell for no bonus"};
}

Cell ToCell(const Location& location, CellKind kind, const std::string& text, std::size_t row,
            UnitNames& names) {
    switch (kind) {
    case CellKind::Identifier:
        if (text != std::to_string(row))
            throw CatalogueError{location, Quoted(text),
                                 std::to_string(row) + ": identifiers count the rows from 0"};
        return Long{static_cast<std::int32_t>(row)};
    case CellKind::Name:
        CheckUnitName(location, text, names);
        return text;
    case CellKind::Number:
        return Long{ToNumber<std::int32_t>(location, text)};
    case CellKind::OptionalNumber:
        if (text.empty())
            return {};
        return Long{ToNumber<std::int32_t>(location, text)};
    case CellKind::PowerCode:
        return Long{ToNumber<std::int16_t>(location, text)};
    case CellKind::Terrain:
        CheckTerrain(location, text);
        return text;
    case CellKind::Text:
        break;
    }
    return text;
}

template <std::size_t N>
Table ReadUnits(const TextFile& file, const std::array<Column, N>& columns, UnitNames& names) {
    std::array<std::string, N> headers;
    std::transform(columns.begin(), columns.end(), headers.begin(),
                   [](const Column& column) { return std::string{column.Header}; });
    std::vector<std::vector<Cell>> cells;
    for (const CsvRow<N>& row : ReadCsvRows(file, headers)) {
        std::vector<Cell> unit;
        for (std::size_t i = 0; i < N; ++i)
            unit.push_back(ToCell({file.Name, row.Line, headers[i]}, columns[i].Kind, row.Cells[i],
                                  cells.size(), names));
        cells.push_back(std::move(unit));
    }
    return Table{std::move(cells)};
}

std::map<std::int16_t, std::string> ReadPowers(const TextFile& file) {
    std::map<std::int16_t, std::string> powers;
    for (const auto& [line, cells] : ReadCsvRows<2>(file, {"code", "name"})) {
        const auto& [code, name] = cells;
        const Location codeLocation{file.Name, line, "code"};
        if (name.empty())
            throw CatalogueError{{file.Name, line, "name"}, Quoted(name), "the power's name"};
        if (!powers.try_emplace(ToNumber<std::int16_t>(codeLocation, code), name).second)
            throw CatalogueError{codeLocation, Quoted(code) + " again", "each power code once"};
    }
    return powers;
}

} // namespace

CsvCatalogue::CsvCatalogue(const TextFile& armies, const TextFile& heroes, const TextFile& powers,
                           std::string origin)
    : origin_(std::move(origin)) {
    UnitNames names;
    armies_ = ReadUnits(armies, ArmyColumns, names);
    heroes_ = ReadUnits(heroes, HeroColumns, names);
    powers_ = ReadPowers(powers);
}

CsvCatalogue CsvCatalogue::BuiltIn() {
    return CsvCatalogue{{"built-in armies.csv", BuiltInText::Armies},
                        {"built-in heroes.csv", BuiltInText::Heroes},
                        {"built-in powers.csv", BuiltInText::Powers},
                        "built in"};
}

CsvCatalogue CsvCatalogue::FromFolder(const std::filesystem::path& folder) {
    CheckFileType(folder, std::filesystem::file_type::directory,
                  "a readable folder with armies.csv, heroes.csv and powers.csv");
    return CsvCatalogue{ReadTextFile(folder / "armies.csv"), ReadTextFile(folder / "heroes.csv"),
                        ReadTextFile(folder / "powers.csv"), folder.string()};
}

CsvCatalogue CsvCatalogue::FromFirstFolder(const std::vector<std::filesystem::path>& candidates) {
    const auto own = std::ranges::find_if(candidates, [](const std::filesystem::path& folder) {
        // Not what a link leads to: a link is something, even if it leads nowhere.
        std::error_code ignored;
        return std::filesystem::symlink_status(folder, ignored).type() !=
               std::filesystem::file_type::not_found;
    });
    const bool hasOwn = own != candidates.end();
    try {
        return hasOwn ? FromFolder(*own) : BuiltIn();
    } catch (const std::bad_alloc&) {
        throw CatalogueError{{hasOwn ? own->string() : "built-in catalogue", 0, {}},
                             "too little memory to read it",
                             "some hundred MiB that are free"};
    }
}

const Table& CsvCatalogue::GetTable(Selector selector) const {
    return selector == Selector::Armies ? armies_ : heroes_;
}

std::string CsvCatalogue::PowerName(std::int16_t code) const {
    const auto power = powers_.find(code);
    return power == powers_.end() ? std::string{} : power->second;
}

} // namespace vorhaven
