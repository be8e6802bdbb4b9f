// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/SetupHistory.h"

#include <utility>

namespace vorhaven {

bool SetupHistory::Note(const Setup& now) {
    if (now == current_)
        return false;
    const Number change = OnlyChange(current_, now);
    const bool isNewStep = change == Number::None || change != lastChange_;
    if (isNewStep)
        past_.push_back(std::move(current_));
    undone_.clear();
    lastChange_ = change;
    current_ = now;
    return isNewStep;
}

SetupHistory::Number SetupHistory::OnlyChange(const Setup& before, const Setup& after) {
    Setup changed = before;
    changed.CombatDice = after.CombatDice;
    if (changed == after)
        return Number::CombatDice;
    changed = before;
    changed.NumBattles = after.NumBattles;
    return changed == after ? Number::NumBattles : Number::None;
}

std::optional<Setup> SetupHistory::Move(std::vector<Setup>& from, std::vector<Setup>& to) {
    if (from.empty())
        return std::nullopt;
    lastChange_ = Number::None;
    to.push_back(std::exchange(current_, std::move(from.back())));
    from.pop_back();
    return current_;
}

} // namespace vorhaven
