// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Controls.h"
#include "ui/hero/HeroValues.h"
#include "ui/setup/HealthArray.h"

#include <array>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vorhaven {

/// A battle as its text tells it. A setting that the text does not name is empty.
struct BattleDescription {
    struct Line {
        Long Datum;
        HealthRow Health;
        /// What was entered for a hero.
        std::optional<HeroValues> Hero;

        bool operator==(const Line&) const = default;
    };

    /// 0 attack, 1 defence.
    std::array<std::vector<Line>, 2> Sides;
    /// The lines above any heading, which belong to no side yet.
    std::vector<Line> Loose;
    /// Places in the boxes of terrain and city level.
    std::optional<std::int32_t> Terrain;
    std::optional<std::int32_t> CityLevel;
    std::optional<Long> CombatDice;
    std::optional<Long> NumBattles;

    bool operator==(const BattleDescription&) const = default;
};

/// A text that tells no battle. Its message is one sentence with the line at fault.
class BattleTextError : public std::runtime_error {
public:
    BattleTextError(int line, const std::string& fault)
        : std::runtime_error("Line " + std::to_string(line) + ": " + fault + '.') {}
};

/// Writes battles as plain lines that a person can read and type, and reads them:
///
///     Attacking Armies
///     Oath Guard, blessed, 2 medals
///     Marshal, strength 8, hits 3, leadership 2
///
///     Defending Armies
///     Hill Hammers
///
///     Terrain: hills
///     Combat Dice: 20
///     Number of Battles: 1000
///
/// What follows the heading "Quick Results" is for people alone.
class BattleText {
public:
    /// The limits of the number of battles.
    static constexpr std::int32_t FewestBattles = 10;
    static constexpr std::int32_t MostBattles = 99'999'999;

    struct Vocabulary {
        /// The units by name, with their data in the lists.
        const std::vector<ListEntry>& Units;
        const std::vector<ListEntry>& CityLevels;
        /// The limits of the dice.
        Long LowestDice;
        Long HighestDice;
        /// The values that a hero begins with; nothing for a unit that is no hero.
        std::function<std::optional<HeroValues>(Long datum)> Heroes;
    };

    /// What the vocabulary refers to must outlive the text.
    explicit BattleText(Vocabulary vocabulary) : vocabulary_(std::move(vocabulary)) {}

    [[nodiscard]] std::string Write(const BattleDescription& battle) const;

    /// Raises BattleTextError for the first line that cannot be read: an unknown unit, condition or value, a
    /// list of more than 32 lines. Letter case and blanks around words do not matter, empty lines are
    /// skipped.
    [[nodiscard]] BattleDescription Read(std::string_view text) const;

private:
    class Reader;

    [[nodiscard]] std::string WriteLine(const BattleDescription::Line& line) const;

    Vocabulary vocabulary_;
};

} // namespace vorhaven
