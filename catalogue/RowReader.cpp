// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/RowReader.h"

#include "base/Conversion.h"
#include "base/ForeignText.h"
#include "model/BattleWords.h"
#include "model/CAttackArmies.h"
#include "model/Terrain.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <system_error>

namespace vorhaven {
namespace {

std::optional<std::int32_t> NumberIn(const std::string& cell, Range range) {
    std::int32_t number = 0;
    const bool hasPlus = cell.starts_with('+') && !cell.starts_with("+-");
    const char* const end = cell.data() + cell.size();
    const auto [rest, error] = std::from_chars(cell.data() + (hasPlus ? 1 : 0), end, number);
    return error == std::errc{} && rest == end && range.Holds(number) ? std::optional{number} : std::nullopt;
}

std::string InWords(Range range) {
    return range.Lowest == range.Highest ? std::to_string(range.Lowest)
                                         : "a whole number from " + std::to_string(range.Lowest) + " to " +
                                               std::to_string(range.Highest);
}

bool IsOneSlipFrom(std::string_view text, std::string_view word) {
    const auto [differing, expected] = std::ranges::mismatch(text, word);
    const std::string_view found{differing, text.end()};
    const std::string_view wanted{expected, word.end()};
    const auto behind = [](std::string_view rest, std::size_t letters) {
        return rest.substr(std::min(letters, rest.size()));
    };
    if (found == wanted)
        return false;
    const bool isSwapped = found.size() > 1 && wanted.size() > 1 && found[0] == wanted[1] &&
                           found[1] == wanted[0] && behind(found, 2) == behind(wanted, 2);
    return isSwapped || behind(found, 1) == behind(wanted, 1) || behind(found, 1) == wanted ||
           found == behind(wanted, 1);
}

} // namespace

void RowReader::Refuse(std::string_view column, const std::string& cell, const std::string& expected,
                       const std::string& remark) {
    faults_->Add(PlaceOf(column), (cell.empty() ? "an empty cell" : Quoted(cell)) + remark, expected);
}

Cell RowReader::Number(std::string_view column, const std::string& cell, Range range) {
    if (const auto number = NumberIn(cell, range))
        return Long{*number};
    Refuse(column, cell, InWords(range));
    return {};
}

void RowReader::CheckIdentifier(const std::string& cell, std::size_t row, std::int64_t& shift) {
    const auto expected = static_cast<std::int64_t>(row);
    if (cell == std::to_string(expected + shift))
        return;
    const auto number = NumberIn(cell, AnyNumber);
    shift = number ? *number - expected : 0;
    if (cell != std::to_string(row))
        Refuse("id", cell, std::to_string(row) + ": identifiers count the rows from 0");
}

void RowReader::CheckName(const std::string& cell, UnitNames& names) {
    constexpr auto column = "name";
    if (cell.empty() || cell == NoArmy)
        Refuse(column, cell, std::string{"a name other than "} + NoArmy);
    else if (cell.ends_with(ConditionMark.back()))
        Refuse(column, cell, "a name without an asterisk at its end, which marks a unit with conditions");
    else if (IsHeadingOrSetting(cell))
        Refuse(column, cell, "a name that does not read as a heading or a setting of a battle's text");
    else if (const auto [first, isNew] = names.try_emplace(cell, PlaceOf(column)); !isNew)
        Refuse(column, cell, "a name that no other army type or hero type has",
               " again, after " + ToText(first->second));
}

void RowReader::CheckTerrain(const std::string& cell) {
    if (cell.empty() || Terrains::IndexOf(cell) < std::ssize(Terrains::All))
        return;
    std::string all;
    for (const char* const known : Terrains::All)
        all.append(known).append(", ");
    Refuse("terrain", cell, all + "or an empty cell for no bonus");
}

void RowReader::CheckWord(std::string_view column, const std::string& cell, std::string_view meaningful) {
    if (IsOneSlipFrom(ToLower(cell), meaningful))
        Refuse(column, cell, Quoted(meaningful) + ", or a word that is less like it");
}

void RowReader::CheckBonus(const Cell& terrain, const Cell& bonus) {
    if (CellText(terrain).empty() && CellNumber(bonus) != 0)
        Refuse("terrain", {}, "the terrain of the bonus, or a bonus of 0");
}

void RowReader::CheckPowerSize(const Cell& power, const Cell& size) {
    const auto* const code = std::get_if<Long>(&power);
    const auto* const number = std::get_if<Long>(&size);
    if (code == nullptr || number == nullptr)
        return;
    const Range sizes = SizesOf(PowerType{code->Value()});
    if (!sizes.Holds(*number))
        Refuse("powersize", ToText(*number), InWords(sizes) + " for power " + ToText(*code));
}

CataloguePlace RowReader::PlaceOf(std::string_view column) const {
    return {file_, line_, std::string{column}};
}

} // namespace vorhaven
