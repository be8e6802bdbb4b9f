// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/TextFile.h"

#include "catalogue/CatalogueError.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <locale>
#include <system_error>

namespace vorhaven {

namespace {

/// The characters of a text up to its first byte sequence that is not UTF-8.
struct Decoded {
    std::u32string characters;
    bool whole = false;
};

Decoded DecodeUtf8(const std::string& text) {
    using Codec = std::codecvt<char32_t, char8_t, std::mbstate_t>;
    const std::u8string bytes{text.begin(), text.end()};
    Decoded decoded{std::u32string(bytes.size(), U'\0'), false};
    std::mbstate_t state{};
    const char8_t* nextByte = nullptr;
    char32_t* nextCharacter = nullptr;
    char32_t* const begin = decoded.characters.data();
    const auto result = std::use_facet<Codec>(std::locale::classic())
                            .in(state, bytes.data(), bytes.data() + bytes.size(), nextByte, begin,
                                begin + decoded.characters.size(), nextCharacter);
    decoded.characters.resize(static_cast<std::size_t>(nextCharacter - begin));
    decoded.whole = result == Codec::ok;
    return decoded;
}

/// The decoder lets the surrogates of UTF-16 pass, which are no characters.
bool IsSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDFFF;
}

} // namespace

TextFile ReadTextFile(const std::filesystem::path& path) {
    std::error_code unused;
    if (!std::filesystem::exists(path, unused))
        throw CatalogueError{
            {path.string(), 0, {}}, "no such file", "all files of the catalogue in its folder"};
    std::ifstream in{path, std::ios::binary};
    TextFile file{path.string(), {}};
    std::array<char, 65536> block{};
    while (in.read(block.data(), block.size()) || in.gcount() > 0)
        file.text.append(block.data(), static_cast<std::size_t>(in.gcount()));
    if (!in.is_open() || in.bad())
        throw CatalogueError{{path.string(), 0, {}}, "no way to read it", "a file that this user may read"};
    return file;
}

void CheckIsUtf8Text(const TextFile& file) {
    constexpr auto expectedEncoding = "text that is saved as UTF-8";
    const auto [characters, whole] = DecodeUtf8(file.text);
    for (std::size_t i = 0; i <= characters.size(); ++i) {
        const bool atEnd = i == characters.size();
        const bool isUtf8 = atEnd ? whole : !IsSurrogate(characters[i]);
        const bool isLineEnd = !atEnd && (characters[i] == U'\n' || characters.compare(i, 2, U"\r\n") == 0);
        if (isUtf8 && (atEnd || isLineEnd || characters[i] == U'\t' || characters[i] >= U' '))
            continue;
        const auto lineEnds =
            std::count(characters.begin(), characters.begin() + static_cast<std::ptrdiff_t>(i), U'\n');
        const CatalogueError::Place place{file.name, static_cast<unsigned>(lineEnds) + 1, {}};
        if (!isUtf8)
            throw CatalogueError{place, "bytes that are not UTF-8", expectedEncoding};
        throw CatalogueError{place, "the control character " + std::to_string(characters[i]),
                             expectedEncoding};
    }
}

} // namespace vorhaven
