// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/results/frmMoreResults.h"

#include "base/Conversion.h"
#include "engine/MBattleCalc.h"

namespace vorhaven {
namespace {

using MBattleCalc::BattleResults;
namespace ResultColumn = MBattleCalc::ResultColumn;

/// "2 armies destroyed: 333 of 1000 battles, 33 %, 5 production turns lost"
std::string DetailsOf(Long armies, Long battles, Long numBattles, Long percent, Long turns) {
    return ToText(armies) + (armies == 1 ? " army" : " armies") + " destroyed: " + ToText(battles) + " of " +
           ToText(numBattles) + " battles, " + ToText(percent) + " %, " + ToText(turns) +
           (turns == 1 ? " production turn" : " production turns") + " lost";
}

} // namespace

frmMoreResults::frmMoreResults(Desktop& desktop, std::function<Long()> numBattles)
    : Form("Detailed Combat Results"), desktop_(&desktop), numBattles_(std::move(numBattles)) {
    sscDone.Click = [this] { sscDone_Click(); };
}

// Several of the location texts below carry another window's name. They stay so: they are what reports show.

void frmMoreResults::Form_Load() {
    const Trap trap{"frmHero::Form_Load"};
    CentreOn(desktop_->ScreenSize());
    InitializeResultArrays();
    ConvertResults();
    CalculateResultPercent();
    FillChart();
}

void frmMoreResults::InitializeResultArrays() {
    const Trap trap{"frmHero::InitializeResultArrays"};
    attackLosses_ = {};
    defendLosses_ = {};
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
        count(attackLosses_, BattleResults(battle, ResultColumn::AttackersSlain),
              BattleResults(battle, ResultColumn::AttackTurnsLost));
        count(defendLosses_, BattleResults(battle, ResultColumn::DefendersSlain),
              BattleResults(battle, ResultColumn::DefendTurnsLost));
    }
}

void frmMoreResults::CalculateResultPercent() {
    const Trap trap{"frmHero::CalculateResultPercent"};
    const Long numBattles = numBattles_();
    if (numBattles == 0)
        throw RunTimeError{ErrorNumber::DivisionByZero};
    for (LossTable* losses : {&attackLosses_, &defendLosses_})
        for (LossRow& row : *losses)
            row.Percent = RoundToLong(static_cast<double>(row.Battles.Value()) / numBattles.Value() * 100.0);
}

void frmMoreResults::FillChart() {
    const Trap trap{"frmHero::FillChart"};
    FillChart(mscAttMore, attackLosses_);
    FillChart(mscDefMore, defendLosses_);
}

void frmMoreResults::FillChart(Chart& chart, const LossTable& losses) const {
    const Long numBattles = numBattles_();
    for (Long armies = 0; armies < LossCounts; ++armies) {
        const LossRow& row = losses[armies.Index()];
        chart.SetRowLabel(armies + 1, ToText(armies));
        chart.SetData(armies + 1, 1, row.Percent);
        chart.SetData(armies + 1, 2, row.Turns);
        chart.SetDetails(armies + 1, DetailsOf(armies, row.Battles, numBattles, row.Percent, row.Turns),
                         row.Battles == 0);
    }
}

void frmMoreResults::sscDone_Click() {
    const Trap trap{"frmMoreResults::sscDone_Click"};
    Unload();
    desktop_->ProcessEvents();
}

} // namespace vorhaven
