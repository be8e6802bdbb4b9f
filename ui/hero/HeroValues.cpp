// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/hero/HeroValues.h"

#include "base/Conversion.h"
#include "ui/controls/Controls.h"

#include <algorithm>
#include <iterator>

namespace vorhaven {
namespace {

/// The fewest characters that a number can be typed in: 2000000000 in the three of "2e9".
std::ptrdiff_t LeastLength(Long value) {
    const std::string digits = ToText(value);
    const auto end = std::find_if(digits.rbegin(), digits.rend(), [](char digit) { return digit != '0'; });
    const auto zeros = end - digits.rbegin();
    return std::min(std::ssize(digits), std::ssize(digits) - zeros + 2);
}

} // namespace

HeroValues HeroValues::From(const CArmy& hero) {
    HeroValues values;
    for (const HeroNumber& number : HeroNumbers)
        values.*number.Value = number.Read(hero);
    return values;
}

HeroValues HeroValues::AtFirst(const CArmy& hero) {
    HeroValues values = From(hero);
    values.Leadership = 1;
    return values;
}

void HeroValues::ApplyTo(CArmy& hero) const {
    for (const HeroNumber& number : HeroNumbers)
        number.Write(hero, this->*number.Value);
}

bool HeroNumber::Holds(Long value) const {
    CArmy record;
    Write(record, value);
    return Read(record) == value && LeastLength(value) <= MaxNumberLength;
}

} // namespace vorhaven
