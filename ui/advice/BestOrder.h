// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/Orders.h"
#include "ui/setup/OddsPanel.h"

#include <chrono>
#include <memory>
#include <optional>

namespace vorhaven {

/// Keeps the main window's row of the best order in step with the set-up, in slices of the time that the
/// program has to spare.
class BestOrder {
public:
    /// The steps that the row may take for one set-up: some seconds.
    static constexpr std::int64_t MostSteps = 60'000'000;

    /// `panel` must outlive the row.
    explicit BestOrder(OddsPanel& panel) : panel_(&panel) { ShowNothing(""); }

    /// The row is to be of another set-up, with these odds. `units` must outlive the row.
    void Follow(const Setup& setup, const Units& units, const std::optional<Odds::BattleOdds>& odds);
    /// Goes on for about so many steps. False when nothing is left to do.
    bool GoOn(std::int64_t steps);
    /// What the row was before stays for this long, lest it flickers; then it is empty until it is known.
    std::chrono::milliseconds StaysFor{300};

    /// The set-up with its best order; nothing while there is none to use, or none known.
    [[nodiscard]] std::optional<Setup> ToUse() const;

private:
    void ShowNothing(const std::string& text);
    void ShowBest();

    OddsPanel* panel_;
    std::unique_ptr<BestOrdersStudy> study_;
    Chance asItIs_;
    std::int64_t steps_ = 0;
    std::chrono::steady_clock::time_point begun_;
};

} // namespace vorhaven
