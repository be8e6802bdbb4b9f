// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>

namespace vorhaven::soak {

/// Repeats a round of random work for a test's share of the program's time, once at least, until one fails.
/// Each round has a seed of its own; a failure names it, so that the round can be had again alone.
void Repeat(const std::function<void(unsigned seed)>& round);

} // namespace vorhaven::soak
