// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/results/frmMoreResults.h"

#include "base/Chance.h"
#include "base/Conversion.h"
#include "engine/MBattleCalc.h"

#include <algorithm>

namespace vorhaven {
namespace {

using MBattleCalc::BattleResults;
namespace ResultColumn = MBattleCalc::ResultColumn;

/// Where the highest values of the two sides differ by more than this factor, the lower one's columns would
/// be too small to compare at a common scale.
constexpr double CommonScaleLimit = 3.0;

/// Values up to this are shown at the same scale anyway, the smallest of an axis.
constexpr double SmallestScale = 7.5;

constexpr int CopiedMeanDigits = 6;

/// The highest value that each side's axis has to have room for: of both, where they can share a scale.
void ShareScale(double& attack, double& defend) {
    const double higher = std::max(attack, defend);
    if (higher <= std::max(SmallestScale, CommonScaleLimit * std::min(attack, defend)))
        attack = defend = higher;
}

/// The battles that were fought: an aborted run leaves zeros behind them, while a battle that was fought cost
/// someone an army.
Long CountFought(Long numBattles) {
    const auto isFought = [](Long battle) {
        for (Long column = 1; column <= ResultColumn::Last; ++column)
            if (BattleResults(battle, column) != 0)
                return true;
        return false;
    };
    while (numBattles > 0 && !isFought(numBattles))
        --numBattles;
    return numBattles;
}

void Count(LossSummary& summary, Long slain, Long turns, bool hasWon) {
    ++summary.Counts.at(slain.Index());
    if (!hasWon)
        return;
    ++summary.Wins;
    summary.ArmiesLostInWins += slain.Value();
    summary.TurnsLostInWins += turns.Value();
}

} // namespace

frmMoreResults::frmMoreResults(Desktop& desktop, std::function<Long()> numBattles)
    : Form("Detailed Combat Results"), desktop_(&desktop), numBattles_(std::move(numBattles)) {
    sscDone.Click = [this] { sscDone_Click(); };
    for (const Side side : BothSides)
        ChartOf(side).Index = static_cast<int>(side);
}

// Several of the location texts below carry another window's name. They stay so: they are what reports show.

void frmMoreResults::Form_Load() {
    const Trap trap{"frmHero::Form_Load"};
    CentreOn(desktop_->ScreenSize());
    InitializeResultArrays();
    ConvertResults();
    CalculateResultPercent();
    FillChart();
    Annotate();
    lblNewerRun.Caption = "";
}

void frmMoreResults::RunFinished() {
    const Trap trap{"frmMoreResults::RunFinished"};
    lblNewerRun.Caption = "A newer run exists: press More Results to see it";
    lblScales.Caption = "";
}

void frmMoreResults::InitializeResultArrays() {
    const Trap trap{"frmHero::InitializeResultArrays"};
    losses_ = {};
}

void frmMoreResults::ConvertResults() {
    const Trap trap{"frmMoreResults::ConvertResults"};
    const auto count = [](LossTable& losses, Long slain, Long turns) {
        if (slain < 0 || slain >= LossCounts)
            throw RunTimeError{ErrorNumber::SubscriptOutOfRange};
        LossRow& row = losses[slain.Index()];
        ++row.Battles;
        row.Turns = turns;
    };
    const Long numBattles = numBattles_();
    for (Long battle = 1; battle <= numBattles; ++battle) {
        count(losses_.Attacker, BattleResults(battle, ResultColumn::AttackersSlain),
              BattleResults(battle, ResultColumn::AttackTurnsLost));
        count(losses_.Defender, BattleResults(battle, ResultColumn::DefendersSlain),
              BattleResults(battle, ResultColumn::DefendTurnsLost));
    }
}

void frmMoreResults::CalculateResultPercent() {
    const Trap trap{"frmHero::CalculateResultPercent"};
    const Long numBattles = numBattles_();
    if (numBattles == 0)
        throw RunTimeError{ErrorNumber::DivisionByZero};
    for (const Side side : BothSides)
        for (LossRow& row : losses_[side])
            row.Percent = RoundToLong(static_cast<double>(row.Battles.Value()) / numBattles.Value() * 100.0);
}

void frmMoreResults::FillChart() {
    const Trap trap{"frmHero::FillChart"};
    for (const Side side : BothSides)
        FillChart(ChartOf(side), losses_[side]);
}

void frmMoreResults::FillChart(Chart& chart, const LossTable& losses) {
    for (Long armies = 0; armies < LossCounts; ++armies) {
        const LossRow& row = losses[armies.Index()];
        chart.SetRowLabel(armies + 1, ToText(armies));
        chart.SetData(armies + 1, 1, row.Percent);
        chart.SetData(armies + 1, 2, row.Turns);
    }
}

PerSide<LossSummary> frmMoreResults::Summaries() const {
    PerSide<LossSummary> sides;
    const Long numBattles = numBattles_();
    const Long numFought = CountFought(numBattles);
    for (const Side side : BothSides) {
        sides[side].Battles = numBattles;
        sides[side].Fought = numFought;
    }
    for (Long battle = 1; battle <= numFought; ++battle) {
        const bool attackerWon = BattleResults(battle, ResultColumn::Winner) == 1;
        Count(sides.Attacker, BattleResults(battle, ResultColumn::AttackersSlain),
              BattleResults(battle, ResultColumn::AttackTurnsLost), attackerWon);
        Count(sides.Defender, BattleResults(battle, ResultColumn::DefendersSlain),
              BattleResults(battle, ResultColumn::DefendTurnsLost), !attackerWon);
    }
    return sides;
}

void frmMoreResults::Annotate() {
    const Trap trap{"frmMoreResults::Annotate"};
    // Of each series.
    PerSide<std::array<double, 2>> highest{};
    for (const Side side : BothSides) {
        for (const LossRow& row : losses_[side]) {
            highest[side][0] = std::max(highest[side][0], static_cast<double>(row.Percent.Value()));
            highest[side][1] = std::max(highest[side][1], static_cast<double>(row.Turns.Value()));
        }
        if (RunBackground && RunBackground->ExactLosses)
            highest[side][0] = std::max(
                highest[side][0], *std::ranges::max_element((*RunBackground->ExactLosses)[side]) * 100.0);
    }
    for (std::size_t series = 0; series < highest.Attacker.size(); ++series)
        ShareScale(highest.Attacker[series], highest.Defender[series]);
    ShowWhichScalesDiffer(highest);
    const PerSide<LossSummary> summaries = Summaries();
    for (const Side side : BothSides)
        Annotate(side, summaries[side], highest[side]);
}

void frmMoreResults::ShowWhichScalesDiffer(const PerSide<std::array<double, 2>>& highest) {
    const std::string differ = "The charts have different scales";
    const auto& [chances, turns] = mscAttMore.ValueTitles;
    const bool haveChances = highest.Attacker[0] != highest.Defender[0];
    const bool haveTurns = highest.Attacker[1] != highest.Defender[1];
    lblScales.Caption = !haveChances && !haveTurns ? ""
                        : haveChances && haveTurns ? differ
                                                   : differ + " for " + (haveTurns ? turns : chances);
}

void frmMoreResults::Annotate(Side side, const LossSummary& summary, std::array<double, 2> highest) {
    Chart& chart = ChartOf(side);
    const std::optional<LossOdds> exact = RunBackground && RunBackground->ExactLosses
                                              ? std::optional((*RunBackground->ExactLosses)[side])
                                              : std::nullopt;

    ChartRemarks remarks;
    remarks.Reachable = LossCounts;
    if (RunBackground && RunBackground->ArmyCounts[side] < MaxLines) {
        const Long armies = RunBackground->ArmyCounts[side];
        remarks.Reachable = armies + 1;
        remarks.WhyUnreachable =
            "only " + ToText(armies) + (armies == 1 ? " army was" : " armies were") + " in the list";
    }
    remarks.Mean = summary.Mean();
    if (remarks.Mean)
        remarks.MeanText = "mean " + AverageText(*remarks.Mean);
    remarks.Sentence = summary.Sentence(side);
    if (RunBackground && !exact)
        remarks.Sentence += ". There are no exact odds: " + RunBackground->WhyNotExact;
    remarks.Highest = highest;
    remarks.Totals = {{"Number of Battles", ToText(summary.Battles)}};
    if (summary.Fought < summary.Battles)
        remarks.Totals.emplace_back("Battles Fought", ToText(summary.Fought));
    if (remarks.Mean)
        remarks.Totals.emplace_back("Mean " + chart.CategoryTitle,
                                    ToSignificantText(*remarks.Mean, CopiedMeanDigits));

    for (std::int32_t armies = 0; armies < LossCounts; ++armies) {
        const LossRow& row = losses_[side][static_cast<std::size_t>(armies)];
        const bool hasOccurred = row.Battles != 0;
        const Chance chance{static_cast<double>(row.Battles.Value()),
                            static_cast<double>((summary.Battles - row.Battles).Value())};
        chart.SetFigure(armies + 1, hasOccurred ? PercentFigure(chance, 0) : "");
        chart.SetExact(armies + 1, exact ? std::optional((*exact)[static_cast<std::size_t>(armies)] * 100.0)
                                         : std::nullopt);
        chart.SetCount(armies + 1, summary.Counts[static_cast<std::size_t>(armies)]);
        chart.SetDetails(armies + 1,
                         hasOccurred || armies < remarks.Reachable
                             ? summary.Details(armies, row.Turns, exact)
                             : ToText(armies) + " armies destroyed: " + remarks.WhyUnreachable,
                         !hasOccurred);
    }
    chart.Remarks = remarks;
}

void frmMoreResults::sscDone_Click() {
    const Trap trap{"frmMoreResults::sscDone_Click"};
    Unload();
    desktop_->ProcessEvents();
}

} // namespace vorhaven
