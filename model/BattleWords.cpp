// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/BattleWords.h"

#include "base/Conversion.h"

#include <algorithm>
#include <initializer_list>
#include <string>

namespace vorhaven {

bool IsHeadingOrSetting(std::string_view line) {
    const auto colon = line.find(':');
    const std::string word = ToLower(Trimmed(line.substr(0, colon), " \t"));
    const auto isAmong = [&word](std::initializer_list<std::string_view> words) {
        return std::ranges::any_of(words, [&word](std::string_view each) { return ToLower(each) == word; });
    };
    if (isAmong({SideHeadings.Attacker, SideHeadings.Defender, ResultsHeading}))
        return colon == std::string_view::npos || Trimmed(line.substr(colon + 1), " \t").empty();
    return colon != std::string_view::npos && isAmong({TerrainKey, CityLevelKey, DiceKey, BattlesKey});
}

} // namespace vorhaven
