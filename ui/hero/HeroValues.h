// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CArmy.h"

#include <array>

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
    [[nodiscard]] static HeroValues From(const CArmy& hero);

    /// The values with which the editor begins on a record: every hero has a leadership of 1 there, whatever
    /// the catalogue gave it.
    [[nodiscard]] static HeroValues AtFirst(const CArmy& hero);

    /// Writes the values into a record, which clamps strength and hits.
    void ApplyTo(CArmy& hero) const;
};

/// One of the numbers of HeroValues: what it is called, where it is kept, and how far its arrows go.
struct HeroNumber {
    /// The names of its text box and arrows are "txt" and "upd" with this.
    const char* Name;
    /// What people call it: a colon follows it in the editor, and battles as text have it in lower case.
    const char* Title;
    Long HeroValues::* Value;
    Long (*Read)(const CArmy&);
    void (*Write)(CArmy&, Long);
    std::int32_t Lowest;
    std::int32_t Highest;

    /// Whether the editor's field has room for a value, and a record keeps it as it is. Typing is not held to
    /// the limits of the arrows.
    [[nodiscard]] bool Holds(Long value) const;
};

namespace Detail {

template <auto RecordMember>
constexpr HeroNumber HeroNumberOf(const char* name, const char* title, Long HeroValues::* value,
                                  std::int32_t lowest, std::int32_t highest) {
    return {name,
            title,
            value,
            [](const CArmy& hero) { return Long{hero.*RecordMember}; },
            [](CArmy& hero, Long number) { hero.*RecordMember = number; },
            lowest,
            highest};
}

} // namespace Detail

/// All of a hero's numbers, in the order in which the editor stores them and a battle's text has them.
inline constexpr std::array<HeroNumber, 14> HeroNumbers{
    Detail::HeroNumberOf<&CArmy::StartStrength>("Strength", "Strength", &HeroValues::Strength, 1, 255),
    Detail::HeroNumberOf<&CArmy::Hits>("Hits", "Hits", &HeroValues::Hits, 1, 4),
    Detail::HeroNumberOf<&CArmy::Leadership>("Leadership", "Leadership", &HeroValues::Leadership, 1, 5),
    Detail::HeroNumberOf<&CArmy::Morale>("Morale", "Morale", &HeroValues::Morale, 0, 5),
    Detail::HeroNumberOf<&CArmy::Fortify>("Fortification", "Fortification", &HeroValues::Fortification, 0, 5),
    Detail::HeroNumberOf<&CArmy::Chaos>("Chaos", "Chaos", &HeroValues::Chaos, 0, 5),
    Detail::HeroNumberOf<&CArmy::Fear>("Fear", "Fear", &HeroValues::Fear, 0, 5),
    Detail::HeroNumberOf<&CArmy::Siege>("Siege", "Siege", &HeroValues::Siege, 0, 5),
    Detail::HeroNumberOf<&CArmy::Assass>("Assass", "Assassination", &HeroValues::Assass, 0, 10),
    Detail::HeroNumberOf<&CArmy::Missle>("Missle", "Missle", &HeroValues::Missle, 0, 10),
    Detail::HeroNumberOf<&CArmy::Curse>("Curse", "Curse", &HeroValues::Curse, 0, 10),
    Detail::HeroNumberOf<&CArmy::Acid>("Acid", "Acid", &HeroValues::Acid, 0, 10),
    Detail::HeroNumberOf<&CArmy::Lightning>("Lightning", "Lightning", &HeroValues::Lightning, 0, 10),
    Detail::HeroNumberOf<&CArmy::Trample>("Trample", "Trample", &HeroValues::Trample, 0, 3)};

} // namespace vorhaven
