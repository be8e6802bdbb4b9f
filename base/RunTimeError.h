// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <exception>
#include <string>
#include <vector>

namespace vorhaven {

/// The run-time errors that the program can raise, with their numbers.
enum class ErrorNumber {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    DuplicateKey = 457,
};

/// The standard description of an error, as the error report shows it.
[[nodiscard]] const char* Description(ErrorNumber number);

/// Marks a procedure that traps run-time errors; the first line of its body:
///
///     const Trap trap{"MBattleCalc::Fight"};
///
/// The traps of the procedures now running form a chain, and an error takes their locations with it when it
/// is raised. Entering and leaving costs a few stores, so that a trap may be on the path of every battle.
class [[nodiscard]] Trap {
public:
    /// `location`: the procedure's location text; it must outlive the program's errors (a literal).
    explicit Trap(const char* location) noexcept : location_(location), outer_(innermost_) {
        innermost_ = this;
    }
    ~Trap() { innermost_ = outer_; }
    Trap(const Trap&) = delete;
    Trap& operator=(const Trap&) = delete;

private:
    friend class RunTimeError;
    friend class EventScope;

    const char* location_;
    const Trap* outer_;
    static inline const Trap* innermost_ = nullptr;
};

/// Begins an event that the toolkit raises: no error of its handler reaches the procedures that wait further
/// out, below a modal window or a pumped event, so their traps are out of sight until the event has ended.
class [[nodiscard]] EventScope {
public:
    EventScope() noexcept : outer_(Trap::innermost_) { Trap::innermost_ = nullptr; }
    ~EventScope() { Trap::innermost_ = outer_; }
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;

private:
    const Trap* outer_;
};

/// A run-time error on its way to the outermost event handler, which reports it and ends the program.
class RunTimeError : public std::exception {
public:
    explicit RunTimeError(ErrorNumber number);

    /// The error as it was raised.
    [[nodiscard]] ErrorNumber Number() const { return number_; }

    /// The locations of the procedures that trapped the error, from the one that raised it outwards.
    [[nodiscard]] const std::vector<const char*>& Trail() const { return trail_; }

    /// The error that arrives at the outermost handler: a type mismatch once a trap has been met, since what
    /// a trap would show takes its location text for a number. An error that met no trap arrives as it is.
    [[nodiscard]] ErrorNumber ReportedNumber() const;

    /// The first two lines of the report: the reported number, and its description.
    [[nodiscard]] std::string Headline() const;

    /// The whole story: the original error with its description, and the trail.
    [[nodiscard]] std::string Details() const;

    [[nodiscard]] const char* what() const noexcept override { return Description(number_); }

private:
    ErrorNumber number_;
    std::vector<const char*> trail_;
};

/// Throws a RunTimeError. For the checks of functions that are to be inlined: a throw expression is as long
/// as all the rest of them.
[[noreturn]] void Raise(ErrorNumber number);

} // namespace vorhaven
