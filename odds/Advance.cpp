// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/Advance.h"

#include "odds/DuelOdds.h"

#include <utility>

namespace vorhaven::Odds {
namespace {

double TotalOf(const StateTable& states) {
    double total = 0.0;
    for (const State& state : states)
        total += Sum(state.Chances);
    return total;
}

/// Calls `meet` with each state in which a defender comes to the front. Where a further attacking stack may
/// give its hits back, it remembers them.
void ForEachFresh(const Entrant& defender, bool remembers, const auto& meet) {
    for (const State& state : defender.States) {
        if (!remembers) {
            meet(state);
            continue;
        }
        for (std::size_t hits = 1; hits <= state.Chances.size(); ++hits) {
            if (state.Chances[hits - 1] <= 0.0)
                continue;
            State fresh{state.InCondition, {}};
            fresh.InCondition.StartHits = static_cast<std::uint8_t>(hits);
            fresh.Chances[hits - 1] = state.Chances[hits - 1];
            meet(fresh);
        }
    }
}

} // namespace

void Heal(Fronts& fronts, const Entrant& leader) {
    for (StateTable& front : fronts) {
        StateTable healed;
        for (const State& state : front) {
            State after{state.InCondition, {}};
            after.Chances[state.InCondition.StartHits - 1U] = Sum(state.Chances);
            if (!leader.StackBehind)
                after.InCondition.StartHits = 0;
            healed.Add(after.InCondition, after.Chances);
        }
        front = std::move(healed);
    }
}

Fronts Advance::AtFirst(const Entrant& attacker) const {
    Fronts fronts(defenders_->size());
    ForEachFresh(defenders_->front(), attacker.StackBehind,
                 [&](const State& state) { fronts.front().Add(state.InCondition, state.Chances); });
    return fronts;
}

Advance::Meeting Advance::Meet(const Entrant& attacker, std::size_t defender, const StateTable& attackers,
                               const StateTable& front) {
    survivors_.Attacker.Clear();
    survivors_.Defender.Clear();
    const Entrant& fresh = (*defenders_)[defender];
    DuelOdds duel{attacker.Army, fresh.Army, dice_, *flyers_, survivors_, *budget_};
    for (const State& survivor : attackers)
        ForEachFresh(fresh, attacker.StackBehind, [&](const State& state) { duel.Fight({survivor, state}); });
    for (const State& survivor : front)
        for (const State& state : attacker.States)
            duel.Fight({state, survivor});
    return {survivors_, duel.Endless()};
}

Advance::Outcome Advance::Send(const Entrant& attacker, Fronts& fronts) {
    Outcome outcome;
    outcome.Slayings.resize(defenders_->size());
    attackers_.Clear();
    std::size_t waiting = 0;
    for (const StateTable& front : fronts)
        waiting += front.Size();
    for (std::size_t j = 0; j < fronts.size(); ++j) {
        if (attackers_.Size() == 0 && fronts[j].Size() == 0)
            continue;
        waiting -= fronts[j].Size();
        outcome.Endless += Meet(attacker, j, attackers_, fronts[j]).Endless;
        outcome.Slayings[j] = {TotalOf(survivors_.Attacker), TotalOf(survivors_.Defender)};
        std::swap(attackers_, survivors_.Attacker);
        std::swap(fronts[j], survivors_.Defender);
        waiting += fronts[j].Size();
        budget_->Hold(waiting);
    }
    outcome.Won = outcome.Slayings.back().ByAttacker;
    return outcome;
}

} // namespace vorhaven::Odds
