// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/InternedText.h"

#include <set>

namespace vorhaven {
namespace {

const std::string* Shared(std::string_view text) {
    static std::set<std::string, std::less<>> texts;
    const auto found = texts.find(text);
    return &*(found != texts.end() ? found : texts.emplace(text).first);
}

} // namespace

InternedText::InternedText() {
    static const std::string* const empty = Shared({});
    text_ = empty;
}

InternedText::InternedText(std::string_view text) : text_(Shared(text)) {}

} // namespace vorhaven
