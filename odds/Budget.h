// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>

namespace vorhaven::Odds {

/// Summing up all outcomes would cost more than a budget allows.
class TooManyOutcomes final : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "Too many outcomes to sum up"; }
};

/// What a sum over outcomes may cost. Work is counted in steps and not in time, so a battle has the same
/// odds, or none, on every machine. A step is one shot of a volley, or all rounds between two armies in given
/// states.
///
/// A computation over many battles gives each of them a budget of its own, so that none takes it all. What
/// they have Taken adds up to the cost of the computation, or of a slice of it.
class Budget {
public:
    /// The states that a battle may hold at once; its memory, some 15 MB, is mostly theirs.
    static constexpr std::size_t MostStates = 65'536;

    explicit Budget(std::int64_t steps) : steps_(steps), left_(steps) {}

    /// Takes steps. Throws TooManyOutcomes when fewer are left, and leaves none.
    void Take(std::int64_t steps = 1) {
        if (steps > left_) [[unlikely]]
            GiveUp();
        left_ -= steps;
    }

    /// Throws TooManyOutcomes, and leaves no steps, when so many states are more than MostStates.
    void Hold(std::size_t states) {
        if (states > MostStates) [[unlikely]]
            GiveUp();
    }

    [[nodiscard]] std::int64_t Taken() const { return steps_ - left_; }
    [[nodiscard]] std::int64_t Left() const { return left_; }

private:
    [[noreturn]] void GiveUp();

    std::int64_t steps_;
    std::int64_t left_;
};

} // namespace vorhaven::Odds
