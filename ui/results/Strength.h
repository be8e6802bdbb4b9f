// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CStackAtt.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorhaven {

/// One step on the way from an army's base strength to its fighting strength.
struct StrengthTerm {
    Long Amount;
    /// Empty for the base strength.
    std::string Reason;

    bool operator==(const StrengthTerm&) const = default;
};

/// The reason of a difference that none of the rules accounts for. No evaluated stack has one.
inline constexpr const char* Unexplained = "unexplained";

/// How the fighting strength of an army in an evaluated stack came about on a defender's terrain: its base
/// strength (with the blacksmith's point), what terrain, conditions, banding and stack bonus changed, and
/// what the limits of a strength took back. The amounts always add up to the army's TotalStrength. A curse
/// leaves no trace on the record, so its blessing and its curse are listed only where they made a difference.
[[nodiscard]] std::vector<StrengthTerm> ExplainStrength(const CArmy& army, const CStackAtt& stack,
                                                        std::string_view terrain);

/// The terms as a sum: "6 + 1 hills - 1 poisoned = 6"; a single term is the whole text.
[[nodiscard]] std::string SumText(const std::vector<StrengthTerm>& terms);

} // namespace vorhaven
