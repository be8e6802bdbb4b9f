// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "engine/MBattleCalc.h"
#include "ui/results/frmStats.h"
#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {

void frmBrawlpad::cmdAttack_Click() {
    const Trap trap{"frmBrawlpad::cmdAttack_Click"};
    sscExit.Enabled = false;
    sscMoreResults.Enabled = false;
    if (VerifyForm() && VerifyArmies()) {
        if (gobjCAttArmies)
            gobjCAttArmies = CAttackArmies{assemblyHost_};
        if (gobjCDefArmies)
            gobjCDefArmies = CAttackArmies{assemblyHost_};
        cmdAttack.Enabled = false;
        sscSwapSides.Enabled = false;
        // Whatever the player changes from here on, while a hero's editor is open or between two of them,
        // belongs to the next battle.
        lastRun_.Begin(CurrentSetup());
        FillArmyCollections();
        sscAbort.Enabled = true;
        const Setup& setup = lastRun_.AsFought();
        MBattleCalc::Add(*this, ToLong(setup.NumBattles), setup.CombatDice, ViewStats(), setup.CityLevel);
        lastRun_.End();
        SetupTouched.Raise();
        moreResults_.RunFinished();
        sscAbort.Enabled = false;
        cmdAttack.Enabled = true;
        sscSwapSides.Enabled = true;
        OfferMoreResults();
        sscMoreResults.Enabled = true;
    }
    sscExit.Enabled = true;
}

void frmBrawlpad::LimitNumBattles() {
    const Trap trap{"frmBrawlpad::LimitNumBattles"};
    const Setup setup = CurrentSetup();
    const Long most = MostBattles(setup, *units_);
    // An empty field is completed when it is left.
    if (!HasArmies(setup, *units_) || setup.NumBattles.empty() || ToLong(setup.NumBattles) <= most)
        return;
    txtNumSimulations.SetText(ToText(most));
    // As if the field were left: its numbers are multiples of ten.
    txtNumSimulations_LostFocus();
    Noticed.Raise("Lowered to " + txtNumSimulations.Text() +
                  " battles, the most whose losses can be added up");
}

bool frmBrawlpad::VerifyForm() {
    const Trap trap{"frmBrawlpad::VerifyForm"};
    if (lstArmies.Attacker.ListCount() > 0 && lstArmies.Defender.ListCount() > 0)
        return true;
    WarnOfMissingArmies();
    return false;
}

bool frmBrawlpad::VerifyArmies() {
    const Trap trap{"frmBrawlpad::VerifyArmies"};
    if (HasArmies(CurrentSetup(), *units_))
        return true;
    WarnOfMissingArmies();
    return false;
}

void frmBrawlpad::WarnOfMissingArmies() {
    toolkit_->ShowMessage("You need to specify attacking and defending armies.");
}

void frmBrawlpad::FillArmyCollections() {
    const Trap trap{"frmBrawlpad::FillArmyCollections"};
    assemblyHost_.NumArmyTypes = NumArmies();
    const Setup& setup = lastRun_.AsFought();
    assemblyHost_.DefenderTerrain = setup.Terrain;
    const auto& [attackers, defenders] = setup.Sides;
    for (Long position = 0; position < SizeOf(attackers); ++position)
        AddAttacker(attackers[position.Index()].Unit, position);
    for (Long position = 0; position < SizeOf(defenders); ++position)
        AddDefender(defenders[position.Index()].Unit, position);
}

void frmBrawlpad::AddAttacker(Long row, Long position) {
    const Trap trap{"frmBrawlpad::AddAttacker"};
    AddEntry(*gobjCAttArmies, Side::Attacker, row, position);
}

void frmBrawlpad::AddDefender(Long row, Long position) {
    const Trap trap{"frmBrawlpad::AddDefender"};
    AddEntry(*gobjCDefArmies, Side::Defender, row, position);
}

void frmBrawlpad::AddEntry(CAttackArmies& armies, Side side, Long row, Long position) {
    assemblyHost_.OnHero = [this, side, position](CArmy& hero) { EditHero(hero, side, position); };
    const HealthRow& health = lastRun_.AsFought().Sides[side][position.Index()].Health;
    armies.Add(units_->EntryOf(row, health), LineKey(position));
}

void frmBrawlpad::ShowStats(CStackAtt& attackStack, CStackAtt& defendStack) {
    frmStats stats{*toolkit_, *provider_, lastRun_.AsFought().Terrain};
    stats.ShowStats(attackStack, defendStack, [&] { toolkit_->ShowModal(stats); });
}

void frmBrawlpad::ShowWinPercent(const std::string& text) {
    const MBattleCalc::ResultsTable& results = MBattleCalc::BattleResults;
    Long wins = 0;
    for (Long battle = 1; battle <= results.RowCount(); ++battle)
        wins += results(battle, MBattleCalc::ResultColumn::Winner);
    ResultsFrame.ShowWinPercent(text, wins, results.RowCount());
    lastRun_.ShowResults();
}

void frmBrawlpad::sscAbort_Click() {
    const Trap trap{"frmBrawlpad::sscAbort_Click"};
    MBattleCalc::AbortRequested = true;
}

} // namespace vorhaven
