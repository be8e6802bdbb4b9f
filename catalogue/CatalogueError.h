// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <stdexcept>
#include <string>

namespace vorhaven {

/// A catalogue that cannot be used. Its message is one sentence: file, line, column, what was found there,
/// and what is expected.
class CatalogueError : public std::runtime_error {
public:
    /// Where the fault is. Lines count from 1, and 0 stands for the file as a whole; a column goes by the
    /// name that its header has, and an empty one stands for the whole line.
    struct Place {
        std::string file;
        unsigned line = 0;
        std::string column;
    };

    CatalogueError(const Place& place, const std::string& found, const std::string& expected)
        : std::runtime_error(ToText(place) + ": found " + found + ", expected " + expected + ".") {}

    /// A place as the messages write it: armies.csv, line 3, column "hits".
    [[nodiscard]] static std::string ToText(const Place& place) {
        return place.file + (place.line == 0 ? "" : ", line " + std::to_string(place.line)) +
               (place.column.empty() ? "" : ", column \"" + place.column + '"');
    }
};

} // namespace vorhaven
