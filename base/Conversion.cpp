// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <locale>
#include <sstream>
#include <system_error>
#if !defined(__cpp_lib_to_chars) && __has_include(<xlocale.h>)
#include <xlocale.h>
#endif

namespace vorhaven {
namespace {

#ifdef __cpp_lib_to_chars

using std::from_chars;

#else

/// std::from_chars, which libc++ has for whole numbers alone, for a text of the characters that ToLong
/// accepts.
std::from_chars_result from_chars(const char* begin, const char* end, double& value) {
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", locale_t{});
    const std::string text(begin, end);
    char* stop = nullptr;
    errno = 0;
    const double read = strtod_l(text.c_str(), &stop, classic);
    if (stop == text.c_str() || text.starts_with('+'))
        return {begin, std::errc::invalid_argument};
    const char* const rest = begin + (stop - text.c_str());
    if (errno == ERANGE)
        return {rest, std::errc::result_out_of_range};
    value = read;
    return {rest, std::errc{}};
}

#endif

} // namespace

Long RoundToLong(double value) {
    const double floor = std::floor(value);
    const double fraction = value - floor;
    const bool up = fraction > 0.5 || (fraction == 0.5 && std::fmod(floor, 2.0) != 0.0);
    const double rounded = up ? floor + 1.0 : floor;
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        throw RunTimeError{ErrorNumber::Overflow};
    return static_cast<std::int32_t>(rounded);
}

Long ToLong(std::string_view text) {
    std::string_view number = Trimmed(text);
    if (number.starts_with('+') && !number.starts_with("+-"))
        number.remove_prefix(1);
    // Letters other than the exponent's would let the names of infinity and of no number pass as numbers.
    if (number.find_first_not_of("0123456789+-.eE") != std::string_view::npos)
        throw RunTimeError{ErrorNumber::TypeMismatch};
    double value = 0.0;
    const char* const end = number.data() + number.size();
    const auto [stop, error] = from_chars(number.data(), end, value);
    if (error == std::errc::invalid_argument || stop != end)
        throw RunTimeError{ErrorNumber::TypeMismatch};
    if (error == std::errc::result_out_of_range) {
        // Too large or too near to 0? A stream reads the one as the largest number and the other as about 0.
        std::istringstream in{std::string{number}};
        in.imbue(std::locale::classic());
        in >> value;
    }
    return RoundToLong(value);
}

std::optional<Long> NumberIn(std::string_view text) {
    try {
        return ToLong(text);
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

std::int16_t ToShort(Long value) {
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
        throw RunTimeError{ErrorNumber::Overflow};
    return static_cast<std::int16_t>(value.Value());
}

std::string ToText(Long value) {
    return std::to_string(value.Value());
}

std::string BooleanText(bool value) {
    return value ? "True" : "False";
}

std::string ToSignificantText(double value, int digits) {
    // Scientific form first: it rounds to the wanted digits and shows where the point belongs.
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                      std::chars_format::scientific, digits - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
    const std::size_t e = text.find('e');
    int exponent = 0;
    const std::size_t sign = text[e + 1] == '+' ? 1 : 0;
    std::from_chars(text.data() + e + 1 + sign, text.data() + text.size(), exponent);

    std::string figures(text.substr(0, e));
    std::erase(figures, '.');
    if (exponent < 0)
        figures.insert(0, static_cast<std::size_t>(-exponent), '0');
    const std::size_t whole = exponent < 0 ? 1 : static_cast<std::size_t>(exponent) + 1;
    if (figures.size() < whole)
        figures.append(whole - figures.size(), '0');
    const std::size_t last = figures.find_last_not_of('0');
    figures.erase(std::max(whole, last == std::string::npos ? 0 : last + 1));
    if (figures.size() > whole)
        figures.insert(whole, 1, '.');
    if (value < 0.0)
        figures.insert(0, 1, '-');
    return figures;
}

std::string ToFixedText(double value, int decimals) {
    // Room for any finite number in full.
    std::array<char, 512> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, decimals);
    return {buffer.data(), result.ptr};
}

std::string ToSignedText(double value, int decimals) {
    const std::string text = ToFixedText(std::abs(value), decimals);
    const bool isNothing = text.find_first_not_of("0.") == std::string::npos;
    return (value < 0.0 && !isNothing ? "\u2212" : "+") + text;
}

std::string ToLower(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

std::string_view Trimmed(std::string_view text, std::string_view blanks) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string ToTrimmedLower(std::string_view text) {
    return ToLower(Trimmed(text));
}

} // namespace vorhaven
