// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Conversion.h"

#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

namespace vorhaven {

/// How a failed expectation prints a count.
inline void PrintTo(Long count, std::ostream* out) {
    *out << count.Value();
}

} // namespace vorhaven

namespace vorhaven::test {

/// The pieces of a text between separators; without a separator the text itself.
inline std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> pieces{""};
    for (const char c : text)
        if (c == separator)
            pieces.emplace_back();
        else
            pieces.back() += c;
    return pieces;
}

/// Counts as text, with blanks between them.
inline std::string Joined(std::initializer_list<Long> counts) {
    std::string text;
    for (const Long count : counts)
        text.append(text.empty() ? "" : " ").append(ToText(count));
    return text;
}

} // namespace vorhaven::test
