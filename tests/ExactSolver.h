#pragma once

#include "tests/TestHost.h"

#include <algorithm>
#include <array>

namespace vorhaven::test {

/// What one battle comes to: the columns of its results.
using Row = std::array<std::int32_t, 5>;

/// The exact odds of a battle, from the rules alone: the chance of every state in which a duel can begin is
/// carried forward, and a duel's own chances are summed over what its two armies have left.
class ExactBattle {
public:
    /// Armies as TestHost::Bring reads them, their fighting values final: nothing here knows of stack
    /// effects.
    ExactBattle(const std::string& attackers, const std::string& defenders, int die) : die_(die) {
        for (const std::string& stack : Split(attackers, '/'))
            Enlist(attackers_, stack);
        Enlist(defenders_, defenders);
        begun_[{0, 0, attackers_[0], defenders_[0]}] = 1.0;
        // A duel leads only to later duels, and these stand behind it in the map.
        for (auto next = begun_.begin(); next != begun_.end(); ++next) {
            state_ = next->first;
            Open(0, state_.Attacker, state_.Defender, true, next->second);
        }
    }

    [[nodiscard]] std::map<Row, double> Odds() const { return odds_; }

private:
    struct Fighter {
        int Strength, Hits, Turns, Medals, Trample, Acid, Lightning, Assass, Missle, Warding, Shots;
        bool Flies, Used, LeadsStack;
        auto operator<=>(const Fighter&) const = default;
    };
    struct State {
        std::size_t AttackersSlain, DefendersSlain;
        Fighter Attacker, Defender;
        auto operator<=>(const State&) const = default;
    };

    /// Puts a stack's armies in their order of fighting, the last one first.
    static void Enlist(std::vector<Fighter>& side, const std::string& stack) {
        auto armies = Split(stack, ';');
        std::ranges::reverse(armies);
        bool leads = true;
        for (const std::string& text : armies) {
            CArmy a;
            Give(a, "Strength 10 Hits 1 Turns 1 " + text);
            side.push_back({a.TotalStrength.Value(), a.Hits.Value(), a.Turns.Value(), a.HasMedal.Value(),
                            a.Trample.Value(), a.Acid.Value(), a.Lightning.Value(), a.Assass.Value(),
                            a.Missle.Value(), a.Warding.Value(), 0,
                            a.IsFlying || a.UnitID == TestHost::flyingType, false, leads});
            leads = false;
        }
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
    /// higher power acts as x, and `xAttacks` tells which side it is on.
    void Open(std::size_t step, Fighter x, Fighter y, bool xAttacks, double p) {
        constexpr std::array powers{&Fighter::Acid, &Fighter::Lightning, &Fighter::Assass, &Fighter::Missle};
        const auto power = powers[step];
        if (y.*power > x.*power) {
            std::swap(x, y);
            xAttacks = !xAttacks;
        }
        const int lead = x.*power - y.*power;
        if (step == 3)
            return lead == 0 || x.Used ? Rounds(x, y, xAttacks, p) : Shoot(x, y, lead, xAttacks, p);
        const bool acts = lead > 0 && x.*power > y.Warding && !(step == 2 && x.Used);
        const double chance = acts ? std::clamp(10 * (lead - y.Warding), 0, 99) / 99.0 : 0.0;
        if (step == 2) {
            x.Used = x.Used || x.Assass > 0;
            y.Used = y.Used || y.Assass > 0;
            End(x, xAttacks, p * chance);
        } else if (chance > 0.0) {
            Fighter struck = y;
            int& halved = step == 0 ? struck.Strength : struck.Hits;
            halved = std::max(1, halved / 2);
            Open(step + 1, x, struck, xAttacks, p * chance);
        }
        Open(step + 1, x, y, xAttacks, p * (1.0 - chance));
    }

    void Shoot(Fighter x, const Fighter& y, int lead, bool xAttacks, double p) {
        for (int left = (x.Shots > 0 ? x.Shots : lead) - 1; left >= 0; --left) {
            x.Shots = left;
            x.Used = left == 0;
            End(x, xAttacks, p * RoundChance(x, y));
            p *= 1.0 - RoundChance(x, y);
        }
        Rounds(x, y, xAttacks, p);
    }

    /// Rounds that nobody wins change nothing, so the others alone count.
    void Rounds(const Fighter& x, const Fighter& y, bool xAttacks, double p) {
        const double share = RoundChance(x, y) / (RoundChance(x, y) + RoundChance(y, x));
        Wound(x, y, xAttacks, p * share);
        Wound(y, x, !xAttacks, p * (1.0 - share));
    }
    void Wound(const Fighter& x, Fighter y, bool xAttacks, double p) {
        y.Hits -= y.Flies ? 1 : x.Trample + 1;
        y.Hits > 0 ? Rounds(x, y, xAttacks, p) : End(x, xAttacks, p);
    }

    /// The duel is over with chance p; the next one begins, or the battle is over.
    void End(const Fighter& survivor, bool attackerSurvives, double p) {
        State next = state_;
        (attackerSurvives ? next.Attacker : next.Defender) = survivor;
        ++(attackerSurvives ? next.DefendersSlain : next.AttackersSlain);
        if (next.DefendersSlain == defenders_.size() || next.AttackersSlain == attackers_.size()) {
            Row row{attackerSurvives ? 1 : 0, 0, 0, 0, 0};
            for (std::size_t i = 0; i < next.AttackersSlain; ++i, ++row[1])
                row[2] += attackers_[i].Turns;
            for (std::size_t i = 0; i < next.DefendersSlain; ++i, ++row[3])
                row[4] += defenders_[i].Turns;
            odds_[row] += p;
            return;
        }
        if (attackerSurvives)
            next.Defender = defenders_[next.DefendersSlain];
        else
            next.Attacker = attackers_[next.AttackersSlain];
        if (!attackerSurvives && next.Attacker.LeadsStack)
            next.Defender.Hits = defenders_[next.DefendersSlain].Hits;
        begun_[next] += p;
    }

    int die_;
    std::vector<Fighter> attackers_, defenders_;
    State state_{};
    std::map<State, double> begun_;
    std::map<Row, double> odds_;
};

} // namespace vorhaven::test
