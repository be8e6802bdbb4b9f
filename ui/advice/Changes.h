// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/Study.h"

#include <string>
#include <vector>

namespace vorhaven {

enum class ChangeKind { Condition, OneMoreArmy, Place };

/// One change that a player could make to a set-up, alone beside all that is set up.
struct SingleChange {
    ChangeKind Kind;
    /// "Bless: Hedge Archers (line 4)".
    std::string Text;
    /// Where one more army would be put, "Line 9, the first of stack 2"; empty for other changes.
    std::string Tooltip;
    /// The set-up with the change. A new line has no Id yet.
    Setup After;
    /// Changes of one number are alike: the same change of equal lines.
    std::size_t Likeness = 0;
};

/// All changes that can be made for the attackers and to the defenders' place, in the order of the lists and
/// boxes. What is there already, what the window would not let the player do, and what would take no part in
/// the battle is left out.
[[nodiscard]] std::vector<SingleChange> PossibleChanges(const Setup& setup, const Units& units);

/// What a change does.
struct TriedChange {
    SingleChange Change;
    Prospect Outcome;
    /// Of the attacker's chance of winning, -1 to 1.
    double Gain = 0.0;
};

/// What each possible change does.
class ChangesStudy final : public Study {
public:
    ChangesStudy(const Setup& setup, const Units& units);

    /// Once the study is done: by gain, then by own turns lost. Of changes that are alike and do the same the
    /// first one alone is there, and none whose battle has no odds.
    [[nodiscard]] const std::vector<TriedChange>& Changes() const { return tried_; }
    /// Counts the changes tried.
    [[nodiscard]] Progress HowFar() const override;

private:
    bool DoNext() override;
    void Sort();

    std::vector<SingleChange> possible_;
    std::size_t next_ = 0;
    std::vector<TriedChange> tried_;
};

} // namespace vorhaven
