// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/TestHost.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace vorhaven::test {

using Stack = std::vector<CArmy>;

/// The exact odds of a battle, from the rules alone: the chance of every state in which a duel can begin is
/// carried forward, and a duel's own chances are summed over what its two armies have left.
class ExactBattle {
public:
    /// The armies' fighting values are final: nothing here knows of stack effects.
    ExactBattle(const std::vector<Stack>& attackers, const Stack& defenders, int die) : die_(die) {
        for (const Stack& stack : attackers)
            Enlist(armies_[0], stack);
        Enlist(armies_[1], defenders);
        begun_[{{0, 0}, {armies_[0][0], armies_[1][0]}}] = 1.0;
        // A duel leads only to later duels, and these stand behind it in the map.
        for (auto next = begun_.begin(); next != begun_.end(); ++next) {
            state_ = next->first;
            Open(0, state_.Fronts[0], state_.Fronts[1], 0, next->second);
        }
    }

    std::map<Row, double> Odds;
    /// The chances of who slays whom, by slayer's side, attacker and defender, both in order of fighting.
    std::map<std::array<std::size_t, 3>, double> Slayings;

private:
    struct Fighter {
        int Strength, Hits, Turns, Medals, Trample, Acid, Lightning, Assass, Missle, Warding, Shots;
        bool Flies, Used, LeadsStack;
        auto operator<=>(const Fighter&) const = default;
    };
    struct State {
        std::array<std::size_t, 2> Slain;
        std::array<Fighter, 2> Fronts;
        auto operator<=>(const State&) const = default;
    };

    /// Puts a stack's armies in their order of fighting, the last one first.
    static void Enlist(std::vector<Fighter>& side, const Stack& stack) {
        for (auto a = stack.rbegin(); a != stack.rend(); ++a)
            side.push_back({a->TotalStrength.Value(), a->Hits.Value(), a->Turns.Value(), a->HasMedal.Value(),
                            a->Trample.Value(), a->Acid.Value(), a->Lightning.Value(), a->Assass.Value(),
                            a->Missle.Value(), a->Warding.Value(), 0,
                            a->IsFlying || a->UnitID == TestHost::FlyingType, false, a == stack.rbegin()});
    }

    /// The chance that one army wins a round: one of its dice hits, and all of the other's miss.
    [[nodiscard]] double RoundChance(const Fighter& winner, const Fighter& loser) const {
        const auto missChance = [this](const Fighter& f) {
            const auto miss = [&f](int faces) { return std::max(0.0, 1.0 - 1.0 * f.Strength / faces); };
            return miss(die_) * (f.Medals > 0 ? miss(34 - 4 * f.Medals) : 1.0);
        };
        return (1.0 - missChance(winner)) * missChance(loser);
    }

    /// One step of a duel's opening after the other: acid, lightning, assassins, missiles. The army with the
    /// higher power acts as x, which is on side `xSide`, 0 the attackers' or 1 the defenders'.
    void Open(std::size_t step, Fighter x, Fighter y, std::size_t xSide, double p) {
        constexpr std::array powers{&Fighter::Acid, &Fighter::Lightning, &Fighter::Assass, &Fighter::Missle};
        const auto power = powers[step];
        if (y.*power > x.*power) {
            std::swap(x, y);
            xSide = 1 - xSide;
        }
        const int lead = x.*power - y.*power;
        if (step == 3)
            return lead == 0 || x.Used ? Rounds(x, y, xSide, p) : Shoot(x, y, lead, xSide, p);
        const bool acts = lead > 0 && x.*power > y.Warding && !(step == 2 && x.Used);
        const double chance = acts ? std::clamp(10 * (lead - y.Warding), 0, 99) / 99.0 : 0.0;
        if (step == 2) {
            x.Used = x.Used || x.Assass > 0;
            y.Used = y.Used || y.Assass > 0;
            End(x, xSide, p * chance);
        } else if (chance > 0.0) {
            Fighter struck = y;
            int& halved = step == 0 ? struck.Strength : struck.Hits;
            halved = std::max(1, halved / 2);
            Open(step + 1, x, struck, xSide, p * chance);
        }
        Open(step + 1, x, y, xSide, p * (1.0 - chance));
    }

    void Shoot(Fighter x, const Fighter& y, int lead, std::size_t xSide, double p) {
        for (int left = (x.Shots > 0 ? x.Shots : lead) - 1; left >= 0; --left) {
            x.Shots = left;
            x.Used = left == 0;
            End(x, xSide, p * RoundChance(x, y));
            p *= 1.0 - RoundChance(x, y);
        }
        Rounds(x, y, xSide, p);
    }

    /// Rounds that nobody wins change nothing, so the others alone count.
    void Rounds(const Fighter& x, const Fighter& y, std::size_t xSide, double p) {
        const double share = RoundChance(x, y) / (RoundChance(x, y) + RoundChance(y, x));
        Wound(x, y, xSide, p * share);
        Wound(y, x, 1 - xSide, p * (1.0 - share));
    }
    void Wound(const Fighter& x, Fighter y, std::size_t xSide, double p) {
        y.Hits -= y.Flies ? 1 : x.Trample + 1;
        y.Hits > 0 ? Rounds(x, y, xSide, p) : End(x, xSide, p);
    }

    /// The duel is over with chance p; the next one begins, or the battle is over.
    void End(const Fighter& survivor, std::size_t winner, double p) {
        State next = state_;
        const std::size_t loser = 1 - winner;
        Slayings[{winner, state_.Slain[0], state_.Slain[1]}] += p;
        next.Fronts[winner] = survivor;
        if (++next.Slain[loser] < armies_[loser].size()) {
            next.Fronts[loser] = armies_[loser][next.Slain[loser]];
            if (loser == 0 && next.Fronts[0].LeadsStack)
                next.Fronts[1].Hits = armies_[1][next.Slain[1]].Hits;
            begun_[next] += p;
            return;
        }
        Row row{winner == 0 ? 1 : 0};
        for (const std::size_t side : {0U, 1U})
            for (std::size_t i = 0; i < next.Slain[side]; ++i, ++row[2 * side + 1])
                row[2 * side + 2] += armies_[side][i].Turns;
        Odds[row] += p;
    }

    int die_;
    std::array<std::vector<Fighter>, 2> armies_;
    State state_{};
    std::map<State, double> begun_;
};

} // namespace vorhaven::test
