// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/EngineTest.h"
#include "tests/support/Errors.h"

#include <limits>
#include <sys/resource.h>

/// Lets the address sanitizer refuse memory as the system does; it does not live with a limit of the
/// system's.
extern "C" const char* __asan_default_options() {
    return "allocator_may_return_null=1:max_allocation_size_mb=4096";
}

namespace vorhaven::test {
namespace {

using namespace MBattleCalc;

TEST_F(Engine, RunWhoseResultsDoNotFitIntoMemoryIsAnError) {
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_AS, &before), 0);
    rlimit narrow = before;
#ifndef VORHAVEN_SANITIZERS
    narrow.rlim_cur = rlim_t{4} << 30U;
#endif
    ASSERT_EQ(setrlimit(RLIMIT_AS, &narrow), 0);
    EXPECT_THAT([this] { Add(host_, std::numeric_limits<std::int32_t>::max(), 20, false, 0); },
                Raises(7, {"MBattleCalc::Add"}));
    EXPECT_EQ(setrlimit(RLIMIT_AS, &before), 0);
    EXPECT_EQ(BattleResults.RowCount(), 0);
}

} // namespace
} // namespace vorhaven::test
