// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/DuelOdds.h"

#include "odds/Percent.h"

#include <array>

namespace vorhaven::Odds {
namespace {

using namespace MBattleCalc;

double ChanceOf(const PerSide<State>& fighters) {
    return Sum(fighters.Attacker.Chances) * Sum(fighters.Defender.Chances);
}

double StrikePercent(const Strike& strike) {
    return PercentChance(StrikeChance(strike.Force));
}

/// The hits of a front army as places in its chances.
constexpr std::size_t HitPlaces = std::tuple_size_v<HitChances>;

PerSide<bool> UsedSpecials(const PerSide<State>& fighters) {
    return {fighters.Attacker.InCondition.UsedSpecial, fighters.Defender.InCondition.UsedSpecial};
}

/// Marks a one-time special as used up, after which shots left have no meaning.
void UseUp(Condition& condition) {
    condition.UsedSpecial = true;
    condition.ShotsLeft = 0;
}

void Keep(Condition& condition, Quiver left) {
    condition.ShotsLeft = left.ShotsLeft.Value();
    if (left.UsedUp)
        UseUp(condition);
}

} // namespace

DuelOdds::DuelOdds(const CArmy& attacker, const CArmy& defender, const DiceOdds& dice, const Flyers& flyers,
                   PerSide<StateTable>& survivors, Budget& budget)
    : armies_{&attacker, &defender}, dice_(&dice), flyers_(&flyers), survivors_(&survivors), budget_(&budget),
      acid_(StrikeBy<&CArmy::Acid>(attacker, defender)),
      lightning_(StrikeBy<&CArmy::Lightning>(attacker, defender)),
      assass_(StrikeBy<&CArmy::Assass>(attacker, defender)) {}

void DuelOdds::Acid(PerSide<State> fighters) {
    if (acid_.IsTried) {
        State& victim = fighters[acid_.Victim];
        const double chance = StrikePercent(acid_);
        decltype(CArmy::TotalStrength) halved;
        halved = Half(victim.InCondition.Strength);
        PerSide<State> struck = fighters;
        struck[acid_.Victim].InCondition.Strength = static_cast<std::uint8_t>(halved.Value());
        Scale(struck[acid_.Victim].Chances, chance);
        Lightning(struck);
        Scale(victim.Chances, 1.0 - chance);
    }
    Lightning(fighters);
}

void DuelOdds::Lightning(PerSide<State> fighters) {
    if (ChanceOf(fighters) <= 0.0)
        return;
    if (lightning_.IsTried) {
        const double chance = StrikePercent(lightning_);
        HitChances& chances = fighters[lightning_.Victim].Chances;
        // From the fewest hits on: what is halved has had its turn.
        for (std::size_t hits = 1; hits <= chances.size(); ++hits) {
            decltype(CArmy::Hits) halved;
            halved = Half(static_cast<std::int32_t>(hits));
            const double struck = chances[hits - 1] * chance;
            chances[hits - 1] -= struck;
            chances[Long{halved}.Index() - 1] += struck;
        }
    }
    Assassins(fighters);
}

void DuelOdds::Assassins(PerSide<State> fighters) {
    const bool strikes = IsCarriedOut(assass_, UsedSpecials(fighters));
    for (const Side side : BothSides)
        if (SpendsAttempt(armies_[side]->Assass, armies_[Opponent(side)]->Assass))
            UseUp(fighters[side].InCondition);
    if (strikes) {
        const Side assassin = Opponent(assass_.Victim);
        const double chance = StrikePercent(assass_);
        Win(assassin, fighters, chance);
        Scale(fighters[assassin].Chances, 1.0 - chance);
    }
    Volley(fighters);
}

void DuelOdds::Volley(PerSide<State> fighters) {
    if (ChanceOf(fighters) <= 0.0)
        return;
    const MBattleCalc::Volley volley =
        VolleyBetween(armies_.Attacker->Missle, armies_.Defender->Missle, UsedSpecials(fighters));
    if (volley.IsShot) {
        const Side side = volley.Shooter;
        Condition& shooter = fighters[side].InCondition;
        const Long shots = ShotsOf(shooter.ShotsLeft, volley.Advantage);
        const double hit = RoundChance(fighters, side == Side::Attacker ? Loser::Defender : Loser::Attacker);
        double missed = 1.0;
        PerSide<State> afterHit = fighters;
        for (Long shot = 1; shot <= shots && missed * hit > 0.0; ++shot) {
            budget_->Take();
            Keep(afterHit[side].InCondition, AfterHit(shots, shot));
            Win(side, afterHit, missed * hit);
            missed *= 1.0 - hit;
        }
        Keep(shooter, AfterMisses(shots));
        Scale(fighters[side].Chances, missed);
    }
    Rounds(fighters);
}

void DuelOdds::Rounds(const PerSide<State>& fighters) {
    const double meeting = ChanceOf(fighters);
    if (meeting <= 0.0)
        return;
    budget_->Take();
    const auto damageTo = [this](Side side) {
        return DamageTo(*armies_[side], *armies_[Opponent(side)], *flyers_).Value();
    };
    const std::int32_t damageToAttacker = damageTo(Side::Attacker);
    const std::int32_t damageToDefender = damageTo(Side::Defender);

    // A round that nobody loses changes nothing, so the others alone count.
    const double attackerLoses = RoundChance(fighters, Loser::Attacker);
    const double defenderLoses = RoundChance(fighters, Loser::Defender);
    const double decided = attackerLoses + defenderLoses;
    if (decided <= 0.0) {
        endless_ += meeting;
        return;
    }
    PerSide<State> survivors{{fighters.Attacker.InCondition, {}}, {fighters.Defender.InCondition, {}}};
    std::array<HitChances, HitPlaces> both{};
    for (std::size_t a = 0; a < HitPlaces; ++a)
        for (std::size_t d = 0; d < HitPlaces; ++d)
            both[a][d] = fighters.Attacker.Chances[a] * fighters.Defender.Chances[d];
    // Hits only fall, so every pair of hits is complete when its turn comes.
    constexpr std::int32_t last = static_cast<std::int32_t>(HitPlaces) - 1;
    for (std::int32_t a = last; a >= 0; --a)
        for (std::int32_t d = last; d >= 0; --d) {
            const auto attackerHits = static_cast<std::size_t>(a);
            const auto defenderHits = static_cast<std::size_t>(d);
            const double chance = both[attackerHits][defenderHits];
            if (chance <= 0.0)
                continue;
            const double defenderStruck = chance * (defenderLoses / decided);
            const double attackerStruck = chance * (attackerLoses / decided);
            if (d < damageToDefender)
                survivors.Attacker.Chances[attackerHits] += defenderStruck;
            else
                both[attackerHits][static_cast<std::size_t>(d - damageToDefender)] += defenderStruck;
            if (a < damageToAttacker)
                survivors.Defender.Chances[defenderHits] += attackerStruck;
            else
                both[static_cast<std::size_t>(a - damageToAttacker)][defenderHits] += attackerStruck;
        }
    for (const Side side : BothSides)
        (*survivors_)[side].Add(survivors[side].InCondition, survivors[side].Chances);
}

double DuelOdds::RoundChance(const PerSide<State>& fighters, Loser loser) const {
    const DiceOdds::Roll& attack = dice_->Of(fighters.Attacker.InCondition);
    const DiceOdds::Roll& defend = dice_->Of(fighters.Defender.InCondition);
    double chance = 0.0;
    for (const bool attackerHits : {false, true})
        for (const bool defenderHits : {false, true})
            if (LoserOf(attackerHits, defenderHits) == loser)
                chance += attack[attackerHits ? 1 : 0] * defend[defenderHits ? 1 : 0];
    return chance;
}

void DuelOdds::Win(Side side, const PerSide<State>& fighters, double chance) {
    State winner = fighters[side];
    Scale(winner.Chances, chance * Sum(fighters[Opponent(side)].Chances));
    if (Sum(winner.Chances) <= 0.0)
        return;
    (*survivors_)[side].Add(winner.InCondition, winner.Chances);
    budget_->Hold(survivors_->Attacker.Size() + survivors_->Defender.Size());
}

} // namespace vorhaven::Odds
