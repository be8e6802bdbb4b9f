// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Conversion.h"
#include "catalogue/CatalogueError.h"
#include "catalogue/TextFile.h"

#include <csv.h>

#include <array>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace vorhaven {

/// One row of a CSV file below its header.
template <std::size_t N>
struct CsvRow {
    /// Its line in the file, from 1.
    unsigned Line = 0;
    /// In the order of the columns that were asked for.
    std::array<std::string, N> Cells;
};

/// Blanks and tabs do not count around a cell.
using TrimBlanks = io::trim_chars<' ', '\t'>;

/// Cells in double quotes, where the CSV library is too lenient: it accepts a quote in the middle of a cell.
/// Blanks do not count within the quotes either.
struct StrictQuotes : io::double_quote_escape<',', '"'> {
    struct StrayQuote {};

    static const char* find_next_column_end(const char* begin) {
        const char* const end = double_quote_escape::find_next_column_end(begin);
        const std::string_view cell = Trimmed({begin, end}, " \t");
        if (cell.find('"') == std::string_view::npos)
            return end;
        if (cell.front() != '"' || cell.back() != '"')
            throw StrayQuote{};
        const std::string_view inner = cell.substr(1, cell.size() - 2);
        for (auto quote = inner.find('"'); quote != std::string_view::npos;
             quote = inner.find('"', quote + 2))
            if (inner.substr(quote, 2) != "\"\"")
                throw StrayQuote{};
        return end;
    }

    static void unescape(char*& begin, char*& end) {
        double_quote_escape::unescape(begin, end);
        TrimBlanks::trim(begin, end);
    }
};

/// The rows of a CSV file that has at least one, with the cells of the columns that `headers` names, wherever
/// they stand in the file. Cells come without the blanks around them; other columns and blank lines are
/// skipped. Throws CatalogueError.
template <std::size_t N>
[[nodiscard]] std::vector<CsvRow<N>> ReadCsvRows(const TextFile& file,
                                                 const std::array<std::string, N>& headers) {
    CheckIsUtf8Text(file);
    // The reader looks one byte past a last line that has no end.
    const std::string text = file.Text.ends_with('\n') ? file.Text : file.Text + '\n';
    io::CSVReader<N, TrimBlanks, StrictQuotes, io::throw_on_overflow, io::empty_line_comment> reader{
        file.Name, text.data(), text.data() + text.size()};
    const auto error = [&](const std::string& found, const std::string& expected,
                           const std::string& column = {}) {
        return CatalogueError{{file.Name, reader.get_file_line(), column}, found, expected};
    };
    constexpr auto expectedHeader = "a header that names each column once, with commas between the names";
    constexpr auto expectedCells = "as many cells as the header has (a text with a comma stands in quotes)";
    constexpr auto expectedQuotes =
        "quotes around the whole cell, on one line, and a quote within it doubled";

    std::vector<CsvRow<N>> rows;
    try {
        std::apply([&](const auto&... header) { reader.read_header(io::ignore_extra_column, header...); },
                   headers);
        CsvRow<N> row;
        while (std::apply([&](auto&... cell) { return reader.read_row(cell...); }, row.Cells)) {
            row.Line = reader.get_file_line();
            rows.push_back(row);
        }
    } catch (const io::error::header_missing&) {
        throw CatalogueError{{file.Name, 0, {}}, "an empty file", expectedHeader};
    } catch (const io::error::missing_column_in_header& missing) {
        throw error("no such column", expectedHeader, missing.column_name);
    } catch (const io::error::duplicated_column_in_header& duplicated) {
        throw error("it twice", expectedHeader, duplicated.column_name);
    } catch (const io::error::too_few_columns&) {
        throw error("too few cells", expectedCells);
    } catch (const io::error::too_many_columns&) {
        throw error("too many cells", expectedCells);
    } catch (const io::error::escaped_string_not_closed&) {
        throw error("a quote that is never closed", expectedQuotes);
    } catch (const StrictQuotes::StrayQuote&) {
        throw error("a quote in the middle of a cell", expectedQuotes);
    }
    if (rows.empty())
        throw error("no row below the header", "at least one");
    return rows;
}

} // namespace vorhaven
