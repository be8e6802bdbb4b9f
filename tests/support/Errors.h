// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/RunTimeError.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace vorhaven::test {

/// The number of the run-time error that an action ends in, 0 for none.
int ErrorOf(const auto& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

/// What an action ends in: an error that is known as a type mismatch once it has passed these locations.
inline auto Raises(int number, const std::vector<std::string>& trail) {
    return testing::Throws<RunTimeError>(
        testing::AllOf(testing::Property(&RunTimeError::Number, ErrorNumber{number}),
                       testing::Property(&RunTimeError::Trail, testing::ElementsAreArray(trail)),
                       testing::Property(&RunTimeError::Headline, "Run-time error '13':\nType mismatch")));
}

} // namespace vorhaven::test
