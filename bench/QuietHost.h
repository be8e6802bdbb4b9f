// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/BattleHost.h"

#include <string>

namespace vorhaven::bench {

/// A window that shows nothing, for the bare cost of a run: two lists of plain armies, which all walk.
class QuietHost final : public MBattleCalc::BattleHost, public ArmyListHost {
public:
    /// Adds an army to both sides; the attackers' first stack has room for LinesPerStack of them.
    void AddToBothSides(Long strength, Long hits) {
        ArmyEntry entry;
        entry.Name = "Plain";
        entry.StartStrength = strength;
        entry.Hits = hits;
        entry.Turns = 1;
        attack_.Add(entry, LineKey(attack_.Count()));
        defend_.Add(entry, LineKey(defend_.Count()));
    }

    [[nodiscard]] const CAttackArmies& AttackArmies() const override { return attack_; }
    [[nodiscard]] const CAttackArmies& DefendArmies() const override { return defend_; }
    [[nodiscard]] const Table& Armies() const override { return armies_; }
    [[nodiscard]] const Table& Heroes() const override { return heroes_; }
    void ShowBusy(bool) override {}
    void ShowProgressBar() override {}
    void ShowProgress(Long) override {}
    void ShowProgressText(const std::string&) override {}
    void ProcessEvents() override {}
    void ShowWinPercent(const std::string&) override {}
    void ShowAverage(Long, const std::string&) override {}
    void ShowStats(CStackAtt&, CStackAtt&) override {}
    [[nodiscard]] Long NumArmies() const override { return armies_.RowCount(); }
    [[nodiscard]] const std::string& Terrain() const override { return terrain_; }
    void EditHero(CArmy&) override {}

private:
    std::string terrain_;
    Table armies_{{std::vector<Cell>(24)}};
    Table heroes_;
    CAttackArmies attack_{*this}, defend_{*this};
};

} // namespace vorhaven::bench
