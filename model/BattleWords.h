// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Side.h"

#include <string_view>

// The words that begin a line of a battle's text which is no army. No unit can have such a name.
namespace vorhaven {

/// Above the lines of a side.
inline constexpr PerSide<std::string_view> SideHeadings{"Attacking Armies", "Defending Armies"};
/// Above figures, which are for people alone.
inline constexpr std::string_view OddsHeading = "Exact Odds";
inline constexpr std::string_view ResultsHeading = "Quick Results";

// Before a colon and the setting's value.
inline constexpr std::string_view TerrainKey = "Terrain";
inline constexpr std::string_view CityLevelKey = "City Level";
inline constexpr std::string_view DiceKey = "Combat Dice";
inline constexpr std::string_view BattlesKey = "Number of Battles";

/// Whether a line is a heading, in any letter case, with a colon behind it or without.
[[nodiscard]] bool IsHeading(std::string_view line, std::string_view heading);

/// Whether a line is any of the headings, or a setting.
[[nodiscard]] bool IsHeadingOrSetting(std::string_view line);

} // namespace vorhaven
