// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/Budget.h"

namespace vorhaven::Odds {

void Budget::GiveUp() {
    left_ = 0;
    throw TooManyOutcomes{};
}

} // namespace vorhaven::Odds
