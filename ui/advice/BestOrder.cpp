// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/BestOrder.h"

#include "base/Conversion.h"

namespace vorhaven {

void BestOrder::Follow(const Setup& setup, const Units& units, const std::optional<Odds::BattleOdds>& odds) {
    study_.reset();
    if (!odds || LinesInOrderOfFighting(setup, Side::Attacker, units).size() < 2) {
        ShowNothing("");
        return;
    }
    asItIs_ = odds->AttackerWins();
    steps_ = 0;
    begun_ = std::chrono::steady_clock::now();
    study_ = std::make_unique<BestOrdersStudy>(setup, units);
}

bool BestOrder::GoOn(std::int64_t steps) {
    if (!study_ || study_->IsDone())
        return false;
    steps_ += study_->GoOn(steps);
    if (study_->IsDone()) {
        ShowBest();
        return false;
    }
    if (study_->HasGivenUp() || steps_ > MostSteps) {
        study_.reset();
        ShowNothing("Best order: too many to compare");
        return false;
    }
    if (std::chrono::steady_clock::now() - begun_ >= StaysFor)
        ShowNothing("");
    return true;
}

std::optional<Setup> BestOrder::ToUse() const {
    if (study_ && study_->IsDone() && panel_->cmdUseIt.Visible)
        return study_->Best();
    return std::nullopt;
}

void BestOrder::ShowNothing(const std::string& text) {
    panel_->lblBestOrder.Caption = text;
    panel_->cmdUseIt.Visible = false;
}

void BestOrder::ShowBest() {
    const Chance& best = study_->Outcome().Won;
    const double gain = 100.0 * (ShareOf(best) - ShareOf(asItIs_));
    constexpr double leastGain = 0.05; // what rounds to 0.1
    if (gain < leastGain) {
        ShowNothing("No order wins more");
        return;
    }
    const bool areSeveral = study_->Stacks() > 1;
    const std::string wins = (areSeveral ? "est orders win " : "est order wins ") + PercentText(best);
    panel_->lblBestOrder.Caption = "B" + wins + " (" + ToSignedText(gain, 1) + ")";
    panel_->cmdUseIt.CaptionInWords = "Use It, b" + wins + ", " + PointsInWords(gain);
    panel_->cmdUseIt.Visible = true;
}

} // namespace vorhaven
