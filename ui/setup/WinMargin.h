// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"

#include <string>

namespace vorhaven {

/// How far a win percentage can be trusted.
struct WinMargin {
    /// Beside the percentage: "± 3.1", in points.
    std::string Figure;
    /// The same in words.
    std::string Sentence;
};

/// The margin of error of `wins` in `battles` battles (at least 1) at a confidence of 95 %: half the width of
/// the score interval, which stays honest for few battles and rare results (E. B. Wilson, "Probable
/// inference, the law of succession, and statistical inference", 1927). Where every battle ended alike there
/// is nothing to centre an interval on, and the margin is the one-sided bound of the same formula: "at most
/// 0.3%".
[[nodiscard]] WinMargin MarginOf(Long wins, Long battles);

} // namespace vorhaven
