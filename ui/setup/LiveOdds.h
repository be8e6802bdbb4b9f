// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/Battle.h"
#include "ui/setup/OddsPanel.h"

#include <cstdint>
#include <optional>

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

private:
    OddsPanel* panel_;
    /// The set-up whose odds are shown.
    std::optional<Setup> shown_;
};

} // namespace vorhaven
