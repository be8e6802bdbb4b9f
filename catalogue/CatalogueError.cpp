// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CatalogueError.h"

#include "base/ForeignText.h"

namespace vorhaven {

std::string ToText(const CataloguePlace& place) {
    return place.File + (place.Line == 0 ? "" : ", line " + std::to_string(place.Line)) +
           (place.Column.empty() ? "" : ", column \"" + place.Column + '"');
}

void CatalogueFaults::Add(const CataloguePlace& place, const std::string& found,
                          const std::string& expected) {
    if (lines_.size() == MostListed) {
        ++unlisted_;
        return;
    }
    const std::string text = vorhaven::ToText(place);
    lines_.push_back((text.empty() ? "Found " : text + ": found ") + found + ", expected " + expected + '.');
}

std::string CatalogueFaults::ToText() const {
    std::string text;
    for (const std::string& line : lines_)
        text.append(text.empty() ? "" : "\n").append(line);
    if (unlisted_ > 0)
        text.append("\nAnd ").append(std::to_string(unlisted_)).append(" more.");
    return text;
}

CatalogueError::CatalogueError(const std::string& origin, const CatalogueFaults& faults)
    : std::runtime_error("The unit catalogue " + (origin.empty() ? "" : "in " + Visible(origin) + ' ') +
                         "cannot be used:\n" + faults.ToText()) {}

} // namespace vorhaven
