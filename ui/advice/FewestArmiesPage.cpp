// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/FewestArmiesPage.h"

#include "base/Conversion.h"

#include <algorithm>

namespace vorhaven {

FewestArmiesPage::FewestArmiesPage(AdviceHost& host) : AdvicePage("&Fewest Armies", host) {
    txtToWin.Change = [this] { FollowField(); };
    tblParts.CurrentChanged = [this] { ShowCurrent(); };
    tblParts.Picked = [this] {
        isPicked_ = true;
        ShowCurrent();
    };
    tblParts.Activated = [this] { Select(); };
    cmdSelect.Click = [this] { Select(); };
    cmdSelect.Enabled = false;
}

std::unique_ptr<Study> FewestArmiesPage::MakeStudy() {
    auto study = std::make_unique<FewestArmiesStudy>(Present(), GetUnits());
    comparesAll_ = study->ComparesAll();
    lblBelow.Caption = comparesAll_ ? InOrder : std::string(InOrder) + ", by search";
    return study;
}

std::string FewestArmiesPage::Counted() const {
    return comparesAll_ ? " parts compared" : " turns saved";
}

void FewestArmiesPage::ShowResults() {
    parts_ = dynamic_cast<const FewestArmiesStudy&>(*CurrentStudy()).Parts();
    std::vector<AdviceTable::Row> rows;
    for (const Part& part : parts_) {
        const double wins = ShareOf(part.Outcome.Won);
        AdviceTable::Cell change = ChangeCell(100.0 * (wins - Wins()));
        if (&part == &parts_.front())
            change = {"all", 0.0};
        rows.push_back({{NumberCell(part.Turns.Value(), 0),
                         {PercentText(part.Outcome.Won), wins},
                         change,
                         NumberCell(part.Outcome.OwnTurnsLost, 1)},
                        ToText(part.Turns)});
    }
    const bool wasPicked = isPicked_ && tblParts.Current();
    const std::string picked = wasPicked ? tblParts.Rows()[*tblParts.Current()].Key : "";
    tblParts.SetRows(std::move(rows));
    if (!wasPicked || tblParts.Rows()[tblParts.Current().value()].Key != picked)
        FollowField();
}

void FewestArmiesPage::FollowField() {
    isPicked_ = false;
    const auto isEnough = [this](const Part& part) {
        return 100.0 * ShareOf(part.Outcome.Won) >= updToWin.Value().Value();
    };
    const auto cheapest = std::find_if(parts_.rbegin(), parts_.rend(), isEnough);
    tblParts.SetCurrent(cheapest == parts_.rend()
                            ? std::nullopt
                            : std::optional{static_cast<std::size_t>(parts_.rend() - cheapest) - 1});
    ShowCurrent();
}

std::string FewestArmiesPage::SentenceOf(const Part& part) const {
    const Part& all = parts_.front();
    const auto count = [](const std::vector<std::size_t>& lines) { return ToText(SizeOf(lines)); };
    return "send " + count(part.Sent) + " of " + count(all.Sent) + " armies with " + ToText(part.Turns) +
           " of " + ToText(all.Turns) + " production turns: the attacker wins " +
           PercentText(part.Outcome.Won);
}

void FewestArmiesPage::ShowCurrent() {
    const auto row = tblParts.Current();
    if (parts_.empty() || tblParts.Rows().empty())
        lblSentence.Caption = "% of battles";
    else if (!row)
        lblSentence.Caption = "% of battles. Not even all of them: the attacker wins " + WinsText();
    else if (isPicked_)
        lblSentence.Caption = "% of battles. This row: " + SentenceOf(parts_[*row]);
    else if (*row == 0)
        lblSentence.Caption = "% of battles. All " + ToText(SizeOf(parts_.front().Sent)) + " are needed";
    else
        lblSentence.Caption = "% of battles, " + SentenceOf(parts_[*row]);
    ShowLines();
    EnableButtons();
}

std::vector<std::size_t> FewestArmiesPage::MayStay() const {
    std::vector<std::size_t> lines;
    if (const auto row = tblParts.Current(); row && !parts_.empty())
        std::ranges::set_difference(parts_.front().Sent, parts_[*row].Sent, std::back_inserter(lines));
    return lines;
}

void FewestArmiesPage::ShowLines() {
    std::vector<AdviceTable::Row> rows;
    const std::vector<std::size_t> mayStay = MayStay();
    std::size_t stack = 0;
    if (!tblParts.Rows().empty())
        for (const std::size_t line : parts_.front().Sent) {
            const SetupLine& army = Present().Sides.Attacker[line];
            if (line / LinesPerStack != stack) {
                stack = line / LinesPerStack;
                rows.push_back({{{"Stack " + std::to_string(stack + 1)}}, {}, {}, Side::Attacker, true});
            }
            const bool stays = std::ranges::binary_search(mayStay, line);
            const Long turns = GetUnits().EntryOf(army.Unit, army.Health).Turns;
            rows.push_back({{{GetUnits().Name(army.Unit)},
                             {InWords(army.Health)},
                             NumberCell(turns.Value(), 0),
                             {stays ? "may stay" : ""}},
                            std::to_string(army.Id)});
            rows.back().IsDimmed = stays;
        }
    tblLines.SetRows(std::move(rows));
}

void FewestArmiesPage::EnableButtons() {
    cmdSelect.Enabled = CanAct() && !MayStay().empty();
}

void FewestArmiesPage::Select() {
    Host().Settle();
    if (!IsUpToDate() || MayStay().empty())
        return;
    Host().SelectLines(Side::Attacker, MayStay());
    Host().GoToList(Side::Attacker);
}

} // namespace vorhaven
