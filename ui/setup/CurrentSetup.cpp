// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "model/Terrain.h"
#include "ui/setup/frmBrawlpad.h"

#include <algorithm>

namespace vorhaven {

Setup frmBrawlpad::CurrentSetup() const {
    Setup setup;
    for (const Side side : BothSides)
        for (Long line = 0; line < lstArmies[side].ListCount(); ++line) {
            const ListEntry& entry = lstArmies[side].Entry(line);
            const auto hero = heroValues_.find(entry.Id);
            setup.Sides[side].push_back(
                {entry.Datum, entry.Text, Health(side)(line + 1),
                 hero == heroValues_.end() ? std::nullopt : std::optional{hero->second}, entry.Id});
        }
    setup.Terrain = Terrain();
    setup.IsTerrainLocked = !cboTerrain.Enabled;
    setup.CityLevel = cboCityLevel.ListIndex() + 1;
    setup.CombatDice = CombatDice;
    setup.NumBattles = numBattles_;
    return setup;
}

void frmBrawlpad::PutInPlace(const Setup& setup) {
    heroValues_.clear();
    for (const Side side : BothSides) {
        const std::vector<SetupLine>& lines = setup.Sides[side];
        const ListBox::Selection before = lstArmies[side].CurrentSelection();
        // Where an army of before is now, -1 for nowhere.
        const auto placeOf = [&](Long line) -> Long {
            const std::int32_t id = line < 0 ? 0 : lstArmies[side].Entry(line).Id;
            const auto place = std::ranges::find(lines, id, &SetupLine::Id);
            return id == 0 || place == lines.end() ? Long{-1}
                                                   : static_cast<std::int32_t>(place - lines.begin());
        };
        ListBox::Selection selection{placeOf(before.Current), {}};
        for (const Long line : before.Lines)
            selection.Lines.push_back(placeOf(line));
        std::vector<ListEntry> entries;
        Health(side) = {};
        for (const SetupLine& line : lines) {
            entries.push_back(line.Id == 0 ? NewLine(line.Text, line.Unit)
                                           : ListEntry{line.Text, line.Unit, line.Id});
            Health(side)(SizeOf(entries)) = line.Health;
            if (line.Hero)
                heroValues_[entries.back().Id] = *line.Hero;
        }
        lstArmies[side].SetEntries(entries);
        lstArmies[side].Select(selection);
    }
    cboTerrain.SetListIndex(Terrains::IndexOf(setup.Terrain));
    cboTerrain.Enabled = !setup.IsTerrainLocked;
    cboCityLevel.SetListIndex(setup.CityLevel - 1);
    txtCombatDice.SetText(ToText(setup.CombatDice));
    txtNumSimulations.SetText(setup.NumBattles);
}

} // namespace vorhaven
