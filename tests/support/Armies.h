// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CAttackArmies.h"
#include "model/CStackAtt.h"
#include "model/Terrain.h"
#include "tests/support/Text.h"

#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

namespace vorhaven::test {

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

/// The conditions of a line by name.
inline const std::map<std::string, bool ArmyEntry::*> Conditions{
    {"blessed", &ArmyEntry::IsBlessed},
    {"poisoned", &ArmyEntry::IsPoisoned},
    {"diseased", &ArmyEntry::IsDiseased},
    {"blacksmith", &ArmyEntry::IsBlacksmith},
    {"weaponsmaster", &ArmyEntry::IsWeaponsmaster},
    {"flying", &ArmyEntry::IsFlying}};

inline bool IsTerrain(const std::string& word) {
    return Terrains::IndexOf(word) < SizeOf(Terrains::All);
}

/// Gives an army what a text says of it as it fights: "Name a Strength 5 Hits 2 Acid 3 Blessed". Words that
/// EntryOf reads are passed over. Throws when a word is unknown or a number is none.
inline CArmy& Give(CArmy& army, const std::string& text) {
    std::istringstream words(text);
    for (std::string name; words >> name;) {
        if (const auto mark = Marks.find(name); mark != Marks.end())
            army.*mark->second = true;
        if (Marks.contains(name) || Conditions.contains(name))
            continue;
        std::string given;
        words >> given;
        const Long value = name == "Name" ? Long{} : ToLong(given);
        if (name == "Name")
            army.Name = given;
        else if (name == "Strength")
            army.TotalStrength = value;
        else if (name == "Hits")
            army.Hits = value;
        else if (const auto number = Numbers.find(name); number != Numbers.end())
            army.*number->second = value;
        else if (name != "Base" && !IsTerrain(name))
            throw std::invalid_argument("no army has " + name + ", as in \"" + text + '"');
    }
    return army;
}

/// A stack of armies, which stand between semicolons, of strength 5 and 3 hits where a text says nothing.
inline CStackAtt StackOf(const std::string& armies) {
    CStackAtt stack;
    for (const std::string& army : Split(armies, ';'))
        Give(stack.Add(CArmy{}, ""), "Strength 5 Hits 3 " + army);
    return stack;
}

/// Every army of a stack as strength/hits, its ailments and blessing by letter, a star for each medal, and a
/// mark of exclamation when its special attack is used up.
inline std::string Describe(const CStackAtt& stack) {
    std::string text;
    for (const CArmy& army : stack)
        text += (text.empty() ? "" : " ") + ToText(army.TotalStrength) + '/' + ToText(army.Hits) +
                (army.Poisoned ? "P" : "") + (army.Diseased ? "D" : "") + (army.Blessed ? "B" : "") +
                std::string(army.HasMedal.Index(), '*') + (army.UsedSpecial ? "!" : "");
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

/// What a list makes a plain army of, as a text says it: "Base 6 hills 2 blessed" is its strength, its bonus
/// and its conditions. All else is left to Give.
inline ArmyEntry EntryOf(const std::string& text) {
    ArmyEntry entry = Plain(10);
    std::istringstream words(text);
    for (std::string word, number; words >> word;)
        if (const auto condition = Conditions.find(word); condition != Conditions.end())
            entry.*condition->second = true;
        else if (word == "Base" && words >> number)
            entry.StartStrength = ToLong(number);
        else if (IsTerrain(word) && words >> number) {
            entry.CBName = word;
            entry.CBValue = ToLong(number);
        }
    return entry;
}

/// The window of an army list: six army types and a defender in the field.
struct ListHost final : ArmyListHost {
    static constexpr std::int32_t ArmyTypes = 6;

    [[nodiscard]] Long NumArmies() const override { return ArmyTypes; }
    [[nodiscard]] const std::string& Terrain() const override { return CurrentTerrain; }
    void EditHero(CArmy& hero) override { OnHero(hero); }

    std::string CurrentTerrain = "field";
    std::function<void(CArmy&)> OnHero = [](CArmy&) {};
};

} // namespace vorhaven::test
