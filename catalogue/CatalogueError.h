// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <stdexcept>
#include <string>

namespace vorhaven {

/// A catalogue that cannot be used. Its message is one sentence: file, line, column, what was found there,
/// and what is expected.
class CatalogueError : public std::runtime_error {
public:
    /// Where the fault is.
    struct Location {
        std::string File;
        /// From 1; 0 stands for the file as a whole.
        unsigned Line = 0;
        /// The name in the header; empty for the whole line.
        std::string Column;
    };

    CatalogueError(const Location& location, const std::string& found, const std::string& expected)
        : std::runtime_error(ToText(location) + ": found " + found + ", expected " + expected + ".") {}

    /// A location as the messages write it: armies.csv, line 3, column "hits".
    [[nodiscard]] static std::string ToText(const Location& location) {
        return location.File + (location.Line == 0 ? "" : ", line " + std::to_string(location.Line)) +
               (location.Column.empty() ? "" : ", column \"" + location.Column + '"');
    }
};

} // namespace vorhaven
