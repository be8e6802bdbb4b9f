// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/ListBox.h"
#include "ui/setup/Battle.h"
#include "ui/setup/OddsPanel.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vorhaven {

/// Keeps the main window's frame of exact odds in step with the set-up.
class LiveOdds {
public:
    /// The steps that odds may take while the player types: some 50 milliseconds at most.
    static constexpr std::int64_t StepsWhileTyping = 1'000'000;

    /// `panel` must outlive the odds.
    explicit LiveOdds(OddsPanel& panel) : panel_(&panel) {}

    /// Shows the odds of a set-up, or why it has none. Odds that are shown already are not computed again.
    void Show(const Setup& setup, const Units& units);
    /// From now on the frame compares with the odds that are shown now.
    void BeginStep() { before_ = odds_; }

    /// The odds of the set-up that was shown last; nothing where it has none.
    [[nodiscard]] const std::optional<Odds::BattleOdds>& Odds() const { return odds_; }
    /// The chances of surviving of a side's lines, as its list shows them; none without odds. A line without
    /// an army, or behind the stacks that take part, has no figure.
    [[nodiscard]] const std::vector<ListBox::Figure>& SurvivalOf(Side side) const { return survival_[side]; }

private:
    void Compute(const Setup& setup, const Units& units, const std::string& heroes);

    OddsPanel* panel_;
    /// The set-up whose odds are shown.
    std::optional<Setup> shown_;
    std::optional<Odds::BattleOdds> odds_;
    /// What the odds were before the last change of the set-up.
    std::optional<Odds::BattleOdds> before_;
    PerSide<std::vector<ListBox::Figure>> survival_;
};

} // namespace vorhaven
