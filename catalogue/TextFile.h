// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>

namespace vorhaven {

/// A file of the catalogue in memory.
struct TextFile {
    /// How the errors call it: a plain name, or a path.
    std::string name;
    /// Its bytes as they are on the disk.
    std::string text;
};

/// Reads a file whole. Throws CatalogueError when it is missing or cannot be read.
[[nodiscard]] TextFile ReadTextFile(const std::filesystem::path& path);

/// Throws CatalogueError, with the line of the first fault, unless the file is UTF-8 text: no NUL byte, and
/// no control characters besides tabs and line ends (LF or CR LF). A byte order mark of UTF-8 may stand
/// first.
void CheckIsUtf8Text(const TextFile& file);

} // namespace vorhaven
