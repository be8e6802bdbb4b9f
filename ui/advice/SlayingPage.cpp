// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/SlayingPage.h"

#include "base/Conversion.h"

#include <algorithm>

namespace vorhaven {
namespace {

// Beyond so many armies the cells are small.
constexpr std::size_t MostAttackers = 16;
constexpr std::size_t MostDefenders = 12;

std::string Percent(double chance) {
    return PercentText({chance, 1.0 - chance});
}

} // namespace

std::string SlayingPage::Army::NameWithConditions() const {
    return Conditions.empty() ? Name : Name + " (" + Conditions + ")";
}

SlayingPage::SlayingPage(AdviceHost& host) : AdvicePage("&Who Slays Whom", host) {}

void SlayingPage::ShowResults() {
    // The places of the list's armies in the order of fighting.
    PerSide<std::vector<std::size_t>> places;
    for (const Side side : BothSides) {
        armies_[side].clear();
        const auto order = LinesInOrderOfFighting(Present(), side, GetUnits());
        auto lines = order;
        std::ranges::sort(lines);
        for (const std::size_t line : lines) {
            const SetupLine& army = Present().Sides[side][line];
            const bool beginsStack = side == Side::Attacker && !armies_[side].empty() &&
                                     (armies_[side].back().Line - 1) / LinesPerStack != line / LinesPerStack;
            armies_[side].push_back(
                {GetUnits().Name(army.Unit), InWords(army.Health), line + 1, army.Id, beginsStack});
            places[side].push_back(static_cast<std::size_t>(std::ranges::find(order, line) - order.begin()));
        }
    }
    slayings_.clear();
    for (std::size_t attacker = 0; attacker < armies_.Attacker.size(); ++attacker) {
        auto& row = slayings_.emplace_back();
        for (std::size_t defender = 0; defender < armies_.Defender.size(); ++defender) {
            const Odds::Slaying& each =
                GetOdds().Slayings[places.Attacker[attacker]][places.Defender[defender]];
            row.push_back(each);
            armies_.Attacker[attacker].Slays += each.ByAttacker;
            armies_.Attacker[attacker].IsSlain += each.ByDefender;
            armies_.Defender[defender].Slays += each.ByDefender;
            armies_.Defender[defender].IsSlain += each.ByAttacker;
        }
    }
    const auto placeOf = [this](Side side) {
        const auto same = std::ranges::find(armies_[side], currentIds_[side], &Army::Id);
        const auto last = std::prev(armies_[side].end());
        return static_cast<std::size_t>((same == armies_[side].end() ? last : same) - armies_[side].begin());
    };
    Pick({placeOf(Side::Attacker), placeOf(Side::Defender)});
    Changed.Raise();
}

std::string SlayingPage::Figure(double chance) {
    return chance <= 0.0 ? "" : PercentFigure({chance, 1.0 - chance}, 0);
}

std::string SlayingPage::Sentence(std::size_t attacker, std::size_t defender) const {
    const Army& slayer = armies_.Attacker[attacker];
    const Army& slain = armies_.Defender[defender];
    const Odds::Slaying& pair = At(attacker, defender);
    return "Line " + std::to_string(slayer.Line) + ", " + slayer.NameWithConditions() + ", slays line " +
           std::to_string(slain.Line) + ", " + slain.NameWithConditions() + ", in " +
           Percent(pair.ByAttacker) + " of battles, and is slain by it in " + Percent(pair.ByDefender);
}

bool SlayingPage::IsSmall() const {
    return armies_.Attacker.size() > MostAttackers || armies_.Defender.size() > MostDefenders;
}

std::string SlayingPage::SumText(double sum, Side side) const {
    if (side == Side::Attacker || !IsSmall())
        return ToFixedText(sum, IsSmall() ? 1 : 2);
    // Tenths without their "0", and whole numbers.
    const std::string text = ToFixedText(sum, 1);
    if (text == "0.0")
        return "";
    return text.front() == '0' ? text.substr(1) : ToFixedText(sum, 0);
}

std::string SlayingPage::TotalText(double sum) {
    return ToFixedText(sum, 1);
}

double SlayingPage::TotalSlain(Side side) const {
    double sum = 0.0;
    for (const Army& army : armies_[side])
        sum += army.IsSlain;
    return sum;
}

void SlayingPage::Pick(const Cell& cell) {
    current_ = cell;
    currentIds_ = {armies_.Attacker[cell.Attacker].Id, armies_.Defender[cell.Defender].Id};
    lblSentence.Caption = Sentence(cell.Attacker, cell.Defender);
}

} // namespace vorhaven
