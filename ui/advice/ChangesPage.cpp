// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/ChangesPage.h"

#include <array>

namespace vorhaven {
namespace {

/// The kinds of changes as their box lists them, below "all changes".
constexpr std::array Kinds{std::pair{ChangeKind::Condition, "conditions"},
                           std::pair{ChangeKind::OneMoreArmy, "one more army"},
                           std::pair{ChangeKind::Place, "terrain and city"}};

} // namespace

ChangesPage::ChangesPage(AdviceHost& host) : AdvicePage("&Changes", host) {
    cboShow.AddItem("all changes");
    for (const auto& [kind, name] : Kinds)
        cboShow.AddItem(name);
    cboShow.SetListIndex(0);
    cboShow.Click = [this] { ShowKind(); };
    tblChanges.CurrentChanged = [this] {
        ShowSentence();
        EnableButtons();
    };
    tblChanges.Activated = [this] { Apply(); };
    cmdApply.Click = [this] { Apply(); };
    cmdApply.Enabled = false;
}

std::unique_ptr<Study> ChangesPage::MakeStudy() {
    return std::make_unique<ChangesStudy>(Present(), GetUnits());
}

void ChangesPage::ShowResults() {
    changes_ = dynamic_cast<const ChangesStudy&>(*CurrentStudy()).Changes();
    ShowKind();
}

void ChangesPage::ShowKind() {
    std::vector<AdviceTable::Row> rows;
    shown_.clear();
    const Long choice = cboShow.ListIndex();
    for (std::size_t index = 0; index < changes_.size(); ++index) {
        const TriedChange& tried = changes_[index];
        if (choice > 0 && Kinds.at((choice - 1).Index()).first != tried.Change.Kind)
            continue;
        const Prospect& outcome = tried.Outcome;
        rows.push_back({{{tried.Change.Text},
                         {PercentText(outcome.Won), ShareOf(outcome.Won)},
                         GainCell(100.0 * tried.Gain),
                         NumberCell(outcome.OwnTurnsLost, 1),
                         DifferenceCell(outcome.OwnTurnsLost - OwnTurnsLost(), 1)},
                        tried.Change.Text,
                        tried.Change.Tooltip});
        shown_.push_back(index);
    }
    tblChanges.SetRows(std::move(rows));
}

void ChangesPage::ShowSentence() {
    const auto row = tblChanges.Current();
    lblSentence.Caption = !row ? ""
                               : tblChanges.Rows()[*row].Cells[0].Text + ": the attacker wins " +
                                     tblChanges.Rows()[*row].Cells[1].Text + " instead of " + WinsText();
}

void ChangesPage::EnableButtons() {
    cmdApply.Enabled = CanAct() && tblChanges.Current();
}

void ChangesPage::Apply() {
    Host().Settle();
    if (!IsUpToDate() || !tblChanges.Current())
        return;
    const Setup after = changes_[shown_[*tblChanges.Current()]].Change.After;
    // The next current row is the first, whatever it says.
    tblChanges.SetCurrent(std::nullopt);
    Host().Use(after);
}

} // namespace vorhaven
