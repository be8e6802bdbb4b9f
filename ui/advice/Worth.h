// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/Study.h"

#include <vector>

namespace vorhaven {

/// What a line does in the battle.
struct LineWorth {
    Chance Survives;
    /// What it slays on average.
    Odds::Losses Slays;
    /// How the battle goes without the line, deleted as the player would; nothing as long as it is not known,
    /// and where that battle has no odds.
    std::optional<Prospect> Without;
};

/// What each line of both sides is worth.
class WorthStudy final : public Study {
public:
    WorthStudy(const Setup& setup, const Units& units);

    /// By line; nothing for a line that takes no part, and for all before the odds as they are are known.
    [[nodiscard]] const PerSide<std::vector<std::optional<LineWorth>>>& Lines() const { return lines_; }
    /// Counts the lines that were left out in turn.
    [[nodiscard]] Progress HowFar() const override;

private:
    struct Place {
        Side OfSide;
        std::size_t Line;
    };

    bool DoNext() override;
    void NoteWorths();

    PerSide<std::vector<std::size_t>> order_;
    PerSide<std::vector<std::optional<LineWorth>>> lines_;
    std::vector<Place> places_;
    std::size_t next_ = 0;
};

} // namespace vorhaven
