// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/Lineup.h"

#include "odds/Percent.h"

#include <algorithm>

namespace vorhaven::Odds {
namespace {

using namespace MBattleCalc;

/// One way in which the afflictions may leave an army.
struct Outcome {
    CArmy Army;
    double Chance;
};

/// Splits every outcome in which the rule's affliction may strike.
template <Long CStackAtt::* Power, bool (*IsEligible)(const CArmy&), void (*Afflict)(CArmy&)>
void Split(std::vector<Outcome>& outcomes, const CStackAtt& striker) {
    const Long power = striker.*Power;
    if (power == 0)
        return;
    for (std::size_t i = outcomes.size(); i-- > 0;) {
        if (!IsEligible(outcomes[i].Army))
            continue;
        const double chance = PercentChance(AfflictionChance(power));
        Outcome afflicted = outcomes[i];
        Afflict(afflicted.Army);
        afflicted.Chance *= chance;
        outcomes[i].Chance *= 1.0 - chance;
        if (afflicted.Chance > 0.0)
            outcomes.push_back(afflicted);
    }
    std::erase_if(outcomes, [](const Outcome& outcome) { return outcome.Chance <= 0.0; });
}

/// Adds an outcome to the states in which an army may come to the front.
void Enlist(Entrant& entrant, const Outcome& outcome) {
    const CArmy& army = outcome.Army;
    Condition condition;
    condition.Strength = static_cast<std::uint8_t>(army.TotalStrength.Value());
    if (MedalFaces(army.HasMedal) != 0)
        condition.Medals = static_cast<std::uint8_t>(army.HasMedal.Value());
    auto same = std::ranges::find(entrant.States, condition, &State::InCondition);
    if (same == entrant.States.end())
        same = entrant.States.insert(same, {condition, {}});
    same->Chances[Long{army.Hits}.Index() - 1] += outcome.Chance;
}

/// A stack's armies from the last one, which fights first.
std::vector<CArmy> InOrderOfFighting(const CStackAtt& stack) {
    std::vector<CArmy> armies(stack.begin(), stack.end());
    std::ranges::reverse(armies);
    return armies;
}

/// An army of a stack that is evaluated before the battle.
Entrant Evaluated(const CArmy& army, const CStackAtt& enemy, Long bonus) {
    Entrant entrant{army};
    std::vector<Outcome> outcomes{{army, 1.0}};
    Split<&CStackAtt::StackPoison, IsPoisonEligible, Poison>(outcomes, enemy);
    Split<&CStackAtt::StackDisease, IsDiseaseEligible, Disease>(outcomes, enemy);
    Split<&CStackAtt::StackCurse, IsCurseEligible, Curse>(outcomes, enemy);
    for (Outcome& outcome : outcomes) {
        AddBonus(outcome.Army, bonus);
        Enlist(entrant, outcome);
    }
    return entrant;
}

/// An army of a stack that comes as its master is.
Entrant Unchanged(const CArmy& army) {
    Entrant entrant{army};
    Enlist(entrant, {army, 1.0});
    return entrant;
}

} // namespace

Lineup LineUp(const BattleStacks& stacks, Long cityLevel) {
    CStackAtt attack;
    CStackAtt defend;
    attack.CopyFrom(stacks.AttackStacks[0]);
    defend.CopyFrom(stacks.DefendStack);
    attack.CountSelfPowers(Side::Attacker, cityLevel);
    defend.CountSelfPowers(Side::Defender, cityLevel);
    attack.EvalSelfPowers();
    defend.EvalSelfPowers();
    if (attack.Count() == 0 || defend.Count() == 0)
        throw RunTimeError{ErrorNumber::InvalidCall};
    attack.TotalStackBonus = StackBonus(attack, defend);
    defend.TotalStackBonus = StackBonus(defend, attack);

    Lineup lineup;
    for (const CArmy& army : InOrderOfFighting(defend))
        lineup.Defenders.push_back(Evaluated(army, attack, defend.TotalStackBonus));
    for (const CArmy& army : InOrderOfFighting(attack))
        lineup.Attackers.push_back(Evaluated(army, defend, attack.TotalStackBonus));
    const std::size_t taking = stacks.NumAttackStacks.Index();
    for (Entrant& entrant : lineup.Attackers)
        entrant.StackBehind = taking > 1;
    for (std::size_t number = 1; number < taking; ++number) {
        const std::size_t first = lineup.Attackers.size();
        for (const CArmy& army : InOrderOfFighting(stacks.AttackStacks[number])) {
            lineup.Attackers.push_back(Unchanged(army));
            lineup.Attackers.back().StackBehind = number + 1 < taking;
        }
        lineup.Attackers[first].LeadsNewStack = true;
    }
    return lineup;
}

} // namespace vorhaven::Odds
