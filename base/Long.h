// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/CheckedArithmetic.h"
#include "base/RunTimeError.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

namespace vorhaven {

/// A signed 32-bit count. Its arithmetic never wraps: a result that does not fit raises error 6 (overflow).
class Long {
public:
    constexpr Long() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): a count reads and writes as the plain number it is.
    constexpr Long(std::int32_t value) : value_(value) {}

    [[nodiscard]] constexpr std::int32_t Value() const { return value_; }

    /// The count as an index from 0; raises error 9 below 0.
    [[nodiscard]] constexpr std::size_t Index() const {
        if (value_ < 0)
            Raise(ErrorNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(value_);
    }

    // These raise error 6 when the result does not fit.
    constexpr Long& operator+=(Long other);
    constexpr Long& operator-=(Long other);
    constexpr Long& operator++() { return *this += 1; }
    constexpr Long& operator--() { return *this -= 1; }

private:
    std::int32_t value_ = 0;
};

/// The number of elements of a container; raises error 6 when it does not fit.
template <class Container>
[[nodiscard]] constexpr Long SizeOf(const Container& container) {
    if (std::size(container) > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()))
        Raise(ErrorNumber::Overflow);
    return static_cast<std::int32_t>(std::size(container));
}

constexpr bool operator==(Long a, Long b) {
    return a.Value() == b.Value();
}
constexpr std::strong_ordering operator<=>(Long a, Long b) {
    return a.Value() <=> b.Value();
}

/// The sum of two counts; raises error 6 when it does not fit.
constexpr Long operator+(Long a, Long b) {
    std::int32_t sum = 0;
    if (AddOverflows(a.Value(), b.Value(), sum))
        Raise(ErrorNumber::Overflow);
    return sum;
}

/// The difference of two counts; raises error 6 when it does not fit.
constexpr Long operator-(Long a, Long b) {
    std::int32_t difference = 0;
    if (SubtractOverflows(a.Value(), b.Value(), difference))
        Raise(ErrorNumber::Overflow);
    return difference;
}

/// The product of two counts; raises error 6 when it does not fit.
constexpr Long operator*(Long a, Long b) {
    std::int32_t product = 0;
    if (MultiplyOverflows(a.Value(), b.Value(), product))
        Raise(ErrorNumber::Overflow);
    return product;
}

constexpr Long& Long::operator+=(Long other) {
    return *this = *this + other;
}

constexpr Long& Long::operator-=(Long other) {
    return *this = *this - other;
}

/// A count that every write clamps to Lowest..Highest. A fresh one is 0 whatever the limits are.
///
/// Copying a whole record copies its counts as they are, fresh ones too. To write one property from another
/// is a write like any other: `StartHits = Long{Hits}`.
template <std::int32_t Lowest, std::int32_t Highest>
class Bounded {
public:
    static constexpr std::int32_t Min = Lowest;
    static constexpr std::int32_t Max = Highest;

    constexpr Bounded() = default;

    constexpr Bounded& operator=(Long value) {
        value_ = value < Lowest ? Lowest : value > Highest ? Highest : value;
        return *this;
    }

    // NOLINTNEXTLINE(google-explicit-constructor): it reads as the count it holds.
    constexpr operator Long() const { return value_; }

    [[nodiscard]] constexpr std::int32_t Value() const { return value_.Value(); }

private:
    Long value_;
};

} // namespace vorhaven
