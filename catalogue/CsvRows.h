// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Conversion.h"
#include "catalogue/CatalogueError.h"
#include "catalogue/TextFile.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace vorhaven {

/// One row of a CSV file below its header.
template <std::size_t N>
struct CsvRow {
    /// Its line in the file, from 1.
    unsigned Line = 0;
    /// Its place among the rows, from 0; faulty rows count too.
    std::size_t Number = 0;
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

/// Reads a CSV file that has at least one row, with the cells of the columns that `headers` names, wherever
/// they are in the file. Cells come without the blanks around them; other columns and blank lines are
/// skipped.
template <std::size_t N>
class CsvRows {
public:
    using Headers = std::array<std::string, N>;

    /// What is passed must outlive the rows.
    CsvRows(const TextFile& file, const Headers& headers, CatalogueFaults& faults)
        : file_(&file), headers_(&headers), faults_(&faults) {}

    /// Calls `onRow` with each row that can be read, and adds a fault for each that cannot, or for the file.
    void ForEach(const auto& onRow) {
        if (!IsUtf8Text(*file_, *faults_))
            return;
        // The reader looks one byte past a last line that has no end.
        const std::string text = file_->Text.ends_with('\n') ? file_->Text : file_->Text + '\n';
        Reader reader{file_->Name, text.data(), text.data() + text.size()};
        if (ReadHeader(reader, text))
            ReadRows(reader, onRow);
    }

private:
    using Reader = io::CSVReader<N, TrimBlanks, StrictQuotes, io::throw_on_overflow, io::empty_line_comment>;

    [[nodiscard]] bool ReadHeader(Reader& reader, const std::string& text) {
        try {
            std::apply([&](const auto&... header) { reader.read_header(io::ignore_extra_column, header...); },
                       *headers_);
            return true;
        } catch (const io::error::header_missing&) {
            Add(0, "an empty file", ExpectedHeader);
        } catch (const io::error::missing_column_in_header&) {
            CheckHeader(text);
        } catch (const io::error::duplicated_column_in_header&) {
            CheckHeader(text);
        } catch (...) {
            AddThrown(reader.get_file_line());
        }
        return false;
    }

    /// Adds all faults of a header; the library says no more than the first.
    void CheckHeader(const std::string& text) {
        io::LineReader lines{file_->Name, text.data(), text.data() + text.size()};
        char* line = lines.next_line();
        while (io::empty_line_comment::is_comment(line))
            line = lines.next_line();
        std::map<std::string, int> counts;
        try {
            for (char* begin = line; begin != nullptr;) {
                char* end = begin + (StrictQuotes::find_next_column_end(begin) - begin);
                char* const next = *end == '\0' ? nullptr : end + 1;
                TrimBlanks::trim(begin, end);
                StrictQuotes::unescape(begin, end);
                ++counts[begin];
                begin = next;
            }
        } catch (...) {
            // A broken cell behind the one that the library did not like.
            AddThrown(lines.get_file_line());
            return;
        }
        const auto isMissing = [&](const std::string& header) { return !counts.contains(header); };
        if (std::ranges::all_of(*headers_, isMissing)) {
            Add(lines.get_file_line(), "none of the columns", ExpectedHeader);
            return;
        }
        for (const std::string& header : *headers_)
            if (isMissing(header))
                Add(lines.get_file_line(), "no such column", ExpectedHeader, header);
            else if (counts[header] > 1)
                Add(lines.get_file_line(), "it twice", ExpectedHeader, header);
    }

    void ReadRows(Reader& reader, const auto& onRow) {
        CsvRow<N> row;
        for (;; ++row.Number)
            try {
                if (!std::apply([&](auto&... cell) { return reader.read_row(cell...); }, row.Cells))
                    break;
                row.Line = reader.get_file_line();
                onRow(row);
            } catch (...) {
                AddThrown(reader.get_file_line());
            }
        if (row.Number == 0)
            Add(reader.get_file_line(), "no row below the header", "at least one");
    }

    /// Adds the fault of the line whose exception is being handled; one that is no fault goes on.
    void AddThrown(unsigned line) {
        constexpr auto expectedCells =
            "as many cells as the header has (a text with a comma needs quotes around it)";
        constexpr auto expectedQuotes =
            "quotes around the whole cell, on one line, and a quote within it doubled";
        try {
            throw;
        } catch (const io::error::too_few_columns&) {
            Add(line, "too few cells", expectedCells);
        } catch (const io::error::too_many_columns&) {
            Add(line, "too many cells", expectedCells);
        } catch (const io::error::escaped_string_not_closed&) {
            Add(line, "a quote that is never closed", expectedQuotes);
        } catch (const StrictQuotes::StrayQuote&) {
            Add(line, "a quote in the middle of a cell", expectedQuotes);
        }
    }

    void Add(unsigned line, const std::string& found, const std::string& expected,
             const std::string& column = {}) {
        faults_->Add({file_->Name, line, column}, found, expected);
    }

    static constexpr auto ExpectedHeader =
        "a header that names each column once, with commas between the names";

    const TextFile* file_;
    const Headers* headers_;
    CatalogueFaults* faults_;
};

} // namespace vorhaven
