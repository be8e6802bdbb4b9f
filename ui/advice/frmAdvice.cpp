// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/frmAdvice.h"

namespace vorhaven {
namespace {

/// Whether what is advised on one set-up can be used in the other: all but the number of battles is the same.
bool IsSameAdvice(Setup a, const Setup& b) {
    a.NumBattles = b.NumBattles;
    return a == b;
}

} // namespace

frmAdvice::frmAdvice(Desktop& desktop, AdviceHost& host, OddsPanel& odds)
    : Form("Advice"), Armies(host), Slaying(host), Changes(host), Orders(host), FewestArmies(host),
      desktop_(&desktop), host_(&host), odds_(&odds) {
    pbProgress.Visible = false;
    sscDone.Click = [this] { sscDone_Click(); };
    for (std::size_t page = 0; page < Pages.size(); ++page)
        Pages[page]->RestartNeeded = [this, page] {
            begunWith_[page] = -1;
            Refresh();
        };
}

void frmAdvice::Form_Load() {
    const Trap trap{"frmAdvice::Form_Load"};
    CentreOn(desktop_->ScreenSize());
}

void frmAdvice::Follow(const Setup& setup, const Units& units, const std::optional<Odds::BattleOdds>& odds,
                       const std::string& whyNone) {
    const Trap trap{"frmAdvice::Follow"};
    if (units_ != nullptr && odds.has_value() == battleOdds_.has_value() && whyNone == whyNone_ &&
        IsSameAdvice(setup, setup_))
        return;
    setup_ = setup;
    units_ = &units;
    battleOdds_ = odds;
    whyNone_ = whyNone;
    ++change_;
    Refresh();
}

void frmAdvice::SetSeen(bool isSeen) {
    const Trap trap{"frmAdvice::SetSeen"};
    isSeen_ = isSeen;
    Refresh();
}

void frmAdvice::ChoosePage(std::size_t page) {
    const Trap trap{"frmAdvice::ChoosePage"};
    current_ = page;
    Refresh();
}

void frmAdvice::Refresh() {
    if (!isSeen_ || units_ == nullptr)
        return;
    AdvicePage& page = Page();
    if (begunWith_.at(current_) != change_) {
        begunWith_.at(current_) = change_;
        begun_ = std::chrono::steady_clock::now();
        const std::string why = battleOdds_ ? page.WhyNothing(setup_, *units_) : whyNone_;
        if (why.empty())
            page.Begin(setup_, *units_, *battleOdds_);
        else
            page.ShowNothing(why);
    }
    ShowProgress();
    if (!page.IsUpToDate() && WorkBegun)
        WorkBegun();
}

bool frmAdvice::GoOn(std::int64_t steps) {
    const Trap trap{"frmAdvice::GoOn"};
    if (!isSeen_ || Page().IsUpToDate())
        return false;
    const bool isMore = !host_->IsRunUnderWay() && Page().GoOn(steps);
    ShowProgress();
    return isMore;
}

void frmAdvice::ShowProgress() {
    AdvicePage& page = Page();
    const bool waits = host_->IsRunUnderWay();
    const bool isDue = waits || std::chrono::steady_clock::now() - begun_ >= Patience;
    const bool isShown = !page.IsUpToDate() && isDue;
    if (isShown)
        page.ShowStale(true);
    pbProgress.Value = page.ProgressPercent();
    pbProgress.Visible = isShown && !waits;
    lblProgress.Caption = waits && isShown ? "Waiting for the run"
                          : isShown        ? page.ProgressText()
                          : battleOdds_    ? HoldsForAll
                                           : "";
}

void frmAdvice::sscDone_Click() {
    const Trap trap{"frmAdvice::sscDone_Click"};
    Unload();
    desktop_->ProcessEvents();
}

} // namespace vorhaven
