// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/setup/Battle.h"

#include <cstdint>
#include <optional>

// What would become of a battle if something were different.
namespace vorhaven {

/// What a player weighs: how a battle goes for the attacker.
struct Prospect {
    Chance Won{0.0, 1.0};
    /// Production turns of the attackers slain, on average over the battles that end.
    double OwnTurnsLost = 0.0;

    /// The attacker's chance of winning, 0 to 1.
    [[nodiscard]] double Wins() const { return Won.For; }
};

[[nodiscard]] Prospect ProspectOf(const Odds::BattleOdds& odds);

/// The part of a computation that is done, for the player to see.
struct Progress {
    std::int64_t Done = 0;
    std::int64_t Of = 0;
};

/// A computation over many battles like that of a set-up, in slices. A battle that alone would take too long,
/// or all of them together, end it without a result.
class Study {
public:
    /// What one of the battles, and all of them, may take.
    static constexpr std::int64_t StepsOfABattle = 1'000'000;
    static constexpr std::int64_t StepsInAll = 200'000'000;

    virtual ~Study() = default;
    Study(const Study&) = delete;
    Study& operator=(const Study&) = delete;

    /// Goes on for about so many steps of Odds::Budget; more where a single battle takes more. Does nothing
    /// once the study is over. Returns the steps taken.
    std::int64_t GoOn(std::int64_t steps);

    /// The results are complete.
    [[nodiscard]] bool IsDone() const { return state_ == State::Done; }
    /// There are too many outcomes to compare, or the set-up has no odds. The results mean nothing.
    [[nodiscard]] bool HasGivenUp() const { return state_ == State::GivenUp; }
    [[nodiscard]] virtual Progress HowFar() const = 0;

    [[nodiscard]] const Setup& Studied() const { return setup_; }
    /// The odds of the set-up as it is, once they are known.
    [[nodiscard]] const std::optional<Odds::BattleOdds>& AsItIs() const { return asItIs_; }

protected:
    /// `units` must outlive the study. The set-up must have armies on both sides.
    Study(Setup setup, const Units& units);

    /// Does a piece of the work, the odds of the set-up as it is being known. False when nothing is left.
    virtual bool DoNext() = 0;

    /// The odds of a set-up like the one studied. Throws Odds::TooManyOutcomes; raises what a battle raises.
    [[nodiscard]] Odds::BattleOdds OddsOf(const Setup& setup);
    /// What becomes of the attacker, also where one side has no army to send; nothing where the battle
    /// raises an error.
    [[nodiscard]] std::optional<Prospect> Try(const Setup& setup);

    /// Counts work that was done without odds.
    void Take(std::int64_t steps) { taken_ += steps; }

    [[nodiscard]] const Units& GetUnits() const { return *units_; }
    [[nodiscard]] const MBattleCalc::Flyers& GetFlyers() const { return flyers_; }

private:
    enum class State { UnderWay, Done, GivenUp };

    [[nodiscard]] State DoPiece();

    Setup setup_;
    const Units* units_;
    MBattleCalc::Flyers flyers_;
    std::optional<Odds::BattleOdds> asItIs_;
    std::int64_t taken_ = 0;
    State state_ = State::UnderWay;
};

/// The set-up without some lines of a side, deleted as the player would: those below move up, and few
/// defenders are free to stand on any terrain.
[[nodiscard]] Setup Without(Setup setup, Side side, const std::vector<std::size_t>& lines);

} // namespace vorhaven
