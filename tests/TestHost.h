// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Conversion.h"
#include "engine/MBattleCalc.h"

#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace vorhaven::test {

/// The pieces of a text between separators; without a separator the text itself.
inline std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> pieces{""};
    for (const char c : text)
        if (c == separator)
            pieces.emplace_back();
        else
            pieces.back() += c;
    return pieces;
}

/// The cases of a table written as text: "given=expected|given=expected".
inline std::vector<std::pair<std::string, std::string>> Cases(const std::string& table) {
    std::vector<std::pair<std::string, std::string>> cases;
    for (const std::string& row : Split(table, '|'))
        cases.emplace_back(row.substr(0, row.find('=')), row.substr(row.find('=') + 1));
    return cases;
}

/// Counts as text, with blanks between them.
inline std::string Joined(std::initializer_list<Long> counts) {
    std::string text;
    for (const Long count : counts)
        text.append(text.empty() ? "" : " ").append(ToText(count));
    return text;
}

/// The number of the run-time error that an action ends in, 0 for none.
int ErrorOf(const auto& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

/// The plain numbers and the marks of a record by name.
inline const std::map<std::string, Long CArmy::*> Numbers{
    {"Chaos", &CArmy::Chaos},       {"Morale", &CArmy::Morale},       {"Fear", &CArmy::Fear},
    {"Siege", &CArmy::Siege},       {"Fortify", &CArmy::Fortify},     {"Poison", &CArmy::Poison},
    {"Disease", &CArmy::Disease},   {"Assass", &CArmy::Assass},       {"Missle", &CArmy::Missle},
    {"Trample", &CArmy::Trample},   {"Curse", &CArmy::Curse},         {"Banding", &CArmy::Banding},
    {"Acid", &CArmy::Acid},         {"Lightning", &CArmy::Lightning}, {"Warding", &CArmy::Warding},
    {"Leader", &CArmy::Leadership}, {"Medals", &CArmy::HasMedal},     {"Unit", &CArmy::UnitID},
    {"Turns", &CArmy::Turns},       {"Size", &CArmy::PowerValue}};
inline const std::map<std::string, bool CArmy::*> Marks{{"Blessed", &CArmy::Blessed},
                                                        {"Poisoned", &CArmy::Poisoned},
                                                        {"Diseased", &CArmy::Diseased},
                                                        {"IsFlying", &CArmy::IsFlying}};

/// Gives an army what a text tells: "Strength 5 Hits 2 Acid 3 Blessed".
inline CArmy& Give(CArmy& army, const std::string& text) {
    std::istringstream words(text);
    for (std::string name; words >> name;) {
        if (Marks.contains(name)) {
            army.*Marks.at(name) = true;
            continue;
        }
        std::int32_t value = 0;
        words >> value;
        if (name == "Strength")
            army.TotalStrength = value;
        else if (name == "Hits")
            army.Hits = value;
        else
            army.*Numbers.at(name) = value;
    }
    return army;
}

/// A plain army of a strength and a number of hits.
inline ArmyEntry Plain(Long strength, Long hits = 1, Long turns = 1) {
    ArmyEntry entry;
    entry.Name = "Plain";
    entry.StartStrength = strength;
    entry.Hits = hits;
    entry.Turns = turns;
    return entry;
}

/// A window that the engine can fight for: two lists over a catalogue of six army types and two hero types,
/// of which type 1 flies (army type 2's movement only looks like it); it keeps what the engine shows.
class TestHost final : public MBattleCalc::BattleHost, public ArmyListHost {
public:
    static constexpr std::int32_t armyTypes = 6;
    static constexpr std::int32_t flyingType = 1;

    /// Adds an army as the window would: keyed by its line, counted from 0.
    CArmy& Attack(const ArmyEntry& entry) { return AttackOnLine(attack_.Count(), entry); }
    CArmy& AttackOnLine(Long line, const ArmyEntry& entry) { return *attack_.Add(entry, LineKey(line)); }
    CArmy& Defend(const ArmyEntry& entry) { return *defend_.Add(entry, LineKey(defend_.Count())); }
    /// Adds armies told by a text as Give reads it: armies between semicolons, of strength 10, 1 hit and 1
    /// turn where it says nothing; a slash begins the next attacking stack.
    void Bring(const std::string& attackers, const std::string& defenders) {
        Long firstLine = 0;
        for (const std::string& stack : Split(attackers, '/')) {
            Long line = firstLine;
            for (const std::string& army : Split(stack, ';'))
                Give(AttackOnLine(std::exchange(line, line + 1), Plain(10)), army);
            firstLine += 8;
        }
        for (const std::string& army : Split(defenders, ';'))
            Give(Defend(Plain(10)), army);
    }
    void Clear() { attack_ = defend_ = CAttackArmies{*this}; }

    [[nodiscard]] const CAttackArmies& AttackArmies() const override { return attack_; }
    [[nodiscard]] const CAttackArmies& DefendArmies() const override { return defend_; }
    [[nodiscard]] const Table& Armies() const override { return armies_; }
    [[nodiscard]] const Table& Heroes() const override { return heroes_; }
    void ShowBusy(bool busy) override { Busy = busy; }
    void ShowProgressBar() override {}
    void ShowProgress(Long percent) override { Progress.push_back(percent); }
    void ShowProgressText(const std::string& text) override { ProgressText = text; }
    void ProcessEvents() override { OnEvents(); }
    void ShowWinPercent(const std::string& text) override { Quick = text; }
    void ShowAverage(Long column, const std::string& text) override {
        Quick += " " + ToText(column) + ":" + text;
    }
    void ShowStats(CStackAtt& attackers, CStackAtt& defenders) override { OnStats(attackers, defenders); }
    [[nodiscard]] Long NumArmies() const override { return armyTypes; }
    [[nodiscard]] const std::string& Terrain() const override { return terrain_; }
    void EditHero(CArmy& hero) override { OnHero(hero); }

    bool Busy = false;
    std::vector<Long> Progress;
    std::string ProgressText;
    /// The quick results: the percentage, then the averages with their columns.
    std::string Quick;
    std::function<void()> OnEvents = [] {};
    std::function<void(CStackAtt&, CStackAtt&)> OnStats = [](CStackAtt&, CStackAtt&) {};
    std::function<void(CArmy&)> OnHero = [](CArmy&) {};

private:
    static Table MovementTable(std::size_t column, const std::vector<std::string>& movements) {
        std::vector<std::vector<Cell>> units;
        for (const std::string& movement : movements)
            units.emplace_back(24).at(column) = movement;
        return Table{units};
    }

    CAttackArmies attack_{*this}, defend_{*this};
    Table armies_ = MovementTable(ArmyColumn::Movement, {"walk", "Fly", " fly", "walk", "walk", "walk"});
    Table heroes_ = MovementTable(HeroColumn::Movement, {"walk", "Fly"});
    std::string terrain_ = "field";
};

} // namespace vorhaven::test
