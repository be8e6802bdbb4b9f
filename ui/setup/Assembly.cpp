// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "engine/MBattleCalc.h"
#include "ui/hero/frmHero.h"
#include "ui/results/frmStats.h"
#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {

void frmBrawlpad::cmdAttack_Click() {
    const Trap trap{"frmBrawlpad::cmdAttack_Click"};
    sscExit.Enabled = false;
    sscMoreResults.Enabled = false;
    if (VerifyForm() && VerifyArmies()) {
        if (gobjCAttArmies)
            gobjCAttArmies = CAttackArmies{*this};
        if (gobjCDefArmies)
            gobjCDefArmies = CAttackArmies{*this};
        cmdAttack.Enabled = false;
        sscSwapSides.Enabled = false;
        assembledSetup_ = CurrentSetup();
        FillArmyCollections();
        assembled_ = DescribeBattle();
        sscAbort.Enabled = true;
        MBattleCalc::Add(*this, NumBattles(), CombatDice, sschkViewStats.Checked,
                         cboCityLevel.ListIndex() + 1);
        moreResults_.RunFinished();
        sscAbort.Enabled = false;
        cmdAttack.Enabled = true;
        sscSwapSides.Enabled = true;
        sscMoreResults.Enabled = true;
    }
    sscExit.Enabled = true;
}

bool frmBrawlpad::VerifyForm() {
    const Trap trap{"frmBrawlpad::VerifyForm"};
    if (lstArmies[0].ListCount() > 0 && lstArmies[1].ListCount() > 0)
        return true;
    WarnOfMissingArmies();
    return false;
}

bool frmBrawlpad::VerifyArmies() {
    const Trap trap{"frmBrawlpad::VerifyArmies"};
    if (HasArmy(Side::Attack, LinesPerStack) && HasArmy(Side::Defend, MaxLines))
        return true;
    WarnOfMissingArmies();
    return false;
}

bool frmBrawlpad::HasArmy(Side side, Long lineCount) const {
    const ListBox& list = lstArmies[Of(side)];
    for (Long line = 0; line < list.ListCount() && line < lineCount; ++line)
        if (list.Entry(line).Datum < NumArmies() + NumHeroes())
            return true;
    return false;
}

void frmBrawlpad::WarnOfMissingArmies() {
    toolkit_->ShowMessage("You need to specify attacking and defending armies.");
}

void frmBrawlpad::FillArmyCollections() {
    const Trap trap{"frmBrawlpad::FillArmyCollections"};
    // As the lists stood when Attack was pressed: between two heroes' editors events are processed.
    for (Long line = 0; line < SizeOf(assembledSetup_.Sides[0]); ++line)
        AddAttacker(assembledSetup_.Sides[0][line.Index()].Entry.Datum, line);
    for (Long line = 0; line < SizeOf(assembledSetup_.Sides[1]); ++line)
        AddDefender(assembledSetup_.Sides[1][line.Index()].Entry.Datum, line);
}

void frmBrawlpad::AddAttacker(Long row, Long position) {
    const Trap trap{"frmBrawlpad::AddAttacker"};
    AddEntry(Side::Attack, row, position);
}

void frmBrawlpad::AddDefender(Long row, Long position) {
    const Trap trap{"frmBrawlpad::AddDefender"};
    AddEntry(Side::Defend, row, position);
}

ArmyEntry frmBrawlpad::EntryOf(Long row, const HealthRow& health) const {
    ArmyEntry entry;
    if (row < NumArmies()) {
        entry.Name = CellText(Armies()(row, ArmyColumn::Name));
        entry.UnitID = CellNumber(Armies()(row, ArmyColumn::Identifier));
        entry.StartStrength = CellNumber(Armies()(row, ArmyColumn::Strength));
        entry.Hits = CellNumber(Armies()(row, ArmyColumn::Hits));
        entry.Turns = CellNumber(Armies()(row, ArmyColumn::Turns));
        entry.CBName = CellText(Armies()(row, ArmyColumn::BonusTerrain));
        entry.CBValue = CellNumber(Armies()(row, ArmyColumn::BonusSize));
        entry.PowerType = CellNumber(Armies()(row, ArmyColumn::PowerCode));
        entry.PowerValue = CellNumber(Armies()(row, ArmyColumn::PowerSize));
        entry.IsUndead = CheckIfUndead(row);
    } else if (row < NumArmies() + NumHeroes()) {
        const Long hero = row - NumArmies();
        entry.Name = CellText(Heroes()(hero, HeroColumn::Name));
        entry.UnitID = row;
        entry.StartStrength = CellNumber(Heroes()(hero, HeroColumn::Strength));
        entry.Hits = CellNumber(Heroes()(hero, HeroColumn::Hits));
        entry.CBName = CellText(Heroes()(hero, HeroColumn::BonusTerrain));
        entry.CBValue = CellNumber(Heroes()(hero, HeroColumn::BonusSize));
        // A code that gives no power: a hero's powers come from its editor.
        entry.PowerType = 1;
        entry.PowerValue = 1;
    } else {
        entry.Name = NoArmy;
    }
    entry.IsBlessed = health.Blessed;
    entry.IsDiseased = health.Diseased;
    entry.IsPoisoned = health.Poisoned;
    entry.HasMedal = health.Medals;
    entry.IsBlacksmith = health.Blacksmith;
    entry.IsWeaponsmaster = health.Weaponsmaster;
    entry.IsFlying = health.Flying;
    return entry;
}

void frmBrawlpad::AddEntry(Side side, Long row, Long position) {
    const ArmyEntry entry = EntryOf(row, assembledSetup_.Sides[Of(side)][position.Index()].Health);
    assembledSide_ = side;
    assembledLine_ = position;
    (side == Side::Attack ? gobjCAttArmies : gobjCDefArmies)->Add(entry, LineKey(position));
}

bool frmBrawlpad::CheckIfUndead(Long row) const {
    const Trap trap{"frmBrawlpad::CheckIfUndead"};
    const auto isUndead = [&](Long column) {
        return ToTrimmedLower(CellText(Armies()(row, column))) == "undead";
    };
    return isUndead(ArmyColumn::FirstTrait) || isUndead(ArmyColumn::SecondTrait);
}

void frmBrawlpad::EditHero(CArmy& hero) {
    // The list behind the editor shows whose turn it is.
    ListBox& list = lstArmies[Of(assembledSide_)];
    const ListBox::Selection selection = list.CurrentSelection();
    list.Select({assembledLine_, {assembledLine_}});
    frmHero editor{*toolkit_};
    editor.Hero = &hero;
    editor.Whereabouts = FrameOf(assembledSide_).Caption.Get() + ", line " + ToText(assembledLine_ + 1);
    const std::int32_t id = assembledSetup_.Sides[Of(assembledSide_)][assembledLine_.Index()].Entry.Id;
    if (const auto values = heroValues_.find(id); values != heroValues_.end())
        editor.LastValues = values->second;
    toolkit_->ShowModal(editor);
    heroValues_[id] = HeroValues::From(hero);
    list.Select(selection);
}

void frmBrawlpad::ShowAverage(Long column, const std::string& text) {
    lblAvg[column.Index()].Caption = text;
}

void frmBrawlpad::ShowStats(CStackAtt& attackStack, CStackAtt& defendStack) {
    frmStats stats{*toolkit_, *provider_, Terrain()};
    stats.ShowStats(attackStack, defendStack, [&] { toolkit_->ShowModal(stats); });
}

void frmBrawlpad::sscAbort_Click() {
    const Trap trap{"frmBrawlpad::sscAbort_Click"};
    MBattleCalc::AbortRequested = true;
}

} // namespace vorhaven
