// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Side.h"
#include "ui/controls/Chart.h"
#include "ui/controls/Form.h"
#include "ui/results/LossSummary.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace vorhaven {

/// The detailed results: how often exactly 0, 1, ... 32 armies of each side were destroyed in the last run,
/// and the production turns that such a loss costs.
class frmMoreResults final : public Form {
public:
    /// `desktop` must outlive the window. `numBattles`: the main window's number of battles.
    frmMoreResults(Desktop& desktop, std::function<Long()> numBattles);

    /// The battle of the last run, beside its results.
    struct Background {
        /// Armies in the lists.
        PerSide<Long> ArmyCounts;
        /// The exact odds of each number of losses, where they could be computed; why they could not.
        std::optional<PerSide<LossOdds>> ExactLosses{};
        std::string WhyNotExact{};
    };
    /// Set before the window is loaded. Without it the charts show the results alone.
    std::optional<Background> RunBackground;

    void Form_Load() override;

    /// A run has ended: what the window shows, if it is open, is no longer the last one.
    void RunFinished();

    Button sscDone{"&Done"};
    /// Says so when there are newer results than those in the charts.
    Label lblNewerRun;
    /// Says so, beside charts of the last run, when they do not share their scales.
    Label lblScales;
    Chart mscAttMore{LossCounts,
                     "Distribution of Number of Attacking Armies Destroyed",
                     "Number of Armies Destroyed",
                     {"% Chance", "Production Turns Lost"}};
    Chart mscDefMore{LossCounts,
                     "Distribution of Number of Defending Armies Destroyed",
                     "Number of Armies Destroyed",
                     {"% Chance", "Production Turns Lost"}};

private:
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
    static void FillChart(Chart& chart, const LossTable& losses);
    /// Adds to the charts what they say beside the columns.
    void Annotate();
    /// `highest`: as below, by side.
    void ShowWhichScalesDiffer(const PerSide<std::array<double, 2>>& highest);
    [[nodiscard]] PerSide<LossSummary> Summaries() const;
    /// `highest`: of each series, the highest value that its axis has room for.
    void Annotate(Side side, const LossSummary& summary, std::array<double, 2> highest);
    [[nodiscard]] Chart& ChartOf(Side side) { return side == Side::Attacker ? mscAttMore : mscDefMore; }
    void sscDone_Click();

    Desktop* desktop_;
    std::function<Long()> numBattles_;
    PerSide<LossTable> losses_;
};

} // namespace vorhaven
