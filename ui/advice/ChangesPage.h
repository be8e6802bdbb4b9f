// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/AdvicePage.h"
#include "ui/advice/Changes.h"

namespace vorhaven {

/// What each single change of the set-up would do, the greatest gain first.
class ChangesPage final : public AdvicePage {
public:
    explicit ChangesPage(AdviceHost& host);

    Label lblAbove{"Each alone, beside all that is set up now"};
    Label lblShow{"S&how:"};
    ComboBox cboShow{"Select the changes to show"};
    AdviceTable tblChanges{"Single changes",
                           {{"Change", false},
                            {"Attacker wins"},
                            {"gain", true, AdviceTable::Weight::Strong},
                            {.Header = "Own turns lost", .IsCost = true},
                            {.Header = "more", .Look = AdviceTable::Weight::Quiet, .IsCost = true}}};
    Label lblSentence;
    Button cmdApply{"A&pply", "Make this change"};

    [[nodiscard]] std::vector<AdviceTable*> Tables() override { return {&tblChanges}; }

private:
    [[nodiscard]] std::unique_ptr<Study> MakeStudy() override;
    [[nodiscard]] std::string Counted() const override { return " changes tried"; }
    void ShowResults() override;
    void EnableButtons() override;
    /// Shows the changes of the chosen kind.
    void ShowKind();
    void ShowSentence();
    void Apply();

    std::vector<TriedChange> changes_;
    /// By row.
    std::vector<std::size_t> shown_;
};

} // namespace vorhaven
