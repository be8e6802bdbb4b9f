#pragma once

#include "engine/MBattleCalc.h"
#include "model/Conversion.h"

#include <functional>
#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace vorhaven {

/// Lets a failed comparison show its counts.
inline void PrintTo(Long value, std::ostream* stream) {
    *stream << value.Value();
}

} // namespace vorhaven

namespace vorhaven::test {

/// A window that the engine can fight for: two lists over a catalogue of six army types and two hero types,
/// of which type 1 flies (army type 2's movement only looks like it); it keeps what the engine shows.
class TestHost final : public MBattleCalc::BattleHost, public ArmyListHost {
public:
    static constexpr std::int32_t armyTypes = 6;
    static constexpr std::int32_t heroTypes = 2;
    static constexpr std::int32_t flyingType = 1;

    TestHost()
        : armies_(MakeTable(armyTypes, 24, ArmyColumn::Movement)),
          heroes_(MakeTable(heroTypes, 18, HeroColumn::Movement)) {}

    /// Adds an army as the window would: keyed by its line, counted from 0.
    CArmy& Attack(const ArmyEntry& entry) { return *attack_.Add(entry, "SN" + ToText(attack_.Count())); }
    CArmy& Defend(const ArmyEntry& entry) { return *defend_.Add(entry, "SN" + ToText(defend_.Count())); }
    /// Adds armies told by a text as Give reads it: armies between semicolons, of strength 10, 1 hit and 1
    /// turn where it says nothing; a slash begins the next attacking stack.
    void Bring(const std::string& attackers, const std::string& defenders);
    /// Adds an attacker on a line of its own choice.
    CArmy& AttackOnLine(Long line, const ArmyEntry& entry) {
        return *attack_.Add(entry, "SN" + ToText(line));
    }
    void Clear() {
        attack_ = CAttackArmies{*this};
        defend_ = CAttackArmies{*this};
    }

    [[nodiscard]] const CAttackArmies& AttackArmies() const override { return attack_; }
    [[nodiscard]] const CAttackArmies& DefendArmies() const override { return defend_; }
    [[nodiscard]] const Table& Armies() const override { return armies_; }
    [[nodiscard]] const Table& Heroes() const override { return heroes_; }
    void ShowBusy(bool busy) override { Busy = busy; }
    void ShowProgressBar() override {}
    void ShowProgress(Long percent) override { Progress.push_back(percent); }
    void ShowProgressText(const std::string& text) override { ProgressText = text; }
    void ProcessEvents() override {
        if (OnEvents)
            OnEvents();
    }
    void ShowWinPercent(const std::string& text) override { WinPercent = text; }
    void ShowAverage(Long column, const std::string& text) override { Averages[column] = text; }
    void ShowStats(CStackAtt& attackStack, CStackAtt& defendStack) override {
        AttackFront = &attackStack;
        DefendFront = &defendStack;
        if (OnStats)
            OnStats(attackStack, defendStack);
    }

    [[nodiscard]] Long NumArmies() const override { return armyTypes; }
    [[nodiscard]] const std::string& Terrain() const override { return GroundTerrain; }
    void EditHero(CArmy& hero) override {
        if (OnHero)
            OnHero(hero);
    }

    std::string GroundTerrain = "field";
    bool Busy = false;
    std::vector<Long> Progress;
    std::string ProgressText;
    std::string WinPercent;
    std::map<Long, std::string> Averages;
    /// The fronts of the last run that showed its statistics.
    CStackAtt* AttackFront = nullptr;
    CStackAtt* DefendFront = nullptr;
    std::function<void()> OnEvents;
    std::function<void(CStackAtt&, CStackAtt&)> OnStats;
    std::function<void(CArmy&)> OnHero;

private:
    static Table MakeTable(std::int32_t rows, std::size_t columns, std::int32_t movement) {
        std::vector<std::vector<Cell>> cells(static_cast<std::size_t>(rows), std::vector<Cell>(columns));
        for (auto& row : cells)
            row[static_cast<std::size_t>(movement)] = std::string("walk");
        cells[flyingType][static_cast<std::size_t>(movement)] = std::string("Fly");
        if (rows == armyTypes)
            cells[flyingType + 1][static_cast<std::size_t>(movement)] = std::string(" fly");
        return Table{std::move(cells)};
    }

    CAttackArmies attack_{*this};
    CAttackArmies defend_{*this};
    Table armies_;
    Table heroes_;
};

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
inline const std::map<std::string, Long CArmy::*> Numbers{{"Chaos", &CArmy::Chaos},
                                                          {"Morale", &CArmy::Morale},
                                                          {"Fear", &CArmy::Fear},
                                                          {"Siege", &CArmy::Siege},
                                                          {"Fortify", &CArmy::Fortify},
                                                          {"Poison", &CArmy::Poison},
                                                          {"Disease", &CArmy::Disease},
                                                          {"Assass", &CArmy::Assass},
                                                          {"Missle", &CArmy::Missle},
                                                          {"Trample", &CArmy::Trample},
                                                          {"Curse", &CArmy::Curse},
                                                          {"Banding", &CArmy::Banding},
                                                          {"Acid", &CArmy::Acid},
                                                          {"Lightning", &CArmy::Lightning},
                                                          {"Warding", &CArmy::Warding},
                                                          {"Leadership", &CArmy::Leadership},
                                                          {"HasMedal", &CArmy::HasMedal},
                                                          {"UnitID", &CArmy::UnitID},
                                                          {"Turns", &CArmy::Turns},
                                                          {"CBValue", &CArmy::CBValue},
                                                          {"Power", &CArmy::PowerType},
                                                          {"PowerValue", &CArmy::PowerValue},
                                                          {"Shots", &CArmy::MissleShotsLeft}};
inline const std::map<std::string, bool CArmy::*> Marks{
    {"Blessed", &CArmy::Blessed},  {"Poisoned", &CArmy::Poisoned},     {"Diseased", &CArmy::Diseased},
    {"IsHero", &CArmy::IsHero},    {"IsFlying", &CArmy::IsFlying},     {"IsUndead", &CArmy::IsUndead},
    {"Used", &CArmy::UsedSpecial}, {"Blacksmith", &CArmy::Blacksmith}, {"Master", &CArmy::Weaponsmaster}};

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

/// A plain army of a strength and a number of hits.
inline ArmyEntry Plain(Long strength, Long hits = 1, Long turns = 1) {
    ArmyEntry entry;
    entry.Name = "Plain";
    entry.StartStrength = strength;
    entry.Hits = hits;
    entry.Turns = turns;
    return entry;
}

inline void TestHost::Bring(const std::string& attackers, const std::string& defenders) {
    std::int32_t firstLine = 0;
    for (const std::string& stack : Split(attackers, '/')) {
        std::int32_t line = firstLine;
        for (const std::string& army : Split(stack, ';'))
            Give(AttackOnLine(line++, Plain(10)), army);
        firstLine += 8;
    }
    for (const std::string& army : Split(defenders, ';'))
        Give(Defend(Plain(10)), army);
}

} // namespace vorhaven::test
