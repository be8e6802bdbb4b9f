// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CsvCatalogue.h"

#include "base/Conversion.h"
#include "catalogue/BuiltIn.h"
#include "catalogue/CsvRows.h"
#include "catalogue/Ranges.h"
#include "catalogue/RowReader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>
#include <string_view>
#include <system_error>

namespace vorhaven {
namespace {

/// What the cells of a column hold.
enum class CellKind { Identifier, Name, Text, Number, OptionalNumber, Terrain, Trait, Movement };

struct Column {
    std::string_view Header;
    CellKind Kind;
    /// Of a number.
    Range Numbers = AnyNumber;
};

// The columns of a table in the table's order.
// clang-format off
constexpr std::array<Column, 24> ArmyColumns{{
    {"id", CellKind::Identifier},
    {"name", CellKind::Name},
    {"plural", CellKind::Text},
    {"faction", CellKind::Text},
    {"cost", CellKind::OptionalNumber},
    {"strength", CellKind::Number, Strengths},
    {"upkeep", CellKind::OptionalNumber},
    {"hits", CellKind::Number, HitPoints},
    {"turns", CellKind::Number, ProductionTurns},
    {"moves", CellKind::OptionalNumber},
    {"view", CellKind::OptionalNumber},
    {"trait1", CellKind::Trait},
    {"trait2", CellKind::Trait},
    {"movement", CellKind::Movement},
    {"building", CellKind::Text},
    {"weapon", CellKind::Text},
    {"armour", CellKind::Text},
    {"terrain", CellKind::Terrain},
    {"bonus", CellKind::Number, Bonuses},
    {"size", CellKind::Text},
    {"description", CellKind::Text},
    {"notes", CellKind::Text},
    {"power", CellKind::Number, PowerCodes},
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
    {"strength", CellKind::Number, Strengths},
    {"weapon", CellKind::Text},
    {"hits", CellKind::Number, HitPoints},
    {"armour", CellKind::Text},
    {"movement", CellKind::Movement},
    {"mount", CellKind::Text},
    {"description", CellKind::Text},
    {"notes", CellKind::Text},
    {"terrain", CellKind::Terrain},
    {"bonus", CellKind::Number, Bonuses},
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

/// What is known from the rows before, for the checks that compare rows.
struct Earlier {
    UnitNames& Names;
    /// By how much the last identifier was wrong.
    std::int64_t IdentifierShift = 0;
};

Cell ToCell(RowReader& reader, const Column& column, const std::string& text, std::size_t row,
            Earlier& earlier) {
    switch (column.Kind) {
    case CellKind::Identifier:
        reader.CheckIdentifier(text, row, earlier.IdentifierShift);
        return Long{static_cast<std::int32_t>(row)};
    case CellKind::Number:
        return reader.Number(column.Header, text, column.Numbers);
    case CellKind::OptionalNumber:
        return text.empty() ? Cell{} : reader.Number(column.Header, text, column.Numbers);
    case CellKind::Name:
        reader.CheckName(text, earlier.Names);
        break;
    case CellKind::Terrain:
        reader.CheckTerrain(text);
        break;
    case CellKind::Trait:
        reader.CheckWord(column.Header, text, "undead");
        break;
    case CellKind::Movement:
        reader.CheckWord(column.Header, text, "fly");
        break;
    case CellKind::Text:
        break;
    }
    return text;
}

/// Reads a table of units. `checkUnit` looks at the cells of a row together.
template <std::size_t N>
Table ReadUnits(const TextFile& file, const std::array<Column, N>& columns, UnitNames& names,
                CatalogueFaults& faults, const auto& checkUnit) {
    std::array<std::string, N> headers;
    std::ranges::transform(columns, headers.begin(),
                           [](const Column& column) { return std::string{column.Header}; });
    Earlier earlier{names};
    std::vector<std::vector<Cell>> units;
    CsvRows<N>{file, headers, faults}.ForEach([&](const CsvRow<N>& row) {
        RowReader reader{file.Name, row.Line, faults};
        std::vector<Cell>& unit = units.emplace_back();
        unit.reserve(N);
        for (std::size_t i = 0; i < N; ++i)
            unit.push_back(ToCell(reader, columns[i], row.Cells[i], row.Number, earlier));
        checkUnit(reader, unit);
    });
    return Table{std::move(units)};
}

Table ReadArmies(const TextFile& file, UnitNames& names, CatalogueFaults& faults) {
    return ReadUnits(file, ArmyColumns, names, faults, [](RowReader& reader, const std::vector<Cell>& unit) {
        reader.CheckBonus(unit[ArmyColumn::BonusTerrain], unit[ArmyColumn::BonusSize]);
        reader.CheckPowerSize(unit[ArmyColumn::PowerCode], unit[ArmyColumn::PowerSize]);
    });
}

Table ReadHeroes(const TextFile& file, UnitNames& names, CatalogueFaults& faults) {
    return ReadUnits(file, HeroColumns, names, faults, [](RowReader& reader, const std::vector<Cell>& unit) {
        reader.CheckBonus(unit[HeroColumn::BonusTerrain], unit[HeroColumn::BonusSize]);
    });
}

std::map<std::int16_t, std::string> ReadPowers(const TextFile& file, CatalogueFaults& faults) {
    const std::array<std::string, 2> headers{"code", "name"};
    std::map<std::int16_t, std::string> powers;
    CsvRows<2>{file, headers, faults}.ForEach([&](const CsvRow<2>& row) {
        RowReader reader{file.Name, row.Line, faults};
        const auto& [code, name] = row.Cells;
        if (name.empty())
            reader.Refuse("name", name, "the power's name");
        const Cell number = reader.Number("code", code, PowerCodes);
        if (std::holds_alternative<Long>(number) &&
            !powers.try_emplace(ToShort(CellNumber(number)), name).second)
            reader.Refuse("code", code, "each power code once", " again");
    });
    return powers;
}

bool IsBuiltIn(const TextFile& armies, const TextFile& heroes, const TextFile& powers) {
    return armies.Text == BuiltInText::Armies && heroes.Text == BuiltInText::Heroes &&
           powers.Text == BuiltInText::Powers;
}

[[noreturn]] void RefuseFolder(const std::string& origin, const std::string& found,
                               const std::string& expected) {
    CatalogueFaults faults;
    faults.Add({}, found, expected);
    throw CatalogueError{origin, faults};
}

} // namespace

CsvCatalogue::CsvCatalogue(const TextFile& armies, const TextFile& heroes, const TextFile& powers,
                           std::string origin)
    : origin_(std::move(origin)) {
    UnitNames names;
    CatalogueFaults faults;
    armies_ = ReadArmies(armies, names, faults);
    heroes_ = ReadHeroes(heroes, names, faults);
    powers_ = ReadPowers(powers, faults);
    if (!faults.IsEmpty())
        throw CatalogueError{origin_, faults};
    if (IsBuiltIn(armies, heroes, powers))
        origin_.clear();
}

CsvCatalogue CsvCatalogue::BuiltIn() {
    return CsvCatalogue{{"built-in armies.csv", BuiltInText::Armies},
                        {"built-in heroes.csv", BuiltInText::Heroes},
                        {"built-in powers.csv", BuiltInText::Powers}};
}

CsvCatalogue CsvCatalogue::FromFolder(const std::filesystem::path& folder) {
    if (const std::string fault = FaultOf(folder, std::filesystem::file_type::directory); !fault.empty())
        RefuseFolder(PathText(folder), fault, "a readable folder with armies.csv, heroes.csv and powers.csv");
    return CsvCatalogue{ReadTextFile(folder / "armies.csv"), ReadTextFile(folder / "heroes.csv"),
                        ReadTextFile(folder / "powers.csv"), PathText(folder)};
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
        RefuseFolder(hasOwn ? PathText(*own) : "", "too little memory to read it",
                     "some hundred MiB that are free");
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
