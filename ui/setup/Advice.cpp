// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {
namespace {

/// What may be computed between two looks at what the user does: a few milliseconds.
constexpr std::int64_t StepsOfASlice = 40'000;

} // namespace

void frmBrawlpad::FollowWithAdvice(const Setup& now) {
    // The number of battles has no say in what is advised.
    if (advised_)
        advised_->NumBattles = now.NumBattles;
    if (advised_ != now) {
        advised_ = now;
        bestOrder_.Follow(now, *units_, liveOdds_.Odds());
        advice_.Follow(now, *units_, liveOdds_.Odds(), OddsFrame.lblState.Caption);
    }
    BeginAdvising();
}

void frmBrawlpad::BeginAdvising() {
    toolkit_->WhenIdle([this] {
        const bool isMoreOfRow = !IsRunUnderWay() && bestOrder_.GoOn(StepsOfASlice);
        const bool isMoreOfWindow = advice_.GoOn(StepsOfASlice);
        return isMoreOfRow || isMoreOfWindow;
    });
}

void frmBrawlpad::GoToAdvice() {
    const Trap trap{"frmBrawlpad::GoToAdvice"};
    if (advice_.IsSeen())
        toolkit_->Show(advice_);
}

void frmBrawlpad::cmdUseIt_Click() {
    const Trap trap{"frmBrawlpad::cmdUseIt_Click"};
    Settle();
    if (const auto best = bestOrder_.ToUse())
        Use(*best);
}

void frmBrawlpad::Use(const Setup& setup) {
    const Trap trap{"frmBrawlpad::Use"};
    Settle();
    Setup next = setup;
    next.NumBattles = CurrentSetup().NumBattles;
    PutInPlace(next);
    Settle();
}

void frmBrawlpad::SelectLines(Side side, const std::vector<std::size_t>& lines) {
    const Trap trap{"frmBrawlpad::SelectLines"};
    ListBox::Selection selection;
    for (const std::size_t line : lines)
        selection.Lines.emplace_back(static_cast<std::int32_t>(line));
    if (!lines.empty())
        selection.Current = selection.Lines.front();
    lstArmies[side].Select(selection);
}

} // namespace vorhaven
