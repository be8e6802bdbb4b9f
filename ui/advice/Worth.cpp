// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/Worth.h"

#include <algorithm>

namespace vorhaven {

WorthStudy::WorthStudy(const Setup& setup, const Units& units) : Study(setup, units) {
    for (const Side side : BothSides) {
        order_[side] = LinesInOrderOfFighting(setup, side, units);
        lines_[side].resize(setup.Sides[side].size());
        std::vector<std::size_t> fromTheTop = order_[side];
        std::ranges::sort(fromTheTop);
        for (const std::size_t line : fromTheTop)
            places_.push_back({side, line});
    }
}

Progress WorthStudy::HowFar() const {
    return {static_cast<std::int64_t>(next_), std::ssize(places_)};
}

bool WorthStudy::DoNext() {
    if (next_ == 0)
        NoteWorths();
    if (next_ == places_.size())
        return false;
    const auto [side, line] = places_[next_];
    lines_[side][line]->Without = Try(Without(Studied(), side, {line}));
    ++next_;
    return true;
}

void WorthStudy::NoteWorths() {
    const auto turns = [this](Side side, std::size_t place) {
        const SetupLine& line = Studied().Sides[side][order_[side][place]];
        return static_cast<double>(GetUnits().EntryOf(line.Unit, line.Health).Turns.Value());
    };
    for (const Side side : BothSides) {
        const std::vector<Chance> survival =
            SurvivalOf(side == Side::Attacker ? AsItIs()->Attackers : AsItIs()->Defenders);
        for (std::size_t place = 0; place < order_[side].size(); ++place)
            lines_[side][order_[side][place]] = LineWorth{survival[place], {}, {}};
    }
    for (std::size_t attacker = 0; attacker < order_.Attacker.size(); ++attacker)
        for (std::size_t defender = 0; defender < order_.Defender.size(); ++defender) {
            const auto add = [](Odds::Losses& slays, double chance, double victimsTurns) {
                slays.Armies += chance;
                slays.Turns += chance * victimsTurns;
            };
            const Odds::Slaying& pair = AsItIs()->Slayings[attacker][defender];
            add(lines_.Attacker[order_.Attacker[attacker]]->Slays, pair.ByAttacker,
                turns(Side::Defender, defender));
            add(lines_.Defender[order_.Defender[defender]]->Slays, pair.ByDefender,
                turns(Side::Attacker, attacker));
        }
}

} // namespace vorhaven
