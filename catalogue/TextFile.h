// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "catalogue/CatalogueError.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace vorhaven {

/// A file of the catalogue in memory.
struct TextFile {
    /// What the errors call it.
    std::string Name;
    /// Its bytes as they are on disk.
    std::string Text;
    /// Why it could not be read; empty if it was.
    std::string Fault{};
};

/// The most bytes a file of the catalogue may have: room for some 25,000 units, and little enough to be read
/// at once whatever it holds.
inline constexpr std::size_t MaxFileSize = std::size_t{4} << 20;

/// A path as messages show it: as UTF-8, which its own string() is not on every system.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);

/// What a path leads to that is not of the given type, directly or through symbolic links; empty if it is.
[[nodiscard]] std::string FaultOf(const std::filesystem::path& path, std::filesystem::file_type type);

/// Reads a regular file, with a fault when there is none or it cannot be read. Of a file above MaxFileSize,
/// or an endless one, it returns a beginning that is above MaxFileSize too.
[[nodiscard]] TextFile ReadTextFile(const std::filesystem::path& path);

/// Whether the file was read and is UTF-8 text of at most MaxFileSize bytes without control characters other
/// than tabs and line ends (LF or CR LF), maybe with a byte order mark first. Adds the first fault otherwise.
[[nodiscard]] bool IsUtf8Text(const TextFile& file, CatalogueFaults& faults);

} // namespace vorhaven
