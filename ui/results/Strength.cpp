// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/results/Strength.h"

#include "base/Conversion.h"

#include <initializer_list>

namespace vorhaven {
namespace {

using Strength = decltype(CArmy::TotalStrength);

/// Adds up the terms of a strength, clamping after every step as the record does.
class Sum {
public:
    explicit Sum(Long start) : terms_{{start, ""}}, total_(start) {}

    void Add(Long amount, std::string_view reason) {
        if (amount == 0)
            return;
        terms_.push_back({amount, std::string(reason)});
        total_ += amount;
    }

    void Clamp() {
        Strength clamped;
        clamped = total_;
        const Long excess = total_ - clamped;
        Add(Long{0} - excess, (excess > 0 ? "limited to " : "raised to ") + ToText(clamped));
    }

    void AddClamped(Long amount, std::string_view reason) {
        Add(amount, reason);
        Clamp();
    }

    [[nodiscard]] Long Total() const { return total_; }
    [[nodiscard]] const std::vector<StrengthTerm>& Terms() const { return terms_; }

private:
    std::vector<StrengthTerm> terms_;
    Long total_;
};

/// What may have happened to an army before it had its strength: its record shows the outcome alone.
enum class Past {
    /// Nothing, but for poison, which the enemy gave it after it had banded.
    Uneventful,
    /// It brought its poison along.
    CamePoisoned,
    /// It came blessed, and the enemy's curse took that away.
    CursedBlessing
};

Sum SumOf(Past past, const CArmy& army, const CStackAtt& stack, std::string_view terrain) {
    const bool camePoisoned = past == Past::CamePoisoned;
    const bool isCursed = past == Past::CursedBlessing && !army.Blessed && !army.Poisoned;
    Sum sum{army.StartStrength};
    sum.AddClamped(army.CBName.Text() == terrain ? army.CBValue : Long{0}, terrain);
    sum.AddClamped(army.Blessed || isCursed ? BlessingStrength : 0, "blessed");
    sum.AddClamped(army.Poisoned && camePoisoned ? -PoisonStrength : 0, "poisoned");
    sum.AddClamped(stack.BandingBonus(army), "banding");
    sum.AddClamped(army.Poisoned && !camePoisoned ? -PoisonStrength : 0, "poisoned");
    sum.AddClamped(isCursed ? -BlessingStrength : 0, "cursed");
    sum.AddClamped(stack.TotalStackBonus, "stack bonus");
    return sum;
}

} // namespace

std::vector<StrengthTerm> ExplainStrength(const CArmy& army, const CStackAtt& stack,
                                          std::string_view terrain) {
    for (const Past past : {Past::Uneventful, Past::CamePoisoned, Past::CursedBlessing}) {
        const Sum sum = SumOf(past, army, stack, terrain);
        if (sum.Total() == army.TotalStrength)
            return sum.Terms();
    }
    Sum sum = SumOf(Past::Uneventful, army, stack, terrain);
    sum.Add(army.TotalStrength - sum.Total(), Unexplained);
    return sum.Terms();
}

std::string SumText(const std::vector<StrengthTerm>& terms) {
    std::string text;
    Long total;
    for (const StrengthTerm& term : terms) {
        total += term.Amount;
        if (&term == &terms.front())
            text = ToText(term.Amount);
        else if (term.Amount < 0)
            text += " - " + ToText(Long{0} - term.Amount) + " " + term.Reason;
        else
            text += " + " + ToText(term.Amount) + " " + term.Reason;
    }
    return terms.size() == 1 ? text : text + " = " + ToText(total);
}

} // namespace vorhaven
