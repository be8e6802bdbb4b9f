// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/BattleOdds.h"

#include "odds/Advance.h"
#include "odds/Lineup.h"

#include <ranges>

namespace vorhaven::Odds {
namespace {

using MBattleCalc::BattleStacks;
using MBattleCalc::Flyers;

/// The chances of all battles, carried forward from attacker to attacker.
class Battles {
public:
    Battles(const Lineup& lineup, const Flyers& flyers, Long dice, Budget& budget)
        : lineup_(&lineup), advance_(lineup.Defenders, flyers, dice, budget),
          wonWith_(lineup.Attackers.size()) {}

    void Fight() {
        Fronts fronts = advance_.AtFirst(lineup_->Attackers.front());
        for (std::size_t i = 0; i < lineup_->Attackers.size(); ++i) {
            const Entrant& attacker = lineup_->Attackers[i];
            if (attacker.LeadsNewStack)
                Heal(fronts, attacker);
            const Advance::Outcome outcome = advance_.Send(attacker, fronts);
            wonWith_[i] = outcome.Won;
            endless_ += outcome.Endless;
            slayings_.push_back(outcome.Slayings);
        }
    }

    /// The chance of winning with exactly so many attackers slain, and of losing with so many defenders.
    [[nodiscard]] double WonWith(std::size_t attackers) const { return wonWith_[attackers]; }
    [[nodiscard]] double LostWith(std::size_t defenders) const {
        return slayings_.back()[defenders].ByDefender;
    }
    [[nodiscard]] double Endless() const { return endless_; }
    [[nodiscard]] const std::vector<std::vector<Slaying>>& Slayings() const { return slayings_; }

private:
    const Lineup* lineup_;
    Advance advance_;
    std::vector<double> wonWith_;
    double endless_ = 0.0;
    std::vector<std::vector<Slaying>> slayings_;
};

/// Adds up the losses of one side.
class Tally {
public:
    explicit Tally(const std::vector<Entrant>& armies) : chanceOfLosing_(armies.size() + 1), turns_{0.0} {
        for (const Entrant& entrant : armies)
            turns_.push_back(turns_.back() + entrant.Army.Turns.Value());
    }

    void Add(std::size_t slain, double chance, bool won) {
        chanceOfLosing_[slain] += chance;
        Weighted& sum = won ? won_ : lost_;
        sum.Chance += chance;
        sum.Armies += chance * static_cast<double>(slain);
        sum.Turns += chance * turns_[slain];
    }

    [[nodiscard]] SideOdds Result() const {
        const Weighted both{won_.Chance + lost_.Chance, won_.Armies + lost_.Armies, won_.Turns + lost_.Turns};
        return {chanceOfLosing_, both.Average(), won_.Average(), lost_.Average()};
    }

private:
    struct Weighted {
        double Chance = 0.0;
        double Armies = 0.0;
        double Turns = 0.0;

        [[nodiscard]] std::optional<Losses> Average() const {
            if (Chance <= 0.0)
                return std::nullopt;
            return Losses{Armies / Chance, Turns / Chance};
        }
    };

    std::vector<double> chanceOfLosing_;
    /// The turns of the first so many armies.
    std::vector<double> turns_;
    Weighted won_;
    Weighted lost_;
};

BattleOdds ResultOf(const Battles& battles, const Lineup& lineup) {
    BattleOdds odds;
    Tally attackers{lineup.Attackers};
    Tally defenders{lineup.Defenders};
    const auto end = [&](std::size_t attackersSlain, std::size_t defendersSlain, double chance, bool won) {
        (won ? odds.Won : odds.Lost) += chance;
        attackers.Add(attackersSlain, chance, won);
        defenders.Add(defendersSlain, chance, won);
    };
    for (std::size_t i = 0; i < lineup.Attackers.size(); ++i)
        end(i, lineup.Defenders.size(), battles.WonWith(i), true);
    for (std::size_t j = 0; j < lineup.Defenders.size(); ++j)
        end(lineup.Attackers.size(), j, battles.LostWith(j), false);
    odds.Endless = battles.Endless();
    odds.Attackers = attackers.Result();
    odds.Defenders = defenders.Result();
    odds.Slayings = battles.Slayings();
    return odds;
}

} // namespace

std::vector<Chance> SurvivalOf(const SideOdds& side) {
    std::vector<Chance> survival;
    // An army falls in the battles that cost its side more than the armies before it.
    double survives = 0.0;
    for (const double chance : side.ChanceOfLosing | std::views::take(side.ChanceOfLosing.size() - 1))
        survival.push_back({survives += chance, 0.0});
    double falls = 0.0;
    for (std::size_t army = survival.size(); army-- > 0;)
        survival[army].Against = falls += side.ChanceOfLosing[army + 1];
    return survival;
}

std::optional<BattleOdds> OddsOf(const BattleStacks& stacks, const Flyers& flyers, Long dice, Long cityLevel,
                                 Budget& budget) {
    const Lineup lineup = LineUp(stacks, cityLevel);
    Battles battles{lineup, flyers, dice, budget};
    try {
        battles.Fight();
    } catch (const TooManyOutcomes&) {
        return std::nullopt;
    }
    return ResultOf(battles, lineup);
}

} // namespace vorhaven::Odds
