// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vorhaven {

/// The nearest whole number, halves to the even one (2.5 gives 2, 3.5 gives 4).
/// Raises error 6 when it is outside the 32-bit range.
[[nodiscard]] Long RoundToLong(double value);

/// A text that a person typed or a catalogue holds, as a 32-bit integer: a decimal number with an optional
/// sign, fraction and exponent, blanks around it allowed, rounded as RoundToLong does. The user's locale has
/// no say. Raises error 13 when the text is not a number, error 6 when the number is outside the 32-bit
/// range.
[[nodiscard]] Long ToLong(std::string_view text);

/// The count that ToLong reads in a text; nothing where it raises an error.
[[nodiscard]] std::optional<Long> NumberIn(std::string_view text);

/// A count as a 16-bit integer. Raises error 6 when it does not fit.
[[nodiscard]] std::int16_t ToShort(Long value);

/// A count as decimal text.
[[nodiscard]] std::string ToText(Long value);

/// A Boolean's text: "True" or "False".
[[nodiscard]] std::string BooleanText(bool value);

/// A finite number as text with up to `digits` significant digits, without trailing zeros or exponent
/// (57.3; 33.3333333333333 with 15 digits), independent of the user's locale.
[[nodiscard]] std::string ToSignificantText(double value, int digits);

/// A text without the characters of `blanks` around it.
[[nodiscard]] std::string_view Trimmed(std::string_view text, std::string_view blanks = " ");

/// A finite number as text with so many decimals (57.30 with 2), independent of the user's locale.
[[nodiscard]] std::string ToFixedText(double value, int decimals);

/// The same for a difference, with its sign: "+1.0", "−13.4" (with U+2212). What rounds to nothing is "+0.0".
[[nodiscard]] std::string ToSignedText(double value, int decimals);

/// A text without the blanks around it, its ASCII letters turned to lower case.
[[nodiscard]] std::string ToTrimmedLower(std::string_view text);

/// A text with its ASCII letters turned to lower case.
[[nodiscard]] std::string ToLower(std::string_view text);

} // namespace vorhaven
