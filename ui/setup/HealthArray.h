// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"
#include "model/CAttackArmies.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace vorhaven {

/// The conditions of one line of an army list.
struct HealthRow {
    bool Blessed = false;
    bool Diseased = false;
    bool Poisoned = false;
    /// 0 to 4.
    std::int16_t Medals = 0;
    bool Blacksmith = false;
    bool Weaponsmaster = false;
    bool Flying = false;

    bool operator==(const HealthRow&) const = default;
};

/// The conditions as a person says them, "blessed, 2 medals"; empty for none.
[[nodiscard]] std::string InWords(const HealthRow& row);

/// Gives a row the condition that a word of InWords names, medals with or without their "s"; false for any
/// other word.
[[nodiscard]] bool AddCondition(HealthRow& row, std::string_view word);

/// Whether an army can be in such a health: a blessed one is neither diseased nor poisoned.
[[nodiscard]] constexpr bool IsPossible(const HealthRow& row) {
    return !row.Blessed || !(row.Diseased || row.Poisoned);
}

/// Whether a line's text can take the mark of conditions: it has some text, and no mark yet.
[[nodiscard]] bool AsteriskEligible(std::string_view text);
/// Whether a line's text is to lose its mark, having some text and no condition any more.
[[nodiscard]] bool RemoveAsteriskEligible(std::string_view text, const HealthRow& row);

/// The conditions of all lines of one side: row r belongs to line r - 1. The last row is a spare, the source
/// for the row before it when rows move up.
class HealthArray {
public:
    static constexpr std::int32_t RowCount = MaxLines + 1;

    /// A row, 1 to 33; raises error 9 outside.
    [[nodiscard]] HealthRow& operator()(Long row) { return rows_[IndexOf(row)]; }
    [[nodiscard]] const HealthRow& operator()(Long row) const { return rows_[IndexOf(row)]; }

    bool operator==(const HealthArray&) const = default;

private:
    [[nodiscard]] static std::size_t IndexOf(Long row) {
        if (row < 1 || row > RowCount)
            throw RunTimeError{ErrorNumber::SubscriptOutOfRange};
        return row.Index() - 1;
    }

    std::array<HealthRow, RowCount> rows_;
};

} // namespace vorhaven
