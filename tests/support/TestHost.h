// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/MBattleCalc.h"
#include "tests/support/Armies.h"
#include "tests/support/Text.h"

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vorhaven::test {

/// What one battle comes to: the columns of its results.
using Row = std::array<std::int32_t, MBattleCalc::ResultColumn::Last>;

inline Row RowOf(Long battle) {
    Row row{};
    for (std::size_t column = 0; column < row.size(); ++column)
        row[column] = MBattleCalc::BattleResults(battle, static_cast<std::int32_t>(column) + 1).Value();
    return row;
}

/// A window that the engine can fight for: two lists over a catalogue of six army types and two hero types,
/// of which types 1 and 7 fly (army type 2's movement only looks like it). It keeps what the engine shows.
class TestHost final : public MBattleCalc::BattleHost {
public:
    static constexpr std::int32_t flyingType = 1;

    /// Adds armies described by a text as Give reads it: armies between semicolons, of strength 10, 1 hit and
    /// 1 turn where it says nothing; a slash begins the next attacking stack.
    void Bring(const std::string& attackers, const std::string& defenders) {
        Long firstLine = 0;
        for (const std::string& stack : Split(attackers, '/')) {
            Long line = firstLine;
            for (const std::string& army : Split(stack, ';')) {
                Give(BringAttacker(line), army);
                ++line;
            }
            firstLine += LinesPerStack;
        }
        for (const std::string& army : Split(defenders, ';'))
            Give(BringDefender(), army);
    }
    /// Adds an attacker on a line from 0, and a defender.
    CArmy& BringAttacker(Long line) { return *attack_.Add(Plain(10), LineKey(line)); }
    CArmy& BringDefender() { return *defend_.Add(Plain(10), LineKey(defend_.Count())); }
    void Clear() { attack_ = defend_ = CAttackArmies{owner_}; }

    [[nodiscard]] const CAttackArmies& AttackArmies() const override { return OnRead(), attack_; }
    [[nodiscard]] const CAttackArmies& DefendArmies() const override { return defend_; }
    [[nodiscard]] const Table& Armies() const override { return armies_; }
    [[nodiscard]] const Table& Heroes() const override { return heroes_; }
    void ShowBusy(bool busy) override { Show(busy ? "hourglass" : "pointer"); }
    void ShowProgressBar() override { Show("bar"); }
    void ShowProgress(Long percent) override { Show(ToText(percent)); }
    void ShowProgressText(const std::string& text) override { Show(text); }
    void ProcessEvents() override { Show("events"), OnEvents(); }
    void ShowWinPercent(const std::string& text) override { Show(text); }
    void ShowAverage(Long column, const std::string& text) override { Show(ToText(column) + ":" + text); }
    void ShowStats(CStackAtt& a, CStackAtt& d) override { Show("stats"), OnStats(a, d); }

    /// What the engine showed and asked for, in order, with commas between.
    std::string Shown;
    std::function<void()> OnEvents = [] {};
    /// Whenever the attackers' list is asked for.
    std::function<void()> OnRead = [] {};
    std::function<void(CStackAtt&, CStackAtt&)> OnStats = [](CStackAtt&, CStackAtt&) {};

private:
    void Show(const std::string& what) { Shown.append(Shown.empty() ? "" : ", ").append(what); }
    static Table MovementTable(std::size_t column, const std::vector<std::string>& movements) {
        std::vector<std::vector<Cell>> units;
        for (const std::string& movement : movements)
            units.emplace_back(24).at(column) = movement;
        return Table{units};
    }

    ListHost owner_;
    CAttackArmies attack_{owner_}, defend_{owner_};
    Table armies_ = MovementTable(ArmyColumn::Movement, {"walk", "Fly", " fly", "walk", "walk", "walk"});
    Table heroes_ = MovementTable(HeroColumn::Movement, {"walk", "Fly"});
};

} // namespace vorhaven::test
