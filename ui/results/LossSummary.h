// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"
#include "model/CAttackArmies.h"
#include "model/Side.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace vorhaven {

/// How many numbers of losses there are: from no army to all lines of a list.
inline constexpr std::int32_t LossCounts = MaxLines + 1;

/// How likely each number of losses is, 0 to 1, by the number.
using LossOdds = std::array<double, LossCounts>;

/// An average as text: one decimal, or the first two digits that are not zero where there is less than that.
[[nodiscard]] std::string AverageText(double average);

/// What a run says about the losses of one side.
struct LossSummary {
    /// Battles that the run was to fight, and those that it fought before it was aborted.
    Long Battles;
    Long Fought;
    /// In how many of the battles fought so many armies were lost, by their number.
    std::array<Long, LossCounts> Counts;
    /// Battles that the side won, and what it lost in them altogether.
    Long Wins;
    std::int64_t ArmiesLostInWins = 0;
    std::int64_t TurnsLostInWins = 0;

    /// The average number of armies lost in a battle fought; nothing without one.
    [[nodiscard]] std::optional<double> Mean() const;

    /// The side's losses when it wins, in words, and how far an aborted run came. `of`: the side.
    [[nodiscard]] std::string Sentence(Side of) const;

    /// What there is to say about a number of losses: how often exactly, at most and at least so many armies
    /// were lost, in percent of the battles fought, and how many were not fought. `turns`: the production
    /// turns that such a loss costs.
    [[nodiscard]] std::string Details(std::int32_t losses, Long turns,
                                      const std::optional<LossOdds>& exact) const;
};

} // namespace vorhaven
