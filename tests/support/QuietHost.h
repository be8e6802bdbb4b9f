// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/BattleHost.h"
#include "tests/support/Armies.h"
#include "tests/support/Tables.h"
#include "tests/support/Text.h"

#include <string>
#include <vector>

namespace vorhaven::test {

/// A window that the engine can fight for and that shows nothing: two lists over a catalogue of six army
/// types and two hero types, of which types 1 and 7 fly (army type 2's movement only looks like it).
class QuietHost : public MBattleCalc::BattleHost {
public:
    static constexpr std::int32_t FlyingType = 1;

    /// Adds armies described by a text as EntryOf and Give read it: armies between semicolons, of strength
    /// 10, 1 hit and 1 turn where it says nothing; a slash begins the next attacking stack.
    void Bring(const std::string& attackers, const std::string& defenders) {
        std::int32_t firstLine = 0;
        for (const std::string& stack : Split(attackers, '/')) {
            std::int32_t line = firstLine;
            for (const std::string& army : Split(stack, ';'))
                BringAttacker(line++, army);
            firstLine += LinesPerStack;
        }
        for (const std::string& army : Split(defenders, ';'))
            BringDefender(army);
    }
    /// Adds an attacker on a line from 0, and a defender.
    CArmy& BringAttacker(Long line, const std::string& army = "") { return Bring(attack_, line, army); }
    CArmy& BringDefender(const std::string& army = "") { return Bring(defend_, defend_.Count(), army); }
    [[nodiscard]] const std::string& Terrain() const { return owner_.Terrain(); }
    void Clear() { attack_ = defend_ = CAttackArmies{owner_}; }

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

private:
    static CArmy& Bring(CAttackArmies& list, Long line, const std::string& army) {
        return Give(*list.Add(EntryOf(army), LineKey(line)), army);
    }

    ListHost owner_;
    CAttackArmies attack_{owner_}, defend_{owner_};
    Table armies_ =
        TableOf({ArmyColumn::Movement}, {{"walk"}, {"Fly"}, {" fly"}, {"walk"}, {"walk"}, {"walk"}});
    Table heroes_ = TableOf({HeroColumn::Movement}, {{"walk"}, {"Fly"}});
};

} // namespace vorhaven::test
