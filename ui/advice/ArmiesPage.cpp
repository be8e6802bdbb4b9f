// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/ArmiesPage.h"

#include "base/Conversion.h"
#include "model/BattleWords.h"

namespace vorhaven {

ArmiesPage::ArmiesPage(AdviceHost& host) : AdvicePage("&Armies", host) {
    tblArmies.CurrentChanged = [this] { ShowSentence(); };
    tblArmies.Activated = [this] {
        Host().Settle();
        if (!IsUpToDate() || !tblArmies.Current())
            return;
        const Place& place = places_[*tblArmies.Current()];
        Host().SelectLines(place.OfSide, {place.Line});
    };
}

std::unique_ptr<Study> ArmiesPage::MakeStudy() {
    return std::make_unique<WorthStudy>(Present(), GetUnits());
}

AdviceTable::Row ArmiesPage::RowOf(const SetupLine& line, Side side, const LineWorth& worth) const {
    AdviceTable::Row row;
    row.Key = std::to_string(line.Id);
    row.OfSide = side;
    const double share = ShareOf(worth.Survives);
    row.Cells = {{GetUnits().Name(line.Unit)},
                 {InWords(line.Health)},
                 {PercentText(worth.Survives), share, {}, share},
                 NumberCell(worth.Slays.Armies, 2),
                 NumberCell(worth.Slays.Turns, 2)};
    if (worth.Without) {
        const double without = ShareOf(worth.Without->Won);
        row.Cells.push_back({PercentText(worth.Without->Won), without});
        row.Cells.push_back(ChangeCell(100.0 * (without - Wins())));
    } else {
        row.Cells.insert(row.Cells.end(), 2, {"–"});
    }
    return row;
}

void ArmiesPage::ShowResults() {
    const auto& worths = dynamic_cast<const WorthStudy&>(*CurrentStudy()).Lines();
    std::vector<AdviceTable::Row> rows;
    places_.clear();
    sentences_.clear();
    for (const Side side : BothSides) {
        rows.push_back({{{std::string(SideHeadings[side])}}, {}, {}, side, true});
        places_.emplace_back();
        sentences_.emplace_back();
        const auto& lines = Present().Sides[side];
        for (std::size_t line = 0; line < lines.size(); ++line) {
            const auto& worth = worths[side][line];
            if (!worth)
                continue;
            rows.push_back(RowOf(lines[line], side, *worth));
            places_.push_back({side, line});
            const auto& cells = rows.back().Cells;
            sentences_.push_back(cells[0].Text + " survives " + cells[2].Text + ", slays " + cells[3].Text +
                                 " armies (" + cells[4].Text + " turns)" +
                                 (worth->Without ? "; without it the attacker wins " + cells[5].Text : ""));
        }
    }
    tblArmies.SetRows(std::move(rows));
}

void ArmiesPage::ShowSentence() {
    const auto row = tblArmies.Current();
    lblSentence.Caption = row && *row < sentences_.size() ? sentences_[*row] : "";
}

} // namespace vorhaven
