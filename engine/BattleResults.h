// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"

#include <cstdlib>
#include <memory>

namespace vorhaven::MBattleCalc {

/// The columns of the results table.
namespace ResultColumn {
/// 1 the attacker won, 0 the defender won.
inline constexpr std::int32_t Winner = 1;
inline constexpr std::int32_t AttackersSlain = 2;
/// Production turns of the slain attackers.
inline constexpr std::int32_t AttackTurnsLost = 3;
inline constexpr std::int32_t DefendersSlain = 4;
/// Production turns of the slain defenders.
inline constexpr std::int32_t DefendTurnsLost = 5;
inline constexpr std::int32_t Last = DefendTurnsLost;
} // namespace ResultColumn

/// One row of five figures for every battle of a run, rows and columns from 1; 20 bytes a battle.
class ResultsTable {
public:
    /// Makes the table anew with rows 1 to `battles`, all zero. The system hands the memory out row by row as
    /// the battles touch it, so a long run that is stopped early costs only what it fought. Raises error 7
    /// when there is not enough memory, error 9 for a negative number.
    void Redimension(Long battles);

    [[nodiscard]] Long RowCount() const { return rows_; }

    /// The figure of a battle; raises error 9 outside the table.
    [[nodiscard]] Long& operator()(Long battle, Long column) { return cells_[IndexOf(battle, column)]; }
    [[nodiscard]] Long operator()(Long battle, Long column) const { return cells_[IndexOf(battle, column)]; }

private:
    struct Free {
        // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): calloc alone hands out zeroed memory untouched.
        void operator()(Long* cells) const { std::free(cells); }
    };

    [[nodiscard]] std::size_t IndexOf(Long battle, Long column) const {
        if (battle < 1 || battle > rows_ || column < 1 || column > ResultColumn::Last)
            Raise(ErrorNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(battle.Value() - 1) * ResultColumn::Last +
               static_cast<std::size_t>(column.Value() - 1);
    }

    Long rows_;
    std::unique_ptr<Long[], Free> cells_;
};

} // namespace vorhaven::MBattleCalc
