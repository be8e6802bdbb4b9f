// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/AdvicePage.h"
#include "ui/advice/FewestArmies.h"

namespace vorhaven {

/// The cheapest part of the attackers that still wins often enough, and who may stay at home.
class FewestArmiesPage final : public AdvicePage {
public:
    explicit FewestArmiesPage(AdviceHost& host);

    // The sentence above, with the field in it.
    Label lblToWin{"To win at &least"};
    TextBox txtToWin{MaxNumberLength, ToWinToolTip};
    UpDown updToWin{txtToWin, 1, 99, 90, UpDown::Typing::WithinLimits, ToWinToolTip};
    Label lblSentence;
    AdviceTable tblParts{"Parts of the attackers",
                         {{.Header = "Turns\nsent", .IsCost = true},
                          {"Attacker\nwins"},
                          {"change", true, AdviceTable::Weight::Quiet},
                          {.Header = "Own turns\nlost", .IsCost = true}}};
    AdviceTable tblLines{"Who is sent and who may stay",
                         {{"Stack 1", false},
                          {"Conditions", false, AdviceTable::Weight::Quiet},
                          {"turns", true, AdviceTable::Weight::Quiet},
                          {"", false, AdviceTable::Weight::Strong}},
                         AdviceTable::Purpose::ToRead};
    /// Says also where not all parts were compared.
    Label lblBelow{InOrder};
    Button cmdSelect{"&Select What May Stay", "Select these lines in the list of the main window"};

    [[nodiscard]] std::vector<AdviceTable*> Tables() override { return {&tblParts, &tblLines}; }

private:
    static constexpr const char* ToWinToolTip = "Select the percentage of battles to win";
    static constexpr const char* InOrder = "In the order in which they stand now";

    [[nodiscard]] std::unique_ptr<Study> MakeStudy() override;
    [[nodiscard]] std::string Counted() const override;
    void ShowResults() override;
    void EnableButtons() override;
    /// Makes the cheapest part that wins often enough the current one.
    void FollowField();
    void ShowCurrent();
    void ShowLines();
    [[nodiscard]] std::string SentenceOf(const Part& part) const;
    /// The lines that the current part leaves out.
    [[nodiscard]] std::vector<std::size_t> MayStay() const;
    void Select();

    std::vector<Part> parts_;
    bool comparesAll_ = true;
    /// The user has picked the current row, which the field did not lead to.
    bool isPicked_ = false;
};

} // namespace vorhaven
