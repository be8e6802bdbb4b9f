// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/BattleResults.h"

#include <algorithm>

namespace vorhaven::MBattleCalc {

void ResultsTable::Redimension(Long battles) {
    if (battles < 0)
        throw RunTimeError{ErrorNumber::SubscriptOutOfRange};
    cells_.reset();
    rows_ = 0;
    const std::size_t cells = battles.Index() * ResultColumn::Last;
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): see Free.
    cells_.reset(static_cast<Long*>(std::calloc(std::max<std::size_t>(cells, 1), sizeof(Long))));
    if (!cells_)
        throw RunTimeError{ErrorNumber::OutOfMemory};
    rows_ = battles;
}

} // namespace vorhaven::MBattleCalc
