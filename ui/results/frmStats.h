// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CAttackArmies.h"
#include "model/CStackAtt.h"
#include "model/Catalogue.h"
#include "model/Side.h"
#include "ui/controls/Controls.h"
#include "ui/controls/Form.h"
#include "ui/controls/Grid.h"

#include <array>
#include <functional>
#include <span>
#include <string>

namespace vorhaven {

/// One of the values that a panel of a stack shows.
struct StackValue {
    enum class Group { Raw, Adjusted, Total };

    Group In;
    /// The name of its label is "lblAtt" or "lblDef" with this.
    const char* Name;
    /// What the players call it.
    const char* Power;
    /// The enemy's power that counts against it; empty where none does.
    const char* Opposing;
    Long (*Of)(const CStackAtt& stack, const CStackAtt& enemy);
};

/// The values of one stack: six raw, three adjusted for the enemy's powers, and the total.
class StackPanel {
public:
    static constexpr std::size_t RawValues = 6;
    static constexpr std::size_t AdjustedValues = 3;

    /// A value and the caption beside it.
    struct Value {
        Value(const StackValue& value, Side side);

        Label Caption;
        Label Figure;
    };

    explicit StackPanel(Side side);

    std::array<Value, RawValues + AdjustedValues + 1> Values;
    [[nodiscard]] std::span<Value> Raw() { return std::span(Values).first<RawValues>(); }
    [[nodiscard]] std::span<Value> Adjusted() {
        return std::span(Values).subspan<RawValues, AdjustedValues>();
    }
    [[nodiscard]] std::span<Value> Total() { return std::span(Values).last<1>(); }

    void Show(const CStackAtt& stack, const CStackAtt& enemy);
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

    PerSide<Grid> msfgStackStats{
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
    PerSide<Label> lblStrength{Label{StrengthHint}, Label{StrengthHint}};
    PerSide<StackPanel> Panels{StackPanel{Side::Attacker}, StackPanel{Side::Defender}};

private:
    static constexpr const char* StrengthHint = "Select an army to see how its Tot Str came about";

    void FillGrid(Grid& grid, const CStackAtt& stack) const;
    void sscDone_Click();

    Desktop* desktop_;
    const CatalogueProvider* provider_;
    std::string terrain_;
};

} // namespace vorhaven
