// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CAttackArmies.h"
#include "ui/controls/Chart.h"
#include "ui/controls/Form.h"

#include <array>
#include <functional>

namespace vorhaven {

/// The detailed results: how often exactly 0, 1, ... 32 armies of each side were destroyed in the last run,
/// and the production turns that such a loss costs.
class frmMoreResults final : public Form {
public:
    /// `desktop` must outlive the window. `numBattles`: the main window's number of battles.
    frmMoreResults(Desktop& desktop, std::function<Long()> numBattles);

    void Form_Load() override;

    Button sscDone{"&Done"};
    Chart mscAttMore{LossCounts,
                     "Distribution of Number of Attacking Armies Destroyed",
                     "Number of Armies Destroyed",
                     {"% Chance", "Production Turns Lost"}};
    Chart mscDefMore{LossCounts,
                     "Distribution of Number of Defending Armies Destroyed",
                     "Number of Armies Destroyed",
                     {"% Chance", "Production Turns Lost"}};

private:
    /// From no army to all lines of a list.
    static constexpr std::int32_t LossCounts = MaxLines + 1;

    /// What the run says about one number of losses.
    struct LossRow {
        Long Battles;
        Long Percent;
        /// Production turns lost in the last such battle. Armies fall in a fixed order, so all cost the same.
        Long Turns;
    };
    using LossTable = std::array<LossRow, LossCounts>;

    void InitializeResultArrays();
    void ConvertResults();
    void CalculateResultPercent();
    void FillChart();
    void FillChart(Chart& chart, const LossTable& losses) const;
    void sscDone_Click();

    Desktop* desktop_;
    std::function<Long()> numBattles_;
    LossTable attackLosses_;
    LossTable defendLosses_;
};

} // namespace vorhaven
