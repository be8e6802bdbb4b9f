// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/AdvicePage.h"

#include "base/Conversion.h"

namespace vorhaven {

std::string AdvicePage::WhyNothing(const Setup& /*setup*/, const Units& /*units*/) const {
    return {};
}

void AdvicePage::Begin(const Setup& setup, const Units& units, const Odds::BattleOdds& odds) {
    setup_ = setup;
    units_ = &units;
    odds_ = odds;
    isUpToDate_ = false;
    study_ = MakeStudy();
    if (!study_)
        Finish();
}

bool AdvicePage::GoOn(std::int64_t steps) {
    if (isUpToDate_ || !study_)
        return false;
    study_->GoOn(steps);
    if (study_->HasGivenUp())
        ShowNothing("Too many outcomes to compare");
    else if (study_->IsDone())
        Finish();
    return !isUpToDate_;
}

void AdvicePage::Finish() {
    isUpToDate_ = true;
    hasFigures_ = true;
    lblEmpty.Caption = "";
    ShowStale(false);
    ShowResults();
    EnableButtons();
}

void AdvicePage::ShowNothing(const std::string& why) {
    study_.reset();
    isUpToDate_ = true;
    hasFigures_ = false;
    for (AdviceTable* table : Tables())
        table->SetRows({});
    ShowStale(false);
    lblEmpty.Caption = why;
    EnableButtons();
}

void AdvicePage::ShowStale(bool isStale) {
    isStale_ = isStale;
    if (isStale && !hasFigures_)
        lblEmpty.Caption = "";
    for (AdviceTable* table : Tables())
        table->IsStale = isStale;
    EnableButtons();
}

std::string AdvicePage::ProgressText() const {
    if (!study_)
        return {};
    const Progress progress = study_->HowFar();
    return std::to_string(progress.Done) + " of " + std::to_string(progress.Of) + Counted() +
           (hasFigures_ ? "; figures of the set-up before" : "");
}

Long AdvicePage::ProgressPercent() const {
    if (!study_)
        return 0;
    const Progress progress = study_->HowFar();
    return progress.Of <= 0 ? 0 : static_cast<std::int32_t>(100 * progress.Done / progress.Of);
}

double AdvicePage::OwnTurnsLost() const {
    return odds_.Attackers.Overall ? odds_.Attackers.Overall->Turns : 0.0;
}

} // namespace vorhaven
