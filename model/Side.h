// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstdint>

namespace vorhaven {

/// The two sides of a battle; as numbers, the places of a paired control in its array.
enum class Side : std::uint8_t { Attacker = 0, Defender = 1 };

inline constexpr std::array<Side, 2> BothSides{Side::Attacker, Side::Defender};

[[nodiscard]] constexpr Side Opponent(Side side) {
    return side == Side::Attacker ? Side::Defender : Side::Attacker;
}

/// One item for each side.
template <class Item>
struct PerSide {
    Item Attacker;
    Item Defender;

    [[nodiscard]] constexpr Item& operator[](Side side) {
        return side == Side::Attacker ? Attacker : Defender;
    }
    [[nodiscard]] constexpr const Item& operator[](Side side) const {
        return side == Side::Attacker ? Attacker : Defender;
    }
    bool operator==(const PerSide&) const = default;
};

} // namespace vorhaven
