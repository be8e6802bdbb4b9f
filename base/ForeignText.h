// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// How messages show texts that are not the program's own: what a file, the clipboard or a folder's name
// holds.
namespace vorhaven {

/// The most characters of a text that Quoted shows.
inline constexpr std::size_t MaxQuotedCharacters = 40;

/// A text in double quotes, of at most MaxQuotedCharacters: "…" is the last of them where the text is longer.
/// The beginning is shown as Visible shows it; a long text costs no more than a short one.
[[nodiscard]] std::string Quoted(std::string_view text);

/// The whole text on one line. What would be no character of that line appears as U+FFFD: a control
/// character, a line end, a change of the writing direction, a byte that is not UTF-8.
[[nodiscard]] std::string Visible(std::string_view text);

} // namespace vorhaven
