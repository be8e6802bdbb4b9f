// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/ListBox.h"
#include "ui/setup/HealthArray.h"

#include <array>
#include <string>
#include <vector>

namespace vorhaven {

/// A line of an army list with its conditions.
struct SetupLine {
    ListEntry Entry;
    HealthRow Health;

    bool operator==(const SetupLine& other) const {
        return Entry == other.Entry && Entry.Id == other.Entry.Id && Health == other.Health;
    }
};

/// All that the player has set up in the main window, as a value: it can be kept, compared and put back.
struct Setup {
    /// 0 attack, 1 defence.
    std::array<std::vector<SetupLine>, 2> Sides;
    /// Places in the boxes of terrain and city level.
    Long Terrain;
    Long CityLevel;
    bool IsTerrainLocked = false;
    /// Texts of the number fields.
    std::string CombatDice;
    std::string NumBattles;

    bool operator==(const Setup&) const = default;
};

} // namespace vorhaven
