// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "ui/setup/frmBrawlpad.h"

#include <algorithm>

namespace vorhaven {
namespace {

std::optional<std::int32_t> PlaceIn(const ComboBox& box) {
    return box.ListIndex() < 0 ? std::nullopt : std::optional{box.ListIndex().Value()};
}

} // namespace

BattleText frmBrawlpad::TextFormat() const {
    return BattleText{{cboArmies[0].Items(), cboCityLevel.Items(), updCombatDice.Min, updCombatDice.Max,
                       [this](Long datum) { return UntouchedHero(datum); }}};
}

std::optional<HeroValues> frmBrawlpad::UntouchedHero(Long datum) const {
    if (datum < NumArmies() || datum >= NumArmies() + NumHeroes())
        return std::nullopt;
    const Long hero = datum - NumArmies();
    CArmy record;
    record.StartStrength = CellNumber(Heroes()(hero, HeroColumn::Strength));
    record.Hits = CellNumber(Heroes()(hero, HeroColumn::Hits));
    HeroValues values = HeroValues::From(record);
    values.Leadership = 1;
    return values;
}

BattleDescription::Line frmBrawlpad::DescriptionOf(Side side, Long line) const {
    const ListEntry& entry = lstArmies[Of(side)].Entry(line);
    const auto values = heroValues_.find(entry.Id);
    return {entry.Datum, health_[Of(side)](line + 1),
            values == heroValues_.end() ? std::nullopt : std::optional{values->second}};
}

std::string frmBrawlpad::SelectedLinesAsText(Side side) const {
    BattleDescription selected;
    for (const Long line : lstArmies[Of(side)].SelectedLines())
        selected.Loose.push_back(DescriptionOf(side, line));
    return TextFormat().Write(selected);
}

void frmBrawlpad::Copy(Side side) {
    if (const std::string text = SelectedLinesAsText(side); !text.empty())
        toolkit_->SetClipboardText(text);
}

BattleDescription frmBrawlpad::DescribeBattle() const {
    BattleDescription battle;
    for (const Side side : {Side::Attack, Side::Defend})
        for (Long line = 0; line < lstArmies[Of(side)].ListCount(); ++line)
            battle.Sides[Of(side)].push_back(DescriptionOf(side, line));
    battle.Terrain = PlaceIn(cboTerrain);
    battle.CityLevel = PlaceIn(cboCityLevel);
    battle.CombatDice = CombatDice;
    return battle;
}

std::string frmBrawlpad::BattleAsText() const {
    BattleDescription battle = DescribeBattle();
    // A number that is still being typed may be none yet, or too few.
    if (!numBattles_.empty() && NumBattles() >= BattleText::FewestBattles)
        battle.NumBattles = NumBattles();
    return TextFormat().Write(battle) + ResultsAsText();
}

std::string frmBrawlpad::ResultsAsText() const {
    if (!fought_)
        return {};
    std::string text = "\n" + fraQuickResults.Caption.Get() + "\n";
    const auto add = [&text](const Label& caption, const std::string& figure) {
        text += caption.Caption.Get() + " " + figure + "\n";
    };
    if (const std::string& remark = lblOutOfDate.Caption; !remark.empty())
        text += "(" + remark + ")\n";
    add(lblAttWinPercentCaption, lblAttWinPercent.Caption.Get() + " (" + lblWinMargin.Caption.Get() + ")");
    for (std::size_t column = FirstAverage; column <= LastAverage; ++column)
        add(lblAvgCaption[column], lblAvg[column].Caption);
    return text;
}

void frmBrawlpad::Paste(Side side, const std::string& text) {
    const Trap trap{"frmBrawlpad::Paste"};
    try {
        const BattleDescription battle = TextFormat().Read(text);
        const bool isWhole = !battle.Sides[0].empty() || !battle.Sides[1].empty();
        const Long kept = isWhole ? SizeOf(battle.Sides[Of(side)]) : lstArmies[Of(side)].ListCount();
        if (kept + SizeOf(battle.Loose) > MaxLines) {
            Noticed.Raise("The list would hold more than " + ToText(MaxLines) +
                          " armies, so nothing was pasted");
            return;
        }
        if (isWhole)
            for (const Side each : {Side::Attack, Side::Defend}) {
                lstArmies[Of(each)].Clear();
                health_[Of(each)] = {};
                AddLines(each, battle.Sides[Of(each)]);
            }
        AddLines(side, battle.Loose);
        if (battle.Terrain)
            cboTerrain.Choose(*battle.Terrain);
        if (battle.CityLevel)
            cboCityLevel.Choose(*battle.CityLevel);
        if (battle.CombatDice)
            txtCombatDice.SetText(ToText(*battle.CombatDice));
        if (battle.NumBattles)
            txtNumSimulations.SetText(ToText(*battle.NumBattles));
    } catch (const BattleTextError& error) {
        toolkit_->ShowMessage(std::string(error.what()) + "\nNothing was pasted.");
    }
}

void frmBrawlpad::AddLines(Side side, const std::vector<BattleDescription::Line>& lines) {
    ListBox& list = lstArmies[Of(side)];
    for (const BattleDescription::Line& line : lines) {
        const auto unit = std::ranges::find(cboArmies[0].Items(), line.Datum, &ListEntry::Datum);
        const ListEntry entry = NewLine(unit->Text, line.Datum);
        list.AddItem(entry);
        if (line.Hero)
            heroValues_[entry.Id] = *line.Hero;
        health_[Of(side)](list.ListCount()) = line.Health;
        if (line.Health != HealthRow{})
            MarkLine(side, list.ListCount() - 1);
    }
    AdjustDefTerrain(side, list.ListCount());
}

} // namespace vorhaven
