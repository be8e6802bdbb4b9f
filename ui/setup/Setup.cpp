// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/Setup.h"

#include "base/Conversion.h"
#include "model/Terrain.h"

namespace vorhaven {

void Setup::ChooseTerrain(std::string_view terrain) {
    if (terrain == Terrain)
        return;
    Terrain = terrain;
    CityLevel = terrain == Terrains::City ? 1 : 0;
}

void Setup::AdjustTerrain() {
    IsTerrainLocked = IsCityForced(SizeOf(Sides.Defender));
    if (IsTerrainLocked)
        ChooseTerrain(Terrains::City);
}

std::string CompletedNumBattles(const std::string& text) {
    if (text.empty() || ToLong(text) < NumBattlesRange.Lowest)
        return ToText(NumBattlesRange.Lowest);
    return text.substr(0, text.size() - 1) + "0";
}

} // namespace vorhaven
