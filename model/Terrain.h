// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

/// The terrains that a defender can stand on.
namespace vorhaven::Terrains {

inline constexpr const char* City = "city";
inline constexpr const char* Field = "field";

/// All of them, as the catalogue names them and in the order in which the terrain box lists them.
inline constexpr std::array<const char*, 6> All{City, "ice", "hills", "marsh", Field, "woods"};

/// A terrain's place in All; that of none is the number of terrains.
[[nodiscard]] constexpr std::int32_t IndexOf(std::string_view terrain) {
    return static_cast<std::int32_t>(std::ranges::find(All, terrain) - All.begin());
}

} // namespace vorhaven::Terrains
