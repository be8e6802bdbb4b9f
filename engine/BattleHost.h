// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CAttackArmies.h"
#include "model/CStackAtt.h"
#include "model/Catalogue.h"

#include <string>

namespace vorhaven::MBattleCalc {

/// What the engine asks of the window that starts a run.
class BattleHost {
public:
    BattleHost() = default;
    virtual ~BattleHost() = default;
    BattleHost(const BattleHost&) = delete;
    BattleHost& operator=(const BattleHost&) = delete;

    /// The armies of both sides. Attacking records carry the LineKey of their line from 0.
    [[nodiscard]] virtual const CAttackArmies& AttackArmies() const = 0;
    [[nodiscard]] virtual const CAttackArmies& DefendArmies() const = 0;

    /// The catalogue's tables.
    [[nodiscard]] virtual const Table& Armies() const = 0;
    [[nodiscard]] virtual const Table& Heroes() const = 0;

    /// Turns the hourglass on and off.
    virtual void ShowBusy(bool busy) = 0;
    virtual void ShowProgressBar() = 0;
    /// The part of the run that is done, 0 to 100.
    virtual void ShowProgress(Long percent) = 0;
    virtual void ShowProgressText(const std::string& text) = 0;
    /// Lets the user interface process what is pending; a request to abort arrives here.
    virtual void ProcessEvents() = 0;
    /// Called between two battles, every few dozen of them, so that a long run stays responsive between two
    /// steps of its progress. A request to abort may arrive here as well; nothing is done by default.
    virtual void BetweenBattles() {}

    /// The attacker's win percentage, and the average of a results column (2 to 5).
    virtual void ShowWinPercent(const std::string& text) = 0;
    virtual void ShowAverage(Long column, const std::string& text) = 0;

    /// Shows the evaluated stacks of the first battle; returns when the user has closed the window.
    virtual void ShowStats(CStackAtt& attackStack, CStackAtt& defendStack) = 0;
};

} // namespace vorhaven::MBattleCalc
