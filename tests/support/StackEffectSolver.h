// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/ExactSolver.h"

namespace vorhaven::test {

/// The exact odds of a battle whose first stacks are evaluated: every way in which poison, disease and curse
/// may leave them is solved as a battle of its own. Written from the rules alone, as the solver is.
class EvaluatedBattle {
public:
    /// Two sides as TestHost::Bring reads them.
    EvaluatedBattle(const std::string& attackers, const std::string& defenders, int die, int city)
        : die_(die) {
        for (const std::string& stack : Split(attackers, '/'))
            attackers_.push_back(Armies(stack));
        defenders_ = Armies(defenders);
        const Stack attack = attackers_[0], defend = defenders_;
        for (const CArmy& army : attack)
            outcomes_.push_back(Outcomes(army, attack, defend, Bonus(attack, defend, 0)));
        for (const CArmy& army : defend)
            outcomes_.push_back(Outcomes(army, defend, attack, Bonus(defend, attack, city)));
        Combine(0, 1.0);
    }

    std::map<Row, double> Odds;
    std::map<std::array<std::size_t, 3>, double> Slayings;

private:
    using Chances = std::vector<std::pair<CArmy, double>>;

    static Stack Armies(const std::string& text) {
        Stack stack;
        for (const std::string& army : Split(text, ';'))
            Give(stack.emplace_back(), "Strength 10 Hits 1 Turns 1 " + army);
        return stack;
    }

    static int Best(const Stack& stack, Long CArmy::* power, int least = 0) {
        for (const CArmy& army : stack)
            least = std::max(least, (army.*power).Value());
        return least;
    }
    static int Total(const Stack& stack, Long CArmy::* power) {
        int total = 0;
        for (const CArmy& army : stack)
            total += (army.*power).Value();
        return total;
    }

    static int Bonus(const Stack& own, const Stack& enemy, int city) {
        const auto term = [](int gain, int loss) {
            return std::clamp(std::clamp(gain, -1, 5) - std::clamp(loss, -1, 5), -1, 5);
        };
        return std::clamp(term(Best(own, &CArmy::Leadership), Best(enemy, &CArmy::Chaos)) +
                              term(Best(own, &CArmy::Morale), Best(enemy, &CArmy::Fear)) +
                              term(Best(own, &CArmy::Fortify, city), Best(enemy, &CArmy::Siege)),
                          -3, 5);
    }

    static int Banding(const CArmy& army, const Stack& stack) {
        int count = 0, size = 0;
        for (const CArmy& other : stack)
            if (other.Banding != 0 && ++count == 1)
                size = other.PowerValue.Value();
        return army.Banding == 0 ? 0 : size + 1 >= count ? size : count - 1;
    }

    /// What an army may have become, with the chances.
    static Chances Outcomes(const CArmy& army, const Stack& own, const Stack& enemy, int bonus) {
        const auto chance = [&enemy](bool eligible, Long CArmy::* power) {
            return eligible ? std::min(4 * Total(enemy, power), 99) / 99.0 : 0.0;
        };
        const double p[3] = {chance(army.Poison == 0 && !army.Blessed && !army.Poisoned, &CArmy::Poison),
                             chance(army.Disease == 0 && !army.Blessed && !army.Diseased, &CArmy::Disease),
                             chance(army.Curse == 0 && (army.Blessed || army.HasMedal > 0), &CArmy::Curse)};
        Chances outcomes;
        for (const bool poison : {false, true})
            for (const bool disease : {false, true})
                for (const bool curse : {false, true}) {
                    const double odds =
                        (poison ? p[0] : 1 - p[0]) * (disease ? p[1] : 1 - p[1]) * (curse ? p[2] : 1 - p[2]);
                    int strength = std::clamp(army.TotalStrength.Value() + Banding(army, own), 1, 14);
                    strength = std::max(1, strength - (poison ? 1 : 0));
                    strength = std::max(1, strength - (curse && army.Blessed ? 1 : 0));
                    CArmy outcome = army;
                    outcome.TotalStrength = std::clamp(strength + bonus, 1, 14);
                    outcome.Hits = std::max(1, army.Hits.Value() - (disease ? 1 : 0));
                    outcome.HasMedal = curse ? 0 : army.HasMedal;
                    if (odds > 0.0)
                        outcomes.emplace_back(outcome, odds);
                }
        return outcomes;
    }

    /// Tries what each army from this one on may have become.
    void Combine(std::size_t army, double p) {
        if (army == outcomes_.size()) {
            const ExactBattle battle{attackers_, defenders_, die_};
            for (const auto& [row, odds] : battle.Odds)
                Odds[row] += p * odds;
            for (const auto& [pair, odds] : battle.Slayings)
                Slayings[pair] += p * odds;
            return;
        }
        Stack& first = attackers_[0];
        CArmy& place = army < first.size() ? first[army] : defenders_[army - first.size()];
        for (const auto& [outcome, odds] : outcomes_[army]) {
            place = outcome;
            Combine(army + 1, p * odds);
        }
    }

    int die_;
    std::vector<Stack> attackers_;
    Stack defenders_;
    std::vector<Chances> outcomes_;
};

} // namespace vorhaven::test
