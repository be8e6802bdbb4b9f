// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/TextFile.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utf8.h>

namespace vorhaven {
namespace {

constexpr const char* Unreadable = "no way to read it";

/// What there is at a path, as an error says it; `type` is that of the file it leads to.
const char* Describe(const std::filesystem::path& path, std::filesystem::file_type type) {
    using enum std::filesystem::file_type;
    std::error_code ignored;
    switch (type) {
    case not_found:
        return std::filesystem::is_symlink(path, ignored) ? "a symbolic link that leads nowhere"
                                                          : "nothing of this name";
    case regular:
        return "a file";
    case directory:
        return "a folder";
    case fifo:
    case socket:
    case block:
    case character:
        return "a pipe or a device";
    default:
        return Unreadable;
    }
}

/// Whether text may go on with `rest`, by its first character.
bool IsTextCharacter(std::string_view rest) {
    return static_cast<unsigned char>(rest.front()) >= ' ' || rest.starts_with('\t') ||
           rest.starts_with('\n') || rest.starts_with("\r\n");
}

} // namespace

std::string PathText(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string FaultOf(const std::filesystem::path& path, std::filesystem::file_type type) {
    std::error_code ignored;
    const auto found = std::filesystem::status(path, ignored).type();
    return found == type ? "" : Describe(path, found);
}

TextFile ReadTextFile(const std::filesystem::path& path) {
    // Before it is opened: to open a pipe is to wait for its other end.
    TextFile file{PathText(path.filename()), {}, FaultOf(path, std::filesystem::file_type::regular)};
    if (!file.Fault.empty())
        return file;
    std::ifstream in{path, std::ios::binary};
    std::array<char, 65536> block{};
    while (file.Text.size() <= MaxFileSize && (in.read(block.data(), block.size()) || in.gcount() > 0))
        file.Text.append(block.data(), static_cast<std::size_t>(in.gcount()));
    if (!in.is_open() || in.bad())
        file.Fault = Unreadable;
    return file;
}

bool IsUtf8Text(const TextFile& file, CatalogueFaults& faults) {
    const std::string_view text = file.Text;
    const auto refuse = [&](unsigned line, const std::string& found, const std::string& expected) {
        faults.Add({file.Name, line, {}}, found, expected);
        return false;
    };
    if (!file.Fault.empty())
        return refuse(
            0, file.Fault,
            "a readable file (the folder of a catalogue holds armies.csv, heroes.csv and powers.csv)");
    if (text.size() > MaxFileSize)
        return refuse(0, "a file that is too large", "at most " + std::to_string(MaxFileSize >> 20) + " MiB");

    const auto validEnd = utf8::find_invalid(text.begin(), text.end());
    const auto fault = std::find_if_not(text.begin(), validEnd, [&](const char& character) {
        return IsTextCharacter(text.substr(static_cast<std::size_t>(&character - text.data())));
    });
    if (fault == text.end())
        return true;

    constexpr auto expectedEncoding = "text that is saved as UTF-8";
    const auto line = 1 + static_cast<unsigned>(std::count(text.begin(), fault, '\n'));
    if (fault == validEnd)
        return refuse(line, "bytes that are not UTF-8", expectedEncoding);
    if (*fault == '\r')
        return refuse(line, "a line end of CR alone", "line ends of LF or CR LF");
    return refuse(line, "the control character " + std::to_string(*fault), expectedEncoding);
}

} // namespace vorhaven
