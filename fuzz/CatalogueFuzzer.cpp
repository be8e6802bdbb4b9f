// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "base/ForeignText.h"
#include "catalogue/BuiltIn.h"
#include "catalogue/CsvCatalogue.h"
#include "catalogue/Ranges.h"
#include "model/BattleWords.h"
#include "model/CAttackArmies.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

namespace vorhaven {
namespace {

void Require(bool isTrue) {
    if (!isTrue)
        std::abort();
}

/// The text up to the next NUL character, which is taken off `input` with it; `builtIn` in the place of none.
std::string NextText(std::string_view& input, const char* builtIn) {
    const std::string_view text = input.substr(0, input.find('\0'));
    input.remove_prefix(std::min(text.size() + 1, input.size()));
    return text.empty() ? builtIn : std::string{text};
}

/// A column of numbers that the program reads, with the range that it relies on.
struct NumberColumn {
    std::int32_t Column;
    Range Numbers;
};

/// The program reads nothing from a table that it accepted but what it can use.
void CheckTable(const Table& table, std::initializer_list<NumberColumn> numbers, std::int32_t name) {
    for (std::int32_t row = 0; row < table.RowCount(); ++row) {
        for (const auto& [column, range] : numbers)
            Require(range.Holds(std::get<Long>(table(row, column))));
        const std::string& text = std::get<std::string>(table(row, name));
        Require(!text.empty() && text != NoArmy && !text.ends_with('*') && !IsHeadingOrSetting(text));
        Require(Trimmed(text, " \t") == text);
    }
}

/// A heading, and one short line for each fault, but not too many.
void CheckMessage(std::string_view message) {
    std::size_t faults = 0;
    Require(message.starts_with("The unit catalogue cannot be used:\n"));
    message.remove_prefix(message.find('\n'));
    while (!message.empty()) {
        const std::string_view line = message.substr(1, message.find('\n', 1) - 1);
        message.remove_prefix(1 + line.size());
        Require(line.size() < 300 && line.ends_with('.') && Visible(line) == line);
        Require(line.find(".csv") != std::string_view::npos || line.starts_with("And "));
        ++faults;
    }
    Require(faults >= 1 && faults <= CatalogueFaults::MostListed + 1);
}

/// Reads a catalogue. Any exception but a CatalogueError ends the fuzzer.
void ReadCatalogue(std::string_view input) {
    const std::string armies = NextText(input, BuiltInText::Armies);
    const std::string heroes = NextText(input, BuiltInText::Heroes);
    const std::string powers = NextText(input, BuiltInText::Powers);
    try {
        const CsvCatalogue catalogue{{"armies.csv", armies}, {"heroes.csv", heroes}, {"powers.csv", powers}};
        using enum CatalogueProvider::Selector;
        CheckTable(catalogue.GetTable(Armies),
                   {{ArmyColumn::Identifier, AnyNumber},
                    {ArmyColumn::Strength, Strengths},
                    {ArmyColumn::Hits, HitPoints},
                    {ArmyColumn::Turns, ProductionTurns},
                    {ArmyColumn::BonusSize, Bonuses},
                    {ArmyColumn::PowerCode, PowerCodes},
                    {ArmyColumn::PowerSize, {0, 99}}},
                   ArmyColumn::Name);
        CheckTable(catalogue.GetTable(Heroes),
                   {{HeroColumn::Identifier, AnyNumber},
                    {HeroColumn::Strength, Strengths},
                    {HeroColumn::Hits, HitPoints},
                    {HeroColumn::BonusSize, Bonuses}},
                   HeroColumn::Name);
    } catch (const CatalogueError& error) {
        CheckMessage(error.what());
    }
}

} // namespace
} // namespace vorhaven

/// An input is the texts of armies.csv, heroes.csv and powers.csv, separated by NUL characters.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    vorhaven::ReadCatalogue({reinterpret_cast<const char*>(data), size});
    return 0;
}
