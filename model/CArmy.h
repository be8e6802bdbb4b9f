// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/InternedText.h"
#include "base/Long.h"

namespace vorhaven {

/// Strength that a blessing gives, and that a curse takes back with it.
inline constexpr std::int32_t BlessingStrength = 1;
/// Strength that poison takes.
inline constexpr std::int32_t PoisonStrength = 1;
/// Hit points that disease takes.
inline constexpr std::int32_t DiseaseHits = 1;
inline constexpr std::int32_t MostMedals = 4;

/// One army or hero in a battle: its catalogue values, its conditions, the fighting values derived from them,
/// and what the engine keeps about it during a battle. Abilities are sizes, 0 for none.
struct CArmy {
    InternedText Name;
    /// Row of the unit in the catalogue: an army type below the number of army types, a hero type from there
    /// on.
    Long UnitID;
    /// Current hit points.
    Bounded<1, 4> Hits;
    /// Production turns that the unit costs.
    Long Turns;
    /// Terrain on which the unit gets its combat bonus, and the strength that it gains there.
    InternedText CBName;
    Long CBValue;
    /// Code and size of the unit's special power as the catalogue gives them.
    Long PowerType;
    Long PowerValue;

    // Conditions; poison and disease may also strike during a battle.
    bool Blessed = false;
    bool Poisoned = false;
    bool Diseased = false;

    /// Base strength before bonuses.
    Bounded<1, 255> StartStrength;
    /// Fighting strength: the number of faces of the combat die that hit.
    Bounded<1, 14> TotalStrength;

    // What the army gives to its stack.
    Long Morale;
    Long Fear;
    Long Chaos;
    Long Siege;
    Long Fortify;
    /// Heroes only; no power code gives it.
    Long Leadership;

    // What the army itself can do.
    Long Trample;
    Long Curse;
    Long Acid;
    Long Banding;
    Long Lightning;

    bool IsHero = false;
    /// Number of medals, 0 to MostMedals.
    Long HasMedal;
    bool IsFlying = false;
    Long Assass;
    /// The power to infect, not the condition.
    Long Disease;
    Long Missle;
    /// The power to poison, not the condition.
    Long Poison;
    /// The army's assassination or missiles are used up for this battle.
    bool UsedSpecial = false;
    bool Blacksmith = false;
    bool Weaponsmaster = false;
    /// Hit points that the front defender gets back when a fresh attacking stack comes.
    Bounded<1, 4> StartHits;
    /// Shots left in this battle; 0 until the first missile duel loads them.
    Long MissleShotsLeft;
    bool IsUndead = false;
    Long Warding;

    void SetStartHits() { StartHits = Long{Hits}; }
    void RestoreStartHits() { Hits = Long{StartHits}; }
};

} // namespace vorhaven
