// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/StateTable.h"

#include <algorithm>

namespace vorhaven::Odds {
namespace {

constexpr int FirstBits = 5;
constexpr std::size_t MostStatesKept = 1024;

/// What is possible is kept at this at least: more than enough for the factors of one duel, so that nothing
/// possible ever rounds to 0, and far too little to be seen in a sum.
constexpr double LeastChance = 1e-200;

} // namespace

void StateTable::Add(const Condition& condition, const HitChances& chances) {
    const std::size_t slot = SlotOf(KeyOf(condition));
    const bool isNew = slots_[slot] == 0;
    if (isNew) {
        states_.push_back({condition, {}});
        slots_[slot] = static_cast<std::uint32_t>(states_.size());
    }
    HitChances& sums = states_[slots_[slot] - 1].Chances;
    for (std::size_t i = 0; i < sums.size(); ++i)
        if (chances[i] > 0.0)
            sums[i] += std::max(chances[i], LeastChance);
    if (isNew && states_.size() * 2 > slots_.size())
        Grow();
}

void StateTable::Clear() {
    states_.clear();
    if (states_.capacity() > MostStatesKept) {
        states_.shrink_to_fit();
        slots_ = {};
    }
    slots_.assign(std::size_t{1} << FirstBits, 0);
    shift_ = 64 - FirstBits;
}

std::size_t StateTable::SlotOf(std::uint64_t key) const {
    // Fibonacci hashing: the upper bits of the product depend on all bits of the key.
    std::size_t slot = (key * 0x9E3779B97F4A7C15U) >> shift_;
    while (slots_[slot] != 0 && KeyOf(states_[slots_[slot] - 1].InCondition) != key)
        slot = (slot + 1) & (slots_.size() - 1);
    return slot;
}

void StateTable::Grow() {
    slots_.assign(slots_.size() * 2, 0);
    --shift_;
    for (std::size_t i = 0; i < states_.size(); ++i)
        slots_[SlotOf(KeyOf(states_[i].InCondition))] = static_cast<std::uint32_t>(i + 1);
}

} // namespace vorhaven::Odds
