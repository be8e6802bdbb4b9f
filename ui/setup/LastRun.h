// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/results/frmMoreResults.h"
#include "ui/setup/Setup.h"
#include "ui/setup/Units.h"

#include <optional>
#include <string>

namespace vorhaven {

/// What the last run was of, the one under way if there is one, and how it ended; and what the results that
/// are shown are of, which are those of an earlier run while it is under way and when it was aborted.
class LastRun {
public:
    /// A run begins with what is set up when Attack is pressed.
    void Begin(const Setup& setup);
    /// The hero of a line fights with these values. `isEntered`: its editor was confirmed with them; closed
    /// in another way, it leaves what is entered as it was.
    void TakeHero(Side side, Long line, const HeroValues& values, bool isEntered);
    /// The run shows its results.
    void ShowResults();
    /// The run has ended; without results it was aborted.
    void End();

    /// The set-up of the run, its heroes having the values with which they fight.
    [[nodiscard]] const Setup& AsFought() const { return last_.AsFought; }
    /// The set-up of the results that are shown; null while there are none.
    [[nodiscard]] const Setup* Shown() const { return shown_ ? &shown_->AsFought : nullptr; }

    /// How the results that are shown relate to what is set up now; empty while they are those of the last
    /// run of it.
    [[nodiscard]] std::string RemarkOnResults(const Setup& now, const Units& units) const;
    /// What the detailed results show beside the run's results. `armyCounts`: the armies in its lists.
    [[nodiscard]] frmMoreResults::Background Background(const PerSide<Long>& armyCounts,
                                                        const Units& units) const;
    /// How the run ended, in a sentence that is given once; empty from then on, and before.
    [[nodiscard]] std::string TakeAnnouncement();

private:
    struct Battle {
        /// The heroes as they fight, and as they are entered.
        Setup AsFought;
        Setup AsEntered;
    };

    Battle last_;
    std::optional<Battle> shown_;
    bool hasShownResults_ = false;
    bool isAborted_ = false;
    bool isToAnnounce_ = false;
};

} // namespace vorhaven
