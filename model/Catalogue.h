// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace vorhaven {

/// One cell of a catalogue table: nothing, a whole number, or a text.
using Cell = std::variant<std::monostate, Long, std::string>;

/// A cell as a 32-bit integer; an empty cell is 0.
/// Raises error 13 when its text is not a number, error 6 when the number does not fit.
[[nodiscard]] Long CellNumber(const Cell& cell);

/// A cell as text; an empty cell is the empty text.
[[nodiscard]] std::string CellText(const Cell& cell);

/// A catalogue table; rows and columns count from 0.
class Table {
public:
    Table() = default;
    /// All rows must have the same number of cells.
    explicit Table(std::vector<std::vector<Cell>> rows) : rows_(std::move(rows)) {}

    [[nodiscard]] Long RowCount() const { return SizeOf(rows_); }

    /// The cell at a row and a column; raises error 9 outside the table.
    [[nodiscard]] const Cell& operator()(Long row, Long column) const;

private:
    std::vector<std::vector<Cell>> rows_;
};

/// The columns of the `Armies` table that the program reads. An army type's identifier is its row.
namespace ArmyColumn {
inline constexpr std::int32_t Identifier = 0;
inline constexpr std::int32_t Name = 1;
inline constexpr std::int32_t Strength = 5;
inline constexpr std::int32_t Hits = 7;
inline constexpr std::int32_t Turns = 8;
inline constexpr std::int32_t FirstTrait = 11;
inline constexpr std::int32_t SecondTrait = 12;
inline constexpr std::int32_t Movement = 13;
inline constexpr std::int32_t BonusTerrain = 17;
inline constexpr std::int32_t BonusSize = 18;
inline constexpr std::int32_t PowerCode = 22;
inline constexpr std::int32_t PowerSize = 23;
} // namespace ArmyColumn

/// The columns of the `Heroes` table that the program reads. A hero type's identifier is its row.
namespace HeroColumn {
inline constexpr std::int32_t Identifier = 0;
inline constexpr std::int32_t Name = 1;
inline constexpr std::int32_t Strength = 8;
inline constexpr std::int32_t Hits = 10;
inline constexpr std::int32_t Movement = 12;
inline constexpr std::int32_t BonusTerrain = 16;
inline constexpr std::int32_t BonusSize = 17;
} // namespace HeroColumn

/// The catalogue's power codes. Any other code gives no power.
enum class PowerType : std::int32_t {
    Chaos = 2,
    Morale = 3,
    Fear = 4,
    Siege = 5,
    Fortify = 6,
    Poison = 26,
    Disease = 27,
    Assass = 28,
    Missle = 30,
    Trample = 32,
    Curse = 33,
    Banding = 37,
    Acid = 38,
    Lightning = 39,
    Warding = 41,
};

/// Where the program gets its units from. Created at start-up, it lives as long as the program.
class CatalogueProvider {
public:
    /// The tables by their selector.
    enum class Selector : std::int32_t { Armies = 1, Heroes = 2 };

    CatalogueProvider() = default;
    virtual ~CatalogueProvider() = default;
    CatalogueProvider(const CatalogueProvider&) = delete;
    CatalogueProvider& operator=(const CatalogueProvider&) = delete;

    /// The table of army types or of hero types.
    [[nodiscard]] virtual const Table& GetTable(Selector selector) const = 0;

    /// The display name of a power code; empty for a code that has none.
    [[nodiscard]] virtual std::string PowerName(std::int16_t code) const = 0;

    /// Where the units are from, for the player to read; empty for those of the program itself.
    [[nodiscard]] virtual std::string Origin() const { return {}; }
};

} // namespace vorhaven
