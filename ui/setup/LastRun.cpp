// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/LastRun.h"

#include "odds/Budget.h"
#include "ui/setup/Battle.h"
#include "ui/setup/LiveOdds.h"

#include <algorithm>
#include <new>
#include <utility>

namespace vorhaven {
namespace {

/// The detailed results open at the press of a button, which may take longer than a key.
constexpr std::int64_t StepsForResults = 10 * LiveOdds::StepsWhileTyping;

/// The odds of each number of losses, of all numbers that there can be.
LossOdds LossOddsOf(const Odds::SideOdds& side) {
    LossOdds odds{};
    std::ranges::copy(side.ChanceOfLosing, odds.begin());
    return odds;
}

} // namespace

void LastRun::Begin(const Setup& setup) {
    last_ = {setup, setup};
    hasShownResults_ = false;
}

void LastRun::TakeHero(Side side, Long line, const HeroValues& values, bool isEntered) {
    last_.AsFought.Sides[side][line.Index()].Hero = values;
    if (isEntered)
        last_.AsEntered.Sides[side][line.Index()].Hero = values;
}

void LastRun::ShowResults() {
    shown_ = last_;
    hasShownResults_ = true;
}

void LastRun::End() {
    isAborted_ = !hasShownResults_;
    isToAnnounce_ = true;
}

std::string LastRun::RemarkOnResults(const Setup& now, const Units& units) const {
    if (!shown_)
        return isAborted_ ? "aborted" : "";
    const bool isFought = IsSameBattle(now, shown_->AsFought, units);
    const bool hasChanged = !isFought && !IsSameBattle(now, shown_->AsEntered, units);
    if (isAborted_)
        return hasChanged ? "before the abort and changes" : "before the aborted run";
    if (hasChanged)
        return "before the latest changes";
    return isFought ? "" : "with a hero's editor cancelled";
}

frmMoreResults::Background LastRun::Background(const PerSide<Long>& armyCounts, const Units& units) const {
    frmMoreResults::Background background{armyCounts};
    background.WhyNotExact = "too many outcomes to sum up";
    try {
        Odds::Budget budget{StepsForResults};
        if (const auto odds = OddsOf(last_.AsFought, units, budget))
            background.ExactLosses = {LossOddsOf(odds->Attackers), LossOddsOf(odds->Defenders)};
    } catch (const RunTimeError& error) {
        background.WhyNotExact = Description(error.Number());
    } catch (const std::bad_alloc&) {
        background.WhyNotExact = Description(ErrorNumber::OutOfMemory);
    }
    return background;
}

std::string LastRun::TakeAnnouncement() {
    if (!std::exchange(isToAnnounce_, false))
        return {};
    return isAborted_ ? "The run was aborted." : "The run has ended.";
}

} // namespace vorhaven
