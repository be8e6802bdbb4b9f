// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/Setup.h"
#include "ui/setup/Units.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vorhaven {

/// A text that cannot be read as a battle. Its message is one sentence, with the line at fault where it is
/// one line's.
class BattleTextError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    BattleTextError(int line, const std::string& fault)
        : std::runtime_error("Line " + std::to_string(line) + ": " + fault + '.') {}
};

/// The lines of a text have no room behind those that a list holds already. Its message says so.
class ListFullError : public std::runtime_error {
public:
    ListFullError();
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
/// What follows the headings "Exact Odds" and "Quick Results" is for people alone.
class BattleText {
public:
    /// `units` must outlive the text.
    explicit BattleText(const Units& units) : units_(&units) {}

    /// The most bytes of a text that is read: several times what a battle can take.
    static constexpr std::size_t MaxBytes = 100'000;

    [[nodiscard]] std::string Write(const Setup& setup) const;
    /// Lines alone, without a heading.
    [[nodiscard]] std::string Write(const std::vector<SetupLine>& lines) const;

    struct Outcome {
        Setup Battle;
        /// One sentence on what the text gives in vain; empty where that is nothing.
        std::string Remark;
    };
    /// What becomes of a set-up by a text. The lines below a side's heading take the place of its list, those
    /// above any heading follow the list of `side`, and settings are chosen, but for a terrain that the
    /// number of defenders rules out; whatever the text does not name stays. The new lines have no Id yet.
    ///
    /// Letter case and blanks around words do not matter, empty lines are skipped; a line may begin with a
    /// dash, a count, or both. Raises BattleTextError for the first line that cannot be read (an unknown
    /// unit, condition or value, one given twice, a list of more than 32 lines, the level of no city) and for
    /// a text of more than MaxBytes, and ListFullError.
    [[nodiscard]] Outcome Read(std::string_view text, const Setup& present, Side side) const;

private:
    class Reader;

    const Units* units_;
};

} // namespace vorhaven
