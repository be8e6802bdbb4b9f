// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/BattleOdds.h"

#include "odds/DuelOdds.h"
#include "odds/Lineup.h"

#include <ranges>

namespace vorhaven::Odds {
namespace {

using MBattleCalc::BattleStacks;
using MBattleCalc::Flyers;

/// Carries the chances of all battles forward from duel to duel. After a duel one front is a newcomer, so
/// what came before is in the survivor's state alone.
class Battles {
public:
    Battles(const Lineup& lineup, const Flyers& flyers, Long dice, Budget& budget)
        : lineup_(&lineup), flyers_(&flyers), dice_(dice), budget_(&budget),
          defenders_(lineup.Defenders.size()), wonWith_(lineup.Attackers.size()),
          lostWith_(lineup.Defenders.size()),
          slayings_(lineup.Attackers.size(), std::vector<Slaying>(lineup.Defenders.size())) {
        for (const State& state : lineup.Attackers.front().StatesUnhealed)
            attackers_.Add(state.Is, state.Chances);
    }

    void Fight() {
        for (std::size_t i = 0; i < lineup_->Attackers.size(); ++i)
            for (std::size_t j = 0; j < lineup_->Defenders.size(); ++j)
                Meet(i, j);
    }

    /// The chance of winning with exactly so many attackers slain, and of losing with so many defenders.
    [[nodiscard]] const std::vector<double>& WonWith() const { return wonWith_; }
    [[nodiscard]] const std::vector<double>& LostWith() const { return lostWith_; }
    [[nodiscard]] const std::vector<std::vector<Slaying>>& Slayings() const { return slayings_; }
    [[nodiscard]] double Endless() const { return endless_; }

private:
    void Meet(std::size_t i, std::size_t j);
    void SendNextAttacker(std::size_t i, std::size_t j);

    const Lineup* lineup_;
    const Flyers* flyers_;
    DiceOdds dice_;
    Budget* budget_;
    /// The attacker now in front, as survivor of its last duel.
    StateTable attackers_;
    /// Each defender as survivor of its last duel, with the next attacker to come.
    std::vector<StateTable> defenders_;
    /// The states of all defenders.
    std::size_t waiting_ = 0;
    PerSide<StateTable> survivors_;
    std::vector<double> wonWith_;
    std::vector<double> lostWith_;
    std::vector<std::vector<Slaying>> slayings_;
    double endless_ = 0.0;
};

double TotalOf(const StateTable& states) {
    double total = 0.0;
    for (const State& state : states)
        total += Sum(state.Chances);
    return total;
}

/// All duels between attacker i and defender j, of whom one is fresh.
void Battles::Meet(std::size_t i, std::size_t j) {
    if (attackers_.Size() == 0 && defenders_[j].Size() == 0)
        return;
    const Entrant& attacker = lineup_->Attackers[i];
    const Entrant& defender = lineup_->Defenders[j];
    waiting_ -= defenders_[j].Size();
    survivors_.Attacker.Clear();
    survivors_.Defender.Clear();
    DuelOdds duel{attacker.Army, defender.Army, dice_, *flyers_, survivors_, *budget_};
    for (const State& survivor : attackers_)
        for (const State& fresh : attacker.StackBehind ? defender.States : defender.StatesUnhealed)
            duel.Fight({survivor, fresh});
    for (const State& survivor : defenders_[j])
        for (const State& fresh : attacker.StatesUnhealed)
            duel.Fight({fresh, survivor});
    endless_ += duel.Endless();

    slayings_[i][j] = {TotalOf(survivors_.Attacker), TotalOf(survivors_.Defender)};
    std::swap(attackers_, survivors_.Attacker);
    if (j + 1 == lineup_->Defenders.size()) {
        wonWith_[i] = slayings_[i][j].ByAttacker;
        attackers_.Clear();
    }
    SendNextAttacker(i, j);
    waiting_ += defenders_[j].Size();
    budget_->Hold(waiting_);
}

/// Attacker i has fallen to defender j.
void Battles::SendNextAttacker(std::size_t i, std::size_t j) {
    if (i + 1 == lineup_->Attackers.size()) {
        lostWith_[j] = slayings_[i][j].ByDefender;
        return;
    }
    const Entrant& next = lineup_->Attackers[i + 1];
    if (!next.LeadsNewStack) {
        std::swap(defenders_[j], survivors_.Defender);
        return;
    }
    defenders_[j].Clear();
    for (const State& state : survivors_.Defender) {
        State healed{state.Is, {}};
        healed.Chances[state.Is.StartHits - 1U] = Sum(state.Chances);
        if (!next.StackBehind)
            healed.Is.StartHits = 0;
        defenders_[j].Add(healed.Is, healed.Chances);
    }
}

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
        end(i, lineup.Defenders.size(), battles.WonWith()[i], true);
    for (std::size_t j = 0; j < lineup.Defenders.size(); ++j)
        end(lineup.Attackers.size(), j, battles.LostWith()[j], false);
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
