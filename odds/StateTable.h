// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CArmy.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace vorhaven::Odds {

/// The chances that an army has 1 hit point, 2, and so on to the most, from index 0.
using HitChances = std::array<double, decltype(CArmy::Hits)::Max>;

[[nodiscard]] inline double Sum(const HitChances& chances) {
    static_assert(std::tuple_size_v<HitChances> == 4);
    return (chances[0] + chances[1]) + (chances[2] + chances[3]);
}

inline void Scale(HitChances& chances, double factor) {
    for (double& chance : chances)
        chance *= factor;
}

// Chances are found by hits less one, and a condition keeps hits and strength in a byte, 0 for no hits.
static_assert(decltype(CArmy::Hits)::Min == 1 && decltype(CArmy::Hits)::Max <= UINT8_MAX);
static_assert(decltype(CArmy::TotalStrength)::Min >= 0 && decltype(CArmy::TotalStrength)::Max <= UINT8_MAX);

/// What a battle changes about an army apart from its hits.
struct Condition {
    std::int32_t ShotsLeft = 0;
    std::uint8_t Strength = 0;
    /// The hits that a new attacking stack gives back; 0 where none can come.
    std::uint8_t StartHits = 0;
    std::uint8_t Medals = 0;
    bool UsedSpecial = false;

    bool operator==(const Condition&) const = default;
};

// Tables tell conditions apart by all of their bits: a further member is either told apart as well or makes
// the record too large for its key, which does not compile.
static_assert(std::has_unique_object_representations_v<Condition>);

/// An army in a condition, with its chances by hits.
struct State {
    Condition InCondition;
    HitChances Chances{};
};

/// The states that an army may be in, each condition once.
class StateTable {
public:
    StateTable() { Clear(); }

    /// Adds chances to those of a condition. However small they are, none that is above 0 gets lost.
    void Add(const Condition& condition, const HitChances& chances);

    /// Forgets all states; the storage is kept unless it is large.
    void Clear();

    [[nodiscard]] std::size_t Size() const { return states_.size(); }
    [[nodiscard]] auto begin() const { return states_.begin(); }
    [[nodiscard]] auto end() const { return states_.end(); }

private:
    [[nodiscard]] static std::uint64_t KeyOf(const Condition& condition) {
        return std::bit_cast<std::uint64_t>(condition);
    }
    /// The slot of a condition: where it is, or the free one where it would be.
    [[nodiscard]] std::size_t SlotOf(std::uint64_t key) const;
    void Grow();

    std::vector<State> states_;
    /// A hash table of open addressing, its size a power of two: places in states_ from 1, 0 for a free slot.
    std::vector<std::uint32_t> slots_;
    int shift_ = 0;
};

} // namespace vorhaven::Odds
