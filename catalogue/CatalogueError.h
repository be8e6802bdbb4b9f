// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorhaven {

/// A place in a catalogue.
struct CataloguePlace {
    /// The file's plain name; empty for the folder itself.
    std::string File;
    /// From 1; 0 for the file as a whole.
    unsigned Line = 0;
    /// The name in the header; empty for the whole line.
    std::string Column;
};

/// A place as the messages write it: armies.csv, line 3, column "hits".
[[nodiscard]] std::string ToText(const CataloguePlace& place);

/// The faults of a catalogue, in the order in which they are found.
class CatalogueFaults {
public:
    /// Faults beyond these are only counted.
    static constexpr std::size_t MostListed = 10;

    void Add(const CataloguePlace& place, const std::string& found, const std::string& expected);

    [[nodiscard]] bool IsEmpty() const { return lines_.empty(); }

    /// A line for each fault: place, what was found there, and what is expected. A last line counts those
    /// that are not listed.
    [[nodiscard]] std::string ToText() const;

private:
    std::vector<std::string> lines_;
    std::size_t unlisted_ = 0;
};

/// A catalogue that cannot be used. Its message is a heading and the lines of the faults.
class CatalogueError : public std::runtime_error {
public:
    /// `origin`: the catalogue's folder; empty for none.
    CatalogueError(const std::string& origin, const CatalogueFaults& faults);
};

} // namespace vorhaven
