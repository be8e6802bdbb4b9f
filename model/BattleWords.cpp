// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/BattleWords.h"

#include "base/Conversion.h"

#include <algorithm>
#include <initializer_list>
#include <string>

namespace vorhaven {
namespace {

constexpr std::string_view Blanks = " \t";

} // namespace

bool IsHeading(std::string_view line, std::string_view heading) {
    std::string_view words = Trimmed(line, Blanks);
    if (words.ends_with(':'))
        words = Trimmed(words.substr(0, words.size() - 1), Blanks);
    return ToLower(words) == ToLower(heading);
}

bool IsHeadingOrSetting(std::string_view line) {
    const auto isAmong = [](std::initializer_list<std::string_view> words, const auto& isMeant) {
        return std::ranges::any_of(words, isMeant);
    };
    const auto colon = line.find(':');
    const std::string key = ToLower(Trimmed(line.substr(0, colon), Blanks));
    return isAmong({SideHeadings.Attacker, SideHeadings.Defender, OddsHeading, ResultsHeading},
                   [line](std::string_view heading) { return IsHeading(line, heading); }) ||
           (colon != std::string_view::npos &&
            isAmong({TerrainKey, CityLevelKey, DiceKey, BattlesKey},
                    [&key](std::string_view each) { return ToLower(each) == key; }));
}

} // namespace vorhaven
