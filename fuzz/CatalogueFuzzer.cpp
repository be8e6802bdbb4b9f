// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "catalogue/BuiltIn.h"
#include "catalogue/CsvCatalogue.h"

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

/// The program reads no column of a table that it accepted as something else than it holds.
void CheckTable(const Table& table, std::initializer_list<std::int32_t> numbers, std::int32_t name) {
    for (std::int32_t row = 0; row < table.RowCount(); ++row) {
        for (const std::int32_t column : numbers)
            Require(std::holds_alternative<Long>(table(row, column)));
        const std::string& text = std::get<std::string>(table(row, name));
        Require(!text.empty() && text != "None" && !text.ends_with(" *"));
        Require(Trimmed(text, " \t") == text);
    }
}

/// Reads a catalogue. Any exception but a CatalogueError ends the fuzzer, and so does a message that is not
/// one short line.
void ReadCatalogue(std::string_view input) {
    const std::string armies = NextText(input, BuiltInText::Armies);
    const std::string heroes = NextText(input, BuiltInText::Heroes);
    const std::string powers = NextText(input, BuiltInText::Powers);
    try {
        const CsvCatalogue catalogue{{"armies.csv", armies}, {"heroes.csv", heroes}, {"powers.csv", powers}};
        using enum CatalogueProvider::Selector;
        CheckTable(catalogue.GetTable(Armies),
                   {ArmyColumn::Identifier, ArmyColumn::Strength, ArmyColumn::Hits, ArmyColumn::Turns,
                    ArmyColumn::BonusSize, ArmyColumn::PowerCode, ArmyColumn::PowerSize},
                   ArmyColumn::Name);
        CheckTable(catalogue.GetTable(Heroes),
                   {HeroColumn::Identifier, HeroColumn::Strength, HeroColumn::Hits, HeroColumn::BonusSize},
                   HeroColumn::Name);
    } catch (const CatalogueError& error) {
        const std::string_view message = error.what();
        Require(message.size() < 300 && message.find_first_of("\r\n") == std::string_view::npos);
        Require(message.find(".csv") != std::string_view::npos && message.ends_with('.'));
    }
}

} // namespace
} // namespace vorhaven

/// An input is the texts of armies.csv, heroes.csv and powers.csv, separated by NUL characters.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    vorhaven::ReadCatalogue({reinterpret_cast<const char*>(data), size});
    return 0;
}
