// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/Setup.h"

#include <optional>
#include <vector>

namespace vorhaven {

/// The set-ups that the player went through, for undo and redo.
class SetupHistory {
public:
    SetupHistory() = default;
    /// Begins with a set-up, without anything to undo.
    explicit SetupHistory(Setup first) : current_(std::move(first)) {}

    /// The set-up as it was last taken in.
    [[nodiscard]] const Setup& Current() const { return current_; }

    /// Takes in the set-up as it is now: if it has changed, that is one step to undo. Changes in a row of one
    /// and the same number are undone as one, and so are the keys that make it up. Whether a new step has
    /// begun.
    bool Note(const Setup& now);

    [[nodiscard]] bool CanUndo() const { return !past_.empty(); }
    [[nodiscard]] bool CanRedo() const { return !undone_.empty(); }
    /// Goes back to before the last step, or forward to what the last Undo left. The set-up becomes the
    /// current one and is to be put in place; nothing happens when there is none.
    [[nodiscard]] std::optional<Setup> Undo() { return Move(past_, undone_); }
    [[nodiscard]] std::optional<Setup> Redo() { return Move(undone_, past_); }

    /// Corrects the current set-up, without a step, to what has come of putting it in place.
    void Correct(Setup current) { current_ = std::move(current); }

private:
    /// What alone a change may concern to be undone together with the one before.
    enum class Number { None, CombatDice, NumBattles };

    [[nodiscard]] static Number OnlyChange(const Setup& before, const Setup& after);
    [[nodiscard]] std::optional<Setup> Move(std::vector<Setup>& from, std::vector<Setup>& to);

    Setup current_;
    std::vector<Setup> past_;
    std::vector<Setup> undone_;
    Number lastChange_ = Number::None;
};

} // namespace vorhaven
