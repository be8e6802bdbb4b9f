// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "catalogue/CatalogueError.h"
#include "catalogue/TextFile.h"

#include <array>
#include <libfccp/csv.h>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace vorhaven {

/// One row of a CSV file below its header.
template <std::size_t N>
struct CsvRow {
    /// Its line in the file, from 1.
    unsigned line = 0;
    /// In the order of the columns that were asked for.
    std::array<std::string, N> cells;
};

/// A text without the blanks and tabs around it.
[[nodiscard]] inline std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return std::string{text.substr(first, text.find_last_not_of(" \t") - first + 1)};
}

/// Quoting in double quotes, held to its rules: the reader by itself passes a quote in the middle of a cell.
struct StrictQuotes : io::double_quote_escape<',', '"'> {
    struct StrayQuote {};

    static const char* find_next_column_end(const char* begin) {
        const char* const end = double_quote_escape::find_next_column_end(begin);
        const std::string cell = Trimmed({begin, end});
        if (cell.find('"') == std::string::npos)
            return end;
        if (cell.front() != '"' || cell.back() != '"')
            throw StrayQuote{};
        const std::string_view inner = std::string_view{cell}.substr(1, cell.size() - 2);
        for (auto quote = inner.find('"'); quote != std::string_view::npos;
             quote = inner.find('"', quote + 2))
            if (inner.substr(quote, 2) != "\"\"")
                throw StrayQuote{};
        return end;
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
    const std::string text = file.text.ends_with('\n') ? file.text : file.text + '\n';
    io::CSVReader<N, io::trim_chars<' ', '\t'>, StrictQuotes, io::throw_on_overflow, io::empty_line_comment>
        reader{file.name, text.data(), text.data() + text.size()};
    const auto error = [&](const std::string& found, const std::string& expected,
                           const std::string& column = {}) {
        return CatalogueError{{file.name, reader.get_file_line(), column}, found, expected};
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
        while (std::apply([&](auto&... cell) { return reader.read_row(cell...); }, row.cells)) {
            for (std::string& cell : row.cells)
                cell = Trimmed(cell);
            row.line = reader.get_file_line();
            rows.push_back(row);
        }
    } catch (const io::error::header_missing&) {
        throw CatalogueError{{file.name, 0, {}}, "an empty file", expectedHeader};
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
    } catch (const io::error::line_length_limit_exceeded&) {
        throw error("a line that is too long", "less than 16 MiB in a line");
    }
    if (rows.empty())
        throw error("no row below the header", "at least one");
    return rows;
}

} // namespace vorhaven
