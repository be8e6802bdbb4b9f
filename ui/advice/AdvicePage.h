// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/AdviceTable.h"
#include "ui/advice/Study.h"
#include "ui/controls/Controls.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vorhaven {

/// What the window of advice asks of the main one.
class AdviceHost {
public:
    virtual ~AdviceHost() = default;
    AdviceHost() = default;
    AdviceHost(const AdviceHost&) = delete;
    AdviceHost& operator=(const AdviceHost&) = delete;

    /// Takes in what the user has just changed.
    virtual void Settle() = 0;
    /// Puts a set-up in place of the present one, as one step to undo; its number of battles does not count.
    /// What is selected stays selected, wherever it is moved.
    virtual void Use(const Setup& setup) = 0;
    /// Selects lines of a list, from 0, and nothing else of it.
    virtual void SelectLines(Side side, const std::vector<std::size_t>& lines) = 0;
    /// Brings the main window to the front, with the focus in a list or where it was.
    virtual void GoToList(Side side) = 0;
    virtual void GoToMain() = 0;
    [[nodiscard]] virtual bool IsRunUnderWay() const = 0;
    virtual void Undo() = 0;
    virtual void Redo() = 0;
};

/// A page of the window of advice. It shows what a study of the set-up has found.
class AdvicePage {
public:
    /// `caption`: "&" marks the access key. `host` must outlive the page.
    AdvicePage(std::string caption, AdviceHost& host) : Caption(std::move(caption)), host_(&host) {}
    virtual ~AdvicePage() = default;
    AdvicePage(const AdvicePage&) = delete;
    AdvicePage& operator=(const AdvicePage&) = delete;

    const std::string Caption;
    /// A sentence in the middle of the page instead of everything else; empty while there is something to
    /// see.
    Label lblEmpty;
    /// The tables of the page, the one that the user picks from first.
    [[nodiscard]] virtual std::vector<AdviceTable*> Tables() = 0;

    /// Raised when the study has to be made anew though the set-up is the same.
    std::function<void()> RestartNeeded;

    /// Why there is nothing to study; empty where there is.
    [[nodiscard]] virtual std::string WhyNothing(const Setup& setup, const Units& units) const;
    /// Begins to study a set-up that has these odds; what is shown is of an earlier one from now on.
    /// `units` must outlive the page.
    void Begin(const Setup& setup, const Units& units, const Odds::BattleOdds& odds);
    /// Goes on for about so many steps; what has been found is shown once it is complete. False when nothing
    /// is left to do.
    bool GoOn(std::int64_t steps);
    /// Empties the page but for a sentence.
    void ShowNothing(const std::string& why);
    /// Marks what is shown as of an earlier set-up, or of the present one.
    void ShowStale(bool isStale);

    /// How far the study is, "37 of 80 changes tried".
    [[nodiscard]] std::string ProgressText() const;
    /// The same in percent.
    [[nodiscard]] Long ProgressPercent() const;
    /// Whether there are figures, of whatever set-up.
    [[nodiscard]] bool HasFigures() const { return hasFigures_; }
    /// Whether what is shown is of the set-up that was begun last.
    [[nodiscard]] bool IsUpToDate() const { return isUpToDate_; }

protected:
    /// A study of the present set-up; none where its odds say all.
    [[nodiscard]] virtual std::unique_ptr<Study> MakeStudy() = 0;
    /// What is counted, with what is done to it: " changes tried".
    [[nodiscard]] virtual std::string Counted() const = 0;
    /// Shows what the study has found, and nothing of an earlier one.
    virtual void ShowResults() = 0;
    /// Enables and disables what acts on the figures.
    virtual void EnableButtons() {}
    [[nodiscard]] AdviceHost& Host() const { return *host_; }
    [[nodiscard]] const Setup& Present() const { return setup_; }
    [[nodiscard]] const Units& GetUnits() const { return *units_; }
    [[nodiscard]] const Odds::BattleOdds& GetOdds() const { return odds_; }
    [[nodiscard]] const Study* CurrentStudy() const { return study_.get(); }
    /// The attacker's chance as it is, 0 to 1, and the same in percent.
    [[nodiscard]] double Wins() const { return ShareOf(odds_.AttackerWins()); }
    [[nodiscard]] std::string WinsText() const { return PercentText(odds_.AttackerWins()); }
    [[nodiscard]] double OwnTurnsLost() const;
    /// Whether figures can be acted on: they are up to date, and not shown as of an earlier set-up.
    [[nodiscard]] bool CanAct() const { return !isStale_ && lblEmpty.Caption.Get().empty(); }

private:
    void Finish();

    AdviceHost* host_;
    Setup setup_;
    const Units* units_ = nullptr;
    Odds::BattleOdds odds_;
    std::unique_ptr<Study> study_;
    bool hasFigures_ = false;
    bool isUpToDate_ = false;
    bool isStale_ = false;
};

} // namespace vorhaven
