// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CAttackArmies.h"
#include "model/CStackAtt.h"
#include "model/Catalogue.h"
#include "ui/controls/Controls.h"
#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"

#include <array>
#include <functional>
#include <string>

namespace vorhaven {

/// The values of one stack: raw, adjusted for the enemy's powers, and in total.
class StackPanel {
public:
    /// A value and the caption beside it.
    struct Value {
        Label Caption;
        Label Figure;
    };

    /// `stack`: "attacking" or "defending", as the tooltips say it.
    explicit StackPanel(const std::string& stack);

    /// Leadership, morale, fortification, chaos, fear, siege.
    std::array<Value, 6> Raw;
    /// Leadership, morale, fortification.
    std::array<Value, 3> Adjusted;
    Value StackBonus;

    /// Shows the stack's values as they stand, and adjusted for those of the enemy.
    void ShowRaw(const CStackAtt& stack);
    void ShowAdjusted(const CStackAtt& stack, const CStackAtt& enemy);
};

/// The stack statistics: what the engine has made of the two stacks before the dice roll.
class frmStats final : public Form {
public:
    /// `desktop` and `provider` must outlive the window. `terrain`: the defender's.
    frmStats(Desktop& desktop, const CatalogueProvider& provider, std::string terrain);

    void Form_Load() override;

    /// Fills the window from two stacks whose effects are evaluated, then calls `showModal`.
    /// Raises error 9 for a stack that its grid cannot hold (8 attacking, 32 defending armies).
    void ShowStats(const CStackAtt& attackStack, const CStackAtt& defendStack,
                   const std::function<void()>& showModal);

    Button sscDone{"&Done"};
    Frame fraAttStack{"Attacking Stack"};
    Frame fraDefStack{"Defending Stack"};

    // Paired: 0 attack, 1 defence.
    std::array<Grid, 2> msfgStackStats{
        Grid{LinesPerStack + 1,
             "<Name                         |<Init Str  |<Tot Str  |<Hits     |<CB Name |<CB Val  |<Power "
             "Name |"
             "<Power Val |<Blessed |<Poisoned |<Diseased | Medals  ",
             "Dsiplays information about attacking armies"},
        Grid{MaxLines + 1,
             "<Name                       |<Init Str |<Tot Str |<Hits    |<CB Name |<CB Val  |<Power Name |"
             "<Power Val |<Blessed |<Poisoned |<Diseased | Medals  ",
             "Dsiplays information about defending armies"}};
    /// Below each grid: how the strength of its current army came about.
    std::array<Label, 2> lblStrength{Label{StrengthHint}, Label{StrengthHint}};
    std::array<StackPanel, 2> Panels{StackPanel{"attacking"}, StackPanel{"defending"}};

private:
    static constexpr const char* StrengthHint = "Select an army to see how its Tot Str came about";

    void FillGrid(Grid& grid, const CStackAtt& stack) const;
    void sscDone_Click();

    Desktop* desktop_;
    const CatalogueProvider* provider_;
    std::string terrain_;
};

} // namespace vorhaven
