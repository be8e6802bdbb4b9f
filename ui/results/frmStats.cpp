// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/results/frmStats.h"

#include "base/Conversion.h"
#include "engine/MBattleCalc.h"
#include "ui/results/Strength.h"

#include <utility>

namespace vorhaven {
namespace {

constexpr std::int32_t TotalStrengthColumn = 2;

using Group = StackValue::Group;

template <auto Own>
constexpr StackValue RawValue(const char* name, const char* power) {
    return {Group::Raw, name, power, "",
            [](const CStackAtt& stack, const CStackAtt& /*enemy*/) { return stack.*Own; }};
}

template <auto Own, auto Enemys>
constexpr StackValue AdjustedValue(const char* name, const char* power, const char* opposing) {
    return {Group::Adjusted, name, power, opposing, [](const CStackAtt& stack, const CStackAtt& enemy) {
                return MBattleCalc::PowerFilter(stack.*Own - enemy.*Enemys);
            }};
}

constexpr std::array<StackValue, StackPanel::RawValues + StackPanel::AdjustedValues + 1> StackValues{
    RawValue<&CStackAtt::StackLeadership>("RawLea", "Leadership"),
    RawValue<&CStackAtt::StackMorale>("RawMor", "Morale"),
    RawValue<&CStackAtt::StackFortify>("RawFor", "Fortification"),
    RawValue<&CStackAtt::StackChaos>("RawCha", "Chaos"),
    RawValue<&CStackAtt::StackFear>("RawFea", "Fear"),
    RawValue<&CStackAtt::StackSiege>("RawSie", "Siege"),
    AdjustedValue<&CStackAtt::StackLeadership, &CStackAtt::StackChaos>("AdjLea", "Leadership", "Chaos"),
    AdjustedValue<&CStackAtt::StackMorale, &CStackAtt::StackFear>("AdjMor", "Morale", "Fear"),
    AdjustedValue<&CStackAtt::StackFortify, &CStackAtt::StackSiege>("AdjFor", "Fortification", "Siege"),
    StackValue{
        Group::Total, "StackBonus", "Stack Bonus", "",
        [](const CStackAtt& stack, const CStackAtt& /*enemy*/) { return Long{stack.TotalStackBonus}; }}};

std::string CaptionOf(const StackValue& value) {
    const std::string group = value.In == Group::Raw        ? "Raw "
                              : value.In == Group::Adjusted ? "Adjusted "
                                                            : "Total ";
    return group + value.Power + ":";
}

std::string ToolTipOf(const StackValue& value, Side side) {
    if (value.In == Group::Total)
        return "The final stack bonus, ajusted into the range of -3 to +5, and applied to the stregth of each "
               "army in the stack";
    const std::string of = std::string("The ") + value.Power + " value for the " +
                           (side == Side::Attacker ? "attacking" : "defending") + " stack, ";
    return value.In == Group::Raw
               ? of + "NOT including any effects from the opposing stack"
               : of + "adjusted for the effects of the enemy stack's " + value.Opposing + " bonus";
}

template <std::size_t... Place>
std::array<StackPanel::Value, sizeof...(Place)> MakeValues(Side side,
                                                           std::index_sequence<Place...> /*places*/) {
    return {StackPanel::Value{StackValues[Place], side}...};
}

} // namespace

StackPanel::Value::Value(const StackValue& value, Side side)
    : Caption(CaptionOf(value)), Figure("", ToolTipOf(value, side)) {
    Figure.Name = (side == Side::Attacker ? "lblAtt" : "lblDef") + std::string(value.Name);
}

StackPanel::StackPanel(Side side)
    : Values(MakeValues(side, std::make_index_sequence<StackValues.size()>{})) {}

void StackPanel::Show(const CStackAtt& stack, const CStackAtt& enemy) {
    for (std::size_t i = 0; i < Values.size(); ++i)
        Values[i].Figure.Caption = ToText(StackValues[i].Of(stack, enemy));
}

frmStats::frmStats(Desktop& desktop, const CatalogueProvider& provider, std::string terrain)
    : Form("Stack Statistics"), desktop_(&desktop), provider_(&provider), terrain_(std::move(terrain)) {
    sscDone.Click = [this] { sscDone_Click(); };
    for (const Side side : BothSides)
        msfgStackStats[side].RowPicked = [this, side](Long row) {
            lblStrength[side].Caption = msfgStackStats[side].Details(row);
        };
}

void frmStats::Form_Load() {
    const Trap trap{"frmStats::Form_Load"};
    CentreOn(desktop_->ScreenSize());
}

void frmStats::ShowStats(const CStackAtt& attackStack, const CStackAtt& defendStack,
                         const std::function<void()>& showModal) {
    const Trap trap{"MBattleCalc::ShowStats"};
    FillGrid(msfgStackStats.Attacker, attackStack);
    FillGrid(msfgStackStats.Defender, defendStack);
    Panels.Attacker.Show(attackStack, defendStack);
    Panels.Defender.Show(defendStack, attackStack);
    showModal();
}

void frmStats::FillGrid(Grid& grid, const CStackAtt& stack) const {
    Long row = 0;
    for (const CArmy& army : stack) {
        ++row;
        const std::array<std::string, 12> texts{army.Name.Text(),
                                                ToText(army.StartStrength),
                                                ToText(army.TotalStrength),
                                                ToText(army.Hits),
                                                army.CBName.Text(),
                                                ToText(army.CBValue),
                                                provider_->PowerName(ToShort(army.PowerType)),
                                                ToText(army.PowerValue),
                                                BooleanText(army.Blessed),
                                                BooleanText(army.Poisoned),
                                                BooleanText(army.Diseased),
                                                ToText(army.HasMedal)};
        for (std::int32_t column = 0; column < SizeOf(texts); ++column) {
            const std::string& text = texts[static_cast<std::size_t>(column)];
            grid.SetText(row, column, text);
            if (text == BooleanText(false) || text == ToText(0))
                grid.Quieten(row, column);
        }
        grid.Emphasise(row, TotalStrengthColumn);
        grid.SetDetails(row, grid.Columns()[TotalStrengthColumn].Header + " of " + army.Name.Text() + ": " +
                                 SumText(ExplainStrength(army, stack, terrain_)));
    }
}

void frmStats::sscDone_Click() {
    // Reports know this procedure under the hero window's name.
    const Trap trap{"frmHero::sscDone_Click"};
    Unload();
    desktop_->ProcessEvents();
}

} // namespace vorhaven
