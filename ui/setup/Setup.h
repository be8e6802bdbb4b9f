// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Side.h"
#include "ui/hero/HeroValues.h"
#include "ui/setup/HealthArray.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorhaven {

/// A line of an army list.
struct SetupLine {
    /// The number of its unit, as Units has it.
    Long Unit;
    /// What the list shows: the unit's name, with the mark of its conditions.
    std::string Text;
    HealthRow Health{};
    /// What was entered for a hero; nothing until then.
    std::optional<HeroValues> Hero{};
    /// Tells the line apart from all others of the window; 0 until it is put into a list.
    std::int32_t Id = 0;

    bool operator==(const SetupLine&) const = default;
};

/// All that the player has set up in the main window, as a value: it can be kept, compared and put back.
struct Setup {
    PerSide<std::vector<SetupLine>> Sides;
    /// The defender's terrain, and whether the number of defenders keeps the player from choosing it.
    std::string Terrain;
    bool IsTerrainLocked = false;
    /// 0 none, 1 village, 2 castle, 3 citadel. Only a city has one.
    Long CityLevel;
    /// Faces of the combat die.
    Long CombatDice;
    /// The text of its field, which may be empty or too small a number while it is edited.
    std::string NumBattles;

    bool operator==(const Setup&) const = default;

    /// Puts the defender on another terrain, a city being a village at first.
    void ChooseTerrain(std::string_view terrain);
    /// Follows the number of defenders: too many for the open are put into a city, fewer free the terrain.
    void AdjustTerrain();
};

/// Whether so many defenders can only defend a city.
[[nodiscard]] constexpr bool IsCityForced(Long defenders) {
    return defenders > LinesPerStack;
}

/// The city levels 1 to 3 as their box lists them.
inline constexpr std::array<const char*, 3> CityLevels{"Village (+1)", "Castle (+2)", "Citadel (+3)"};

/// What a number of the set-up may be when a person enters it, and what it is at first.
struct NumberRange {
    std::int32_t Lowest;
    std::int32_t Highest;
    std::int32_t AtFirst;
};
/// No army is stronger than 14, so from 15 faces on every battle ends.
inline constexpr NumberRange CombatDiceRange{15, 100, 20};
/// The highest number has as many digits as fit into a count whatever they are.
inline constexpr NumberRange NumBattlesRange{10, 99'999'999, 1000};

/// What the text of the field for the number of battles becomes when the field is left: the lowest number, or
/// a multiple of ten. Raises what ToLong raises.
[[nodiscard]] std::string CompletedNumBattles(const std::string& text);

} // namespace vorhaven
