// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/CAttackArmies.h"

#include "base/Conversion.h"
#include "model/Catalogue.h"

namespace vorhaven {

std::string LineKey(Long number) {
    return "SN" + ToText(number);
}

CArmy* CAttackArmies::Add(const ArmyEntry& entry, std::string_view sKey) {
    const Trap trap{"CAttackArmies::Add"};
    if (entry.Name == NoArmy)
        return nullptr;
    CArmy army;
    army.Name = entry.Name;
    army.UnitID = entry.UnitID;
    army.Hits = entry.Hits;
    army.Turns = entry.Turns;
    army.CBName = entry.CBName;
    army.CBValue = entry.CBValue;
    army.PowerType = entry.PowerType;
    army.PowerValue = entry.PowerValue;
    army.StartStrength = entry.StartStrength;
    army.Blessed = entry.IsBlessed;
    army.Diseased = entry.IsDiseased;
    army.Poisoned = entry.IsPoisoned;
    army.HasMedal = entry.HasMedal;
    army.Blacksmith = entry.IsBlacksmith;
    army.Weaponsmaster = entry.IsWeaponsmaster;
    army.IsFlying = entry.IsFlying;
    army.IsUndead = entry.IsUndead;
    MarkIfHero(army);

    CArmy& stored = armies_.Add(army, sKey);
    ApplySpecialBirth(stored);
    InterpretPower(stored);
    InterpretCB(stored);
    VerifyHealth(stored);
    return &stored;
}

const CArmy& CAttackArmies::Item(Long position) const {
    const Trap trap{"CAttackArmies::Item"};
    return armies_.Item(position);
}

const CArmy& CAttackArmies::Item(std::string_view key) const {
    const Trap trap{"CAttackArmies::Item"};
    return armies_.Item(key);
}

void CAttackArmies::Remove(Long position) {
    const Trap trap{"CAttackArmies::Remove"};
    armies_.Remove(position);
}

void CAttackArmies::Remove(std::string_view key) {
    const Trap trap{"CAttackArmies::Remove"};
    armies_.Remove(key);
}

void CAttackArmies::MarkIfHero(CArmy& army) const {
    const Trap trap{"CAttackArmies::MarkIfHero"};
    army.IsHero = army.UnitID >= host_->NumArmies();
    if (army.IsHero)
        host_->EditHero(army);
}

void CAttackArmies::ApplySpecialBirth(CArmy& army) {
    const Trap trap{"CAttackArmies::ApplySpecialBirth"};
    if (army.Blacksmith)
        army.StartStrength = army.StartStrength + 1;
    if (army.Weaponsmaster)
        army.Hits = army.Hits + 1;
}

void CAttackArmies::InterpretPower(CArmy& army) {
    const Trap trap{"CAttackArmies::InterpretPower"};
    if (army.IsHero)
        return;
    switch (PowerType{army.PowerType.Value()}) {
    case PowerType::Chaos:
        army.Chaos = army.PowerValue;
        break;
    case PowerType::Morale:
        army.Morale = army.PowerValue;
        break;
    case PowerType::Fear:
        army.Fear = army.PowerValue;
        break;
    case PowerType::Siege:
        army.Siege = army.PowerValue;
        break;
    case PowerType::Fortify:
        army.Fortify = army.PowerValue;
        break;
    case PowerType::Poison:
        army.Poison = army.PowerValue;
        break;
    case PowerType::Disease:
        army.Disease = army.PowerValue;
        break;
    case PowerType::Assass:
        army.Assass = army.PowerValue;
        break;
    case PowerType::Missle:
        army.Missle = army.PowerValue;
        break;
    case PowerType::Trample:
        army.Trample = army.PowerValue;
        break;
    case PowerType::Curse:
        army.Curse = army.PowerValue;
        break;
    case PowerType::Banding:
        army.Banding = army.PowerValue;
        break;
    case PowerType::Acid:
        army.Acid = army.PowerValue;
        break;
    case PowerType::Lightning:
        army.Lightning = army.PowerValue;
        break;
    case PowerType::Warding:
        army.Warding = army.PowerValue;
        break;
    }
}

void CAttackArmies::InterpretCB(CArmy& army) const {
    const Trap trap{"CAttackArmies::InterpretCB"};
    if (army.CBName.Text() == host_->Terrain())
        army.TotalStrength = army.StartStrength + army.CBValue;
    else
        army.TotalStrength = army.StartStrength;
}

void CAttackArmies::VerifyHealth(CArmy& army) {
    const Trap trap{"CAttackArmies::VerifyHealth"};
    if (army.Blessed) {
        army.Diseased = false;
        army.Poisoned = false;
        army.TotalStrength = army.TotalStrength + BlessingStrength;
    }
    if (army.Diseased)
        army.Hits = army.Hits - DiseaseHits;
    if (army.Poisoned)
        army.TotalStrength = army.TotalStrength - PoisonStrength;
}

} // namespace vorhaven
