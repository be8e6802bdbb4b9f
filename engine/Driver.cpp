// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Procedures.h"
#include "engine/State.h"

namespace vorhaven::MBattleCalc {
namespace {

/// So many battles take the engine a few milliseconds at most, and asking the host costs nothing beside them.
constexpr std::int32_t BattlesBetween = 64;

/// The engine's host for as long as a run lasts, however the run ends.
class HostOfRun {
public:
    explicit HostOfRun(BattleHost& host) { Host = &host; }
    ~HostOfRun() { Host = nullptr; }
    HostOfRun(const HostOfRun&) = delete;
    HostOfRun& operator=(const HostOfRun&) = delete;
};

} // namespace

void Add(BattleHost& host, Long numBattles, Long dice, bool viewStats, Long cityLevel) {
    const Trap trap{"MBattleCalc::Add"};
    const HostOfRun hostOfRun{host};
    Host->ShowBusy(true);
    CombatDice = dice;
    BattleResults.Redimension(numBattles);
    BuildBattleStacks();
    CacheFlyers();
    NextAttackStack = 0;
    Host->ShowProgressBar();
    for (Long battle = 1; battle <= numBattles; ++battle) {
        if (battle.Value() % BattlesBetween == 0)
            Host->BetweenBattles();
        if (AbortRequested) {
            AbortRequested = false;
            Host->ShowBusy(false);
            return;
        }
        SendToAttackFront();
        SendToDefendFront();
        EvalStacksSelfEffect(cityLevel);
        EvalStacksMutualEffect();
        CacheStartHits(DefendFront);
        if (battle == 1 && viewStats)
            Host->ShowStats(AttackFront, DefendFront);
        const Victor victor = Fight(AttackFront, DefendFront, battle);
        BattleResults(battle, ResultColumn::Winner) = static_cast<std::int32_t>(victor);
        NextAttackStack = 0;
        ShowProgress(numBattles, battle);
    }
    Host->ShowBusy(false);
    DisplayResults(numBattles);
}

} // namespace vorhaven::MBattleCalc
