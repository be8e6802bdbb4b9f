// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/hero/HeroValues.h"

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

} // namespace vorhaven
