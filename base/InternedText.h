// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace vorhaven {

/// A text that its copies share: copying costs one pointer, equal texts are one text. Army records carry
/// their names this way, since every battle begins with fresh copies of the records. A text once made is kept
/// for the life of the program; the catalogue's names are few.
class InternedText {
public:
    /// The empty text.
    InternedText();
    // NOLINTNEXTLINE(google-explicit-constructor): a name is written as the text it is.
    InternedText(std::string_view text);
    // NOLINTNEXTLINE(google-explicit-constructor)
    InternedText(const std::string& text) : InternedText(std::string_view(text)) {}
    // NOLINTNEXTLINE(google-explicit-constructor)
    InternedText(const char* text) : InternedText(std::string_view(text)) {}

    [[nodiscard]] const std::string& Text() const { return *text_; }

    /// Exact comparison, case-sensitive.
    friend bool operator==(InternedText a, InternedText b) { return a.text_ == b.text_; }

private:
    const std::string* text_;
};

} // namespace vorhaven
