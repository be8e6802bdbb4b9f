// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/ExactSolver.h"

namespace vorhaven::test {

/// The exact odds of a battle whose first stacks are evaluated: every way in which poison, disease and curse
/// may leave them is solved as a battle of its own. Written from the rules alone, as the solver is.
class EvaluatedBattle {
public:
    EvaluatedBattle(const std::string& attackers, const std::string& defenders, int die, int city)
        : later_(attackers.substr(std::min(attackers.find('/'), attackers.size()))), die_(die) {
        const auto attack = Armies(attackers.substr(0, attackers.size() - later_.size()));
        const auto defend = Armies(defenders);
        const int attackBonus = Bonus(attack, defend, 0);
        const int defendBonus = Bonus(defend, attack, city);
        for (const auto& army : attack)
            outcomes_.push_back(Outcomes(army, attack, defend, attackBonus));
        attackCount_ = attack.size();
        for (const auto& army : defend)
            outcomes_.push_back(Outcomes(army, defend, attack, defendBonus));
        Combine(0, "", "", 1.0);
    }

    std::map<Row, double> Odds;

private:
    using Army = std::pair<std::string, CArmy>;
    using Stack = std::vector<Army>;

    static Stack Armies(const std::string& text) {
        Stack stack;
        for (const std::string& army : Split(text, ';')) {
            stack.emplace_back(army, CArmy{});
            Give(stack.back().second, "Strength 10 Hits 1 " + army);
        }
        return stack;
    }

    static int Best(const Stack& stack, Long CArmy::*power, int least = 0) {
        for (const auto& [text, army] : stack)
            least = std::max(least, (army.*power).Value());
        return least;
    }
    static int Total(const Stack& stack, Long CArmy::*power) {
        int total = 0;
        for (const auto& [text, army] : stack)
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
        for (const auto& [text, other] : stack)
            if (other.Banding != 0 && ++count == 1)
                size = other.PowerValue.Value();
        return army.Banding == 0 ? 0 : size + 1 >= count ? size : count - 1;
    }

    /// What an army may have become, with the chances.
    static std::vector<std::pair<std::string, double>> Outcomes(const Army& told, const Stack& own,
                                                                const Stack& enemy, int bonus) {
        const auto& [text, army] = told;
        const auto chance = [&enemy](bool eligible, Long CArmy::*power) {
            return eligible ? std::min(4 * Total(enemy, power), 99) / 99.0 : 0.0;
        };
        const double p[3] = {chance(army.Poison == 0 && !army.Blessed && !army.Poisoned, &CArmy::Poison),
                             chance(army.Disease == 0 && !army.Blessed && !army.Diseased, &CArmy::Disease),
                             chance(army.Curse == 0 && (army.Blessed || army.HasMedal > 0), &CArmy::Curse)};
        std::vector<std::pair<std::string, double>> outcomes;
        for (const bool poison : {false, true})
            for (const bool disease : {false, true})
                for (const bool curse : {false, true}) {
                    const double odds =
                        (poison ? p[0] : 1 - p[0]) * (disease ? p[1] : 1 - p[1]) * (curse ? p[2] : 1 - p[2]);
                    int strength = std::clamp(army.TotalStrength.Value() + Banding(army, own), 1, 14);
                    strength = std::max(1, strength - (poison ? 1 : 0));
                    strength = std::max(1, strength - (curse && army.Blessed ? 1 : 0));
                    strength = std::clamp(strength + bonus, 1, 14);
                    const int hits = std::max(1, army.Hits.Value() - (disease ? 1 : 0));
                    if (odds > 0.0)
                        outcomes.emplace_back(text + " Strength " + std::to_string(strength) + " Hits " +
                                                  std::to_string(hits) + (curse ? " Medals 0" : ""),
                                              odds);
                }
        return outcomes;
    }

    void Combine(std::size_t army, const std::string& attackers, const std::string& defenders, double p) {
        if (army == outcomes_.size()) {
            for (const auto& [row, odds] : ExactBattle{attackers + later_, defenders, die_}.Odds)
                Odds[row] += p * odds;
            return;
        }
        for (const auto& [text, odds] : outcomes_[army])
            if (army < attackCount_)
                Combine(army + 1, attackers + (army == 0 ? "" : ";") + text, defenders, p * odds);
            else
                Combine(army + 1, attackers, defenders + (army == attackCount_ ? "" : ";") + text, p * odds);
    }

    std::string later_;
    int die_;
    std::size_t attackCount_ = 0;
    std::vector<std::vector<std::pair<std::string, double>>> outcomes_;
};

} // namespace vorhaven::test
