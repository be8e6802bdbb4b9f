// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/ArmiesPage.h"
#include "ui/advice/ChangesPage.h"
#include "ui/advice/FewestArmiesPage.h"
#include "ui/advice/OrdersPage.h"
#include "ui/advice/SlayingPage.h"
#include "ui/controls/Form.h"
#include "ui/setup/OddsPanel.h"

#include <array>
#include <chrono>
#include <optional>
#include <string>

namespace vorhaven {

/// What the set-up could do better, page by page. The window follows the set-up; only the page that is seen
/// is worked out, in slices of the time that the program has to spare.
class frmAdvice final : public Form {
public:
    /// `desktop`, `host` and `odds`, which the window shows at its top, must outlive the window.
    frmAdvice(Desktop& desktop, AdviceHost& host, OddsPanel& odds);

    void Form_Load() override;

    /// What the window is about from now on: a set-up with its odds, or why it has none. `units` must outlive
    /// the window.
    void Follow(const Setup& setup, const Units& units, const std::optional<Odds::BattleOdds>& odds,
                const std::string& whyNone);
    /// Goes on with the page that is seen for about so many steps. False when nothing is left to do now.
    bool GoOn(std::int64_t steps);
    /// Whether the user can see the window.
    void SetSeen(bool isSeen);
    [[nodiscard]] bool IsSeen() const { return isSeen_; }
    /// How long the former figures are shown as they are before they are marked as out of date.
    std::chrono::milliseconds Patience{300};
    /// Raised when there is something to go on with.
    std::function<void()> WorkBegun;

    [[nodiscard]] OddsPanel& OddsFrame() { return *odds_; }
    [[nodiscard]] AdviceHost& Host() { return *host_; }

    // The pages, from the left.
    ArmiesPage Armies;
    SlayingPage Slaying;
    ChangesPage Changes;
    OrdersPage Orders;
    FewestArmiesPage FewestArmies;
    const std::array<AdvicePage*, 5> Pages{&Armies, &Slaying, &Changes, &Orders, &FewestArmies};
    [[nodiscard]] std::size_t CurrentPage() const { return current_; }
    /// The user turns to a page.
    void ChoosePage(std::size_t page);

    /// How far the work is; while there is none, what holds for all figures.
    ProgressBar pbProgress;
    Label lblProgress;
    static constexpr const char* HoldsForAll =
        "All figures are exact, each change alone, heroes as the odds have them";
    Button sscDone{"&Done"};

private:
    [[nodiscard]] AdvicePage& Page() { return *Pages.at(current_); }
    /// Lets the page that is seen begin with the present set-up, unless it shows it already.
    void Refresh();
    void ShowProgress();
    void sscDone_Click();

    Desktop* desktop_;
    AdviceHost* host_;
    OddsPanel* odds_;
    bool isSeen_ = false;
    std::size_t current_ = 0;
    const Units* units_ = nullptr;
    Setup setup_;
    std::optional<Odds::BattleOdds> battleOdds_;
    std::string whyNone_;
    /// How many changes there were, and the one that each page has begun with.
    std::int64_t change_ = 0;
    std::array<std::int64_t, 5> begunWith_{-1, -1, -1, -1, -1};
    std::chrono::steady_clock::time_point begun_;
};

} // namespace vorhaven
