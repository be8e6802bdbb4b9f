// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/AdvicePage.h"
#include "ui/advice/Worth.h"

namespace vorhaven {

/// What each line of both sides does in the battle, and how the battle goes without it.
class ArmiesPage final : public AdvicePage {
public:
    explicit ArmiesPage(AdviceHost& host);

    AdviceTable tblArmies{"Armies of both sides",
                          {{"Army", false},
                           {"Conditions", false, AdviceTable::Weight::Quiet},
                           {"Survives"},
                           {"Slays\narmies"},
                           {"Slays\nturns"},
                           {"Without it the\nattacker wins"},
                           {"change", true, AdviceTable::Weight::Quiet}}};
    /// What the current row says, in one sentence.
    Label lblSentence;

    [[nodiscard]] std::vector<AdviceTable*> Tables() override { return {&tblArmies}; }

private:
    /// The line of a row.
    struct Place {
        Side OfSide = Side::Attacker;
        std::size_t Line = 0;
    };

    [[nodiscard]] std::unique_ptr<Study> MakeStudy() override;
    [[nodiscard]] std::string Counted() const override { return " armies left out in turn"; }
    void ShowResults() override;
    [[nodiscard]] AdviceTable::Row RowOf(const SetupLine& line, Side side, const LineWorth& worth) const;
    void ShowSentence();

    /// By row; those of headings mean nothing.
    std::vector<Place> places_;
    std::vector<std::string> sentences_;
};

} // namespace vorhaven
