// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/Battle.h"

#include <algorithm>
#include <limits>

namespace vorhaven {

bool HasArmies(const Setup& setup, const Units& units) {
    const auto isArmy = [&units](const SetupLine& line) { return !units.IsNone(line.Unit); };
    const auto& [attackers, defenders] = setup.Sides;
    const auto firstStack = std::min<std::ptrdiff_t>(std::ssize(attackers), LinesPerStack);
    return std::any_of(attackers.begin(), attackers.begin() + firstStack, isArmy) &&
           std::ranges::any_of(defenders, isArmy);
}

std::vector<std::size_t> LinesInOrderOfFighting(const Setup& setup, Side side, const Units& units) {
    const std::vector<SetupLine>& lines = setup.Sides[side];
    const std::size_t stackSize = side == Side::Attacker ? LinesPerStack : MaxLines;
    std::vector<std::size_t> order;
    for (std::size_t first = 0; first < lines.size(); first += stackSize) {
        const std::size_t before = order.size();
        for (std::size_t line = std::min(first + stackSize, lines.size()); line-- > first;)
            if (!units.IsNone(lines[line].Unit))
                order.push_back(line);
        if (order.size() == before)
            break;
    }
    return order;
}

std::optional<HeroValues> HeroOf(const SetupLine& line, const Units& units) {
    return line.Hero ? line.Hero : units.UntouchedHero(line.Unit);
}

bool IsSameArmy(const SetupLine& a, const SetupLine& b, const Units& units) {
    return a.Unit == b.Unit && a.Health == b.Health && HeroOf(a, units) == HeroOf(b, units);
}

bool IsSameBattle(const Setup& a, const Setup& b, const Units& units) {
    const auto isSameLine = [&units](const SetupLine& one, const SetupLine& other) {
        return IsSameArmy(one, other, units);
    };
    const auto isSameList = [&](Side side) {
        return std::ranges::equal(a.Sides[side], b.Sides[side], isSameLine);
    };
    return std::ranges::all_of(BothSides, isSameList) && a.Terrain == b.Terrain &&
           a.CityLevel == b.CityLevel && a.CombatDice == b.CombatDice;
}

Long MostBattles(const Setup& setup, const Units& units) {
    std::int64_t largest = 1;
    for (const Side side : BothSides) {
        const std::vector<std::size_t> fighting = LinesInOrderOfFighting(setup, side, units);
        std::int64_t turns = 0;
        for (const std::size_t number : fighting) {
            const SetupLine& line = setup.Sides[side][number];
            turns += units.EntryOf(line.Unit, line.Health).Turns.Value();
        }
        largest = std::max({largest, static_cast<std::int64_t>(fighting.size()), turns});
    }
    return static_cast<std::int32_t>(std::numeric_limits<std::int32_t>::max() / largest);
}

MBattleCalc::BattleStacks StacksOf(const Setup& setup, const Units& units) {
    AssemblyHost host;
    host.NumArmyTypes = units.NumArmies();
    host.DefenderTerrain = setup.Terrain;
    PerSide<CAttackArmies> lists{CAttackArmies{host}, CAttackArmies{host}};
    for (const Side side : BothSides) {
        Long position = 0;
        for (const SetupLine& line : setup.Sides[side]) {
            host.OnHero = [&](CArmy& hero) { HeroOf(line, units).value().ApplyTo(hero); };
            lists[side].Add(units.EntryOf(line.Unit, line.Health), LineKey(position));
            ++position;
        }
    }
    MBattleCalc::BattleStacks stacks;
    stacks.Build(lists.Attacker, lists.Defender);
    return stacks;
}

std::optional<Odds::BattleOdds> OddsOf(const Setup& setup, const Units& units, Odds::Budget& budget) {
    return Odds::OddsOf(StacksOf(setup, units), MBattleCalc::Flyers{units.Armies(), units.Heroes()},
                        setup.CombatDice, setup.CityLevel, budget);
}

} // namespace vorhaven
