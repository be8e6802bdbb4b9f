// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/hero/HeroValues.h"

#include "base/Conversion.h"
#include "ui/controls/Controls.h"

#include <iterator>

namespace vorhaven {

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
    return Read(record) == value && std::ssize(ToText(value)) <= MaxNumberLength;
}

} // namespace vorhaven
