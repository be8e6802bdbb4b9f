// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/Stacks.h"
#include "ui/setup/frmBrawlpad.h"

#include <algorithm>
#include <chrono>
#include <new>

namespace vorhaven {
namespace {

/// Makes army lists as a run does, but sets the heroes' values instead of asking for them.
class UnattendedHost final : public ArmyListHost {
public:
    UnattendedHost(Long numArmies, std::string terrain)
        : numArmies_(numArmies), terrain_(std::move(terrain)) {}

    [[nodiscard]] Long NumArmies() const override { return numArmies_; }
    [[nodiscard]] const std::string& Terrain() const override { return terrain_; }
    void EditHero(CArmy& hero) override {
        if (NextHero)
            NextHero->ApplyTo(hero);
    }

    std::optional<HeroValues> NextHero;

private:
    Long numArmies_;
    std::string terrain_;
};

/// The odds of each number of losses, of all numbers that there can be.
LossOdds LossOddsOf(const Odds::SideOdds& side) {
    LossOdds odds{};
    std::ranges::copy(side.ChanceOfLosing, odds.begin());
    return odds;
}

} // namespace

void frmBrawlpad::ShowOdds() {
    const BattleDescription battle = DescribeBattle();
    if (battle == oddsOf_)
        return;
    oddsOf_ = battle;
    if (!HasArmy(Side::Attack, LinesPerStack) || !HasArmy(Side::Defend, MaxLines)) {
        OddsFrame.Show(std::nullopt, "Pick armies for both sides");
        return;
    }
    try {
        const auto odds = ComputeOdds(battle);
        OddsFrame.Show(odds, odds ? HeroesInWords(battle)
                                  : "Too many outcomes to sum up at once: Attack will tell");
    } catch (const RunTimeError& error) {
        OddsFrame.Show(std::nullopt,
                       std::string("There are no odds of this battle: ") + Description(error.Number()));
    } catch (const std::bad_alloc&) {
        OddsFrame.Show(std::nullopt, "There is not enough memory to sum up the outcomes: Attack will tell");
    }
}

std::optional<Odds::BattleOdds> frmBrawlpad::ComputeOdds(const BattleDescription& battle) const {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    UnattendedHost host{NumArmies(),
                        cboTerrain.Items().at(static_cast<std::size_t>(battle.Terrain.value())).Text};
    std::array<CAttackArmies, 2> lists{CAttackArmies{host}, CAttackArmies{host}};
    for (std::size_t side = 0; side < lists.size(); ++side)
        for (Long line = 0; line < SizeOf(battle.Sides[side]); ++line) {
            const auto& [datum, health, hero] = battle.Sides[side][line.Index()];
            host.NextHero = hero ? hero : UntouchedHero(datum);
            lists[side].Add(EntryOf(datum, health), LineKey(line));
        }
    MBattleCalc::BattleStacks stacks;
    stacks.Build(lists[0], lists[1]);
    return Odds::OddsOf(stacks, MBattleCalc::Flyers{Armies(), Heroes()}, battle.CombatDice.value(),
                        battle.CityLevel.value_or(-1) + 1, [&] { return Clock::now() - start < OddsBudget; });
}

frmMoreResults::Background frmBrawlpad::BackgroundOfRun() const {
    frmMoreResults::Background background{{gobjCAttArmies->Count(), gobjCDefArmies->Count()}, std::nullopt};
    try {
        if (const auto odds = ComputeOdds(assembled_))
            background.ExactLosses = {LossOddsOf(odds->Attackers), LossOddsOf(odds->Defenders)};
    } catch (const RunTimeError&) {
        // The charts tell the results alone.
    } catch (const std::bad_alloc&) {
        // Likewise.
    }
    return background;
}

std::string frmBrawlpad::HeroesInWords(const BattleDescription& battle) const {
    bool isAnyUntouched = false;
    bool isAnyEntered = false;
    for (const auto& lines : battle.Sides)
        for (const auto& line : lines) {
            const bool isHero = UntouchedHero(line.Datum).has_value();
            isAnyUntouched = isAnyUntouched || (isHero && !line.Hero);
            isAnyEntered = isAnyEntered || line.Hero;
        }
    if (isAnyEntered)
        return isAnyUntouched ? "With the heroes as entered last, the others as their editors begin"
                              : "With the heroes as entered last";
    return isAnyUntouched ? "With the heroes as their editors begin" : "";
}

} // namespace vorhaven
