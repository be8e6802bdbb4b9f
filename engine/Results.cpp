// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "engine/Procedures.h"
#include "engine/State.h"

#include <algorithm>

namespace vorhaven::MBattleCalc {
namespace {

Long SumOfColumn(Long numBattles, Long column) {
    Long sum = 0;
    for (Long battle = 1; battle <= numBattles; ++battle)
        sum += BattleResults(battle, column);
    return sum;
}

double Quotient(Long dividend, Long divisor) {
    if (divisor == 0)
        throw RunTimeError{ErrorNumber::DivisionByZero};
    return static_cast<double>(dividend.Value()) / divisor.Value();
}

void ShowWinPercent(Long numBattles) {
    const Trap trap{"MBattleCalc::ShowWinPercent"};
    const Long wins = SumOfColumn(numBattles, ResultColumn::Winner);
    Host->ShowWinPercent(ToSignificantText(Quotient(wins, numBattles) * 100.0, 15) + "%");
}

void ShowAverages(Long numBattles, Long column) {
    const Trap trap{"MBattleCalc::ShowAverages"};
    const Long total = SumOfColumn(numBattles, column);
    const auto average = static_cast<float>(Quotient(total, numBattles));
    Host->ShowAverage(column, ToSignificantText(average, 7));
}

} // namespace

void RemoveAttacker(CStackAtt& stack, Long index, Long turns, Long battle) {
    const Trap trap{"MBattleCalc::RemoveAttacker"};
    ++BattleResults(battle, ResultColumn::AttackersSlain);
    BattleResults(battle, ResultColumn::AttackTurnsLost) += turns;
    stack.Remove(index);
}

void RemoveDefender(CStackAtt& stack, Long index, Long turns, Long battle) {
    const Trap trap{"MBattleCalc::RemoveDefender"};
    ++BattleResults(battle, ResultColumn::DefendersSlain);
    BattleResults(battle, ResultColumn::DefendTurnsLost) += turns;
    stack.Remove(index);
}

void ShowProgress(Long numBattles, Long battle) {
    const Trap trap{"MBattleCalc::ShowProgress"};
    const std::int32_t step = std::max(1, numBattles.Value() / 100);
    if (battle.Value() % step != 0)
        return;
    const Long percent = RoundToLong(Quotient(battle, numBattles) * 100.0);
    Host->ShowProgress(percent);
    Host->ProcessEvents();
    Host->ShowProgressText(ToText(percent) + "% Completed");
    Host->ProcessEvents();
}

void DisplayResults(Long numBattles) {
    const Trap trap{"MBattleCalc::DisplayResults"};
    ShowWinPercent(numBattles);
    for (const Long column : {ResultColumn::AttackersSlain, ResultColumn::AttackTurnsLost,
                              ResultColumn::DefendersSlain, ResultColumn::DefendTurnsLost})
        ShowAverages(numBattles, column);
}

} // namespace vorhaven::MBattleCalc
