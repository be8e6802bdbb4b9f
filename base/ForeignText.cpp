// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/ForeignText.h"

#include <iterator>
#include <utf8.h>

namespace vorhaven {
namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr std::string_view Ellipsis = "\u2026";

constexpr std::size_t LongestSequence = 4; // bytes of one character in UTF-8

bool IsVisible(char32_t c) {
    const bool isControl = c < 0x20 || (c >= 0x7F && c <= 0x9F);
    const bool isLineEnd = c == 0x2028 || c == 0x2029;
    const bool isDirection = c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
                             (c >= 0x2066 && c <= 0x2069);
    return !isControl && !isLineEnd && !isDirection;
}

/// The text as UTF-8, with a replacement for each fault.
std::string Repaired(std::string_view text) {
    std::string repaired;
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(repaired), Replacement);
    return repaired;
}

void AppendVisible(std::string& shown, char32_t c) {
    utf8::append(IsVisible(c) ? c : Replacement, std::back_inserter(shown));
}

} // namespace

std::string Quoted(std::string_view text) {
    // One character more than fits shows that the text goes on.
    const std::string head = Repaired(text.substr(0, LongestSequence * (MaxQuotedCharacters + 1)));
    const bool isCut =
        static_cast<std::size_t>(utf8::distance(head.begin(), head.end())) > MaxQuotedCharacters;
    std::size_t left = isCut ? MaxQuotedCharacters - 1 : MaxQuotedCharacters;
    std::string shown = "\"";
    for (auto it = head.begin(); it != head.end() && left > 0; --left)
        AppendVisible(shown, utf8::next(it, head.end()));
    return shown.append(isCut ? Ellipsis : "").append("\"");
}

std::string Visible(std::string_view text) {
    const std::string repaired = Repaired(text);
    std::string shown;
    for (auto it = repaired.begin(); it != repaired.end();)
        AppendVisible(shown, utf8::next(it, repaired.end()));
    return shown;
}

} // namespace vorhaven
