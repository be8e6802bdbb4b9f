// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CArmy.h"

namespace vorhaven {

/// What the user can enter for a hero in its editor.
struct HeroValues {
    Long Strength;
    Long Hits;
    Long Leadership;
    Long Morale;
    Long Fortification;
    Long Chaos;
    Long Fear;
    Long Siege;
    Long Assass;
    Long Missle;
    Long Curse;
    Long Acid;
    Long Lightning;
    Long Trample;

    bool operator==(const HeroValues&) const = default;

    /// The values of a record as the editor has left it.
    [[nodiscard]] static HeroValues From(const CArmy& hero) {
        HeroValues values;
        values.Strength = hero.StartStrength;
        values.Hits = hero.Hits;
        values.Leadership = hero.Leadership;
        values.Morale = hero.Morale;
        values.Fortification = hero.Fortify;
        values.Chaos = hero.Chaos;
        values.Fear = hero.Fear;
        values.Siege = hero.Siege;
        values.Assass = hero.Assass;
        values.Missle = hero.Missle;
        values.Curse = hero.Curse;
        values.Acid = hero.Acid;
        values.Lightning = hero.Lightning;
        values.Trample = hero.Trample;
        return values;
    }

    /// Writes the values into a record, which clamps strength and hits.
    void ApplyTo(CArmy& hero) const {
        hero.StartStrength = Strength;
        hero.Hits = Hits;
        hero.Leadership = Leadership;
        hero.Morale = Morale;
        hero.Fortify = Fortification;
        hero.Chaos = Chaos;
        hero.Fear = Fear;
        hero.Siege = Siege;
        hero.Assass = Assass;
        hero.Missle = Missle;
        hero.Curse = Curse;
        hero.Acid = Acid;
        hero.Lightning = Lightning;
        hero.Trample = Trample;
    }
};

} // namespace vorhaven
