// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/results/frmStats.h"

#include "base/Conversion.h"
#include "engine/MBattleCalc.h"
#include "ui/results/Strength.h"

namespace vorhaven {
namespace {

constexpr std::int32_t TotalStrengthColumn = 2;

std::string RawTip(const std::string& power, const std::string& stack) {
    return "The " + power + " value for the " + stack +
           " stack, NOT including any effects from the opposing stack";
}

std::string AdjustedTip(const std::string& power, const std::string& stack, const std::string& opposing) {
    return "The " + power + " value for the " + stack +
           " stack, adjusted for the effects of the enemy stack's " + opposing + " bonus";
}

} // namespace

StackPanel::StackPanel(const std::string& stack)
    : Raw{{{Label{"Raw Leadership:"}, Label{"", RawTip("Leadership", stack)}},
           {Label{"Raw Morale:"}, Label{"", RawTip("Morale", stack)}},
           {Label{"Raw Fortification:"}, Label{"", RawTip("Fortification", stack)}},
           {Label{"Raw Chaos:"}, Label{"", RawTip("Chaos", stack)}},
           {Label{"Raw Fear:"}, Label{"", RawTip("Fear", stack)}},
           {Label{"Raw Siege:"}, Label{"", RawTip("Siege", stack)}}}},
      Adjusted{{{Label{"Adjusted Leadership:"}, Label{"", AdjustedTip("Leadership", stack, "Chaos")}},
                {Label{"Adjusted Morale:"}, Label{"", AdjustedTip("Morale", stack, "Fear")}},
                {Label{"Adjusted Fortification:"}, Label{"", AdjustedTip("Fortification", stack, "Siege")}}}},
      StackBonus{
          Label{"Total Stack Bonus:"},
          Label{"", "The final stack bonus, ajusted into the range of -3 to +5, and applied to the stregth "
                    "of each army in the stack"}} {}

void StackPanel::ShowRaw(const CStackAtt& stack) {
    StackBonus.Figure.Caption = ToText(stack.TotalStackBonus);
    const std::array<Long, 6> values{stack.StackLeadership, stack.StackMorale, stack.StackFortify,
                                     stack.StackChaos,      stack.StackFear,   stack.StackSiege};
    for (std::size_t i = 0; i < values.size(); ++i)
        Raw[i].Figure.Caption = ToText(values[i]);
}

void StackPanel::ShowAdjusted(const CStackAtt& stack, const CStackAtt& enemy) {
    const std::array<Long, 3> values{stack.StackLeadership - enemy.StackChaos,
                                     stack.StackMorale - enemy.StackFear,
                                     stack.StackFortify - enemy.StackSiege};
    for (std::size_t i = 0; i < values.size(); ++i)
        Adjusted[i].Figure.Caption = ToText(MBattleCalc::PowerFilter(values[i]));
}

frmStats::frmStats(Desktop& desktop, const CatalogueProvider& provider, std::string terrain)
    : Form("Stack Statistics"), desktop_(&desktop), provider_(&provider), terrain_(std::move(terrain)) {
    sscDone.Click = [this] { sscDone_Click(); };
    for (std::size_t side = 0; side < msfgStackStats.size(); ++side)
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
    FillGrid(msfgStackStats[0], attackStack);
    FillGrid(msfgStackStats[1], defendStack);
    Panels[0].ShowRaw(attackStack);
    Panels[1].ShowRaw(defendStack);
    Panels[0].ShowAdjusted(attackStack, defendStack);
    Panels[1].ShowAdjusted(defendStack, attackStack);
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
