// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <ctime>
#include <limits>

namespace vorhaven::bench {

/// The processor time of a piece of work of this thread, in seconds. What other processes take of a shared
/// machine does not count.
double SecondsOf(const auto& work) {
    const auto now = [] {
        std::timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    };
    const double start = now();
    work();
    return now() - start;
}

/// The least of what it is given: noise only ever adds to a time.
class Least {
public:
    void Take(double seconds) { value_ = std::min(value_, seconds); }
    [[nodiscard]] double Value() const { return value_; }

private:
    double value_ = std::numeric_limits<double>::max();
};

} // namespace vorhaven::bench
