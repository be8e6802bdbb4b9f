// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace vorhaven {

/// A file of the catalogue in memory.
struct TextFile {
    /// What the errors call it: a plain name, or a path.
    std::string Name;
    /// Its bytes as they are on disk.
    std::string Text;
};

/// The most bytes a file of the catalogue may have: room for some 25,000 units, and little enough to be read
/// at once whatever stands in it.
inline constexpr std::size_t MaxFileSize = std::size_t{4} << 20;

/// Throws CatalogueError, which says that `expected` was expected, unless a path leads to a file of the given
/// type, directly or through symbolic links.
void CheckFileType(const std::filesystem::path& path, std::filesystem::file_type type,
                   const std::string& expected);

/// Reads a regular file. Of a file above MaxFileSize, or an endless one, it returns a beginning that is above
/// MaxFileSize too. Throws CatalogueError when there is no such file or it cannot be read.
[[nodiscard]] TextFile ReadTextFile(const std::filesystem::path& path);

/// Throws CatalogueError, with the line of the first fault, unless the file is UTF-8 text of at most
/// MaxFileSize bytes without control characters other than tabs and line ends (LF or CR LF). A byte order
/// mark of UTF-8 may come first.
void CheckIsUtf8Text(const TextFile& file);

} // namespace vorhaven
