// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CsvCatalogue.h"
#include "tests/support/FakeToolkit.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

using namespace vorhaven;
using Clock = std::chrono::steady_clock;

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// A main window whose lists hold units of every power, in turn.
class FilledWindow {
public:
    FilledWindow(const CatalogueProvider& catalogue, std::int32_t attackers, std::int32_t defenders)
        : pad_{catalogue, toolkit_}, attackers_(attackers) {
        pad_.Form_Load();
        for (std::int32_t line = 0; line < attackers; ++line)
            pad_.cboArmies[Side::Attacker].Pick(line * 5 % pad_.NumArmies().Value());
        for (std::int32_t line = 0; line < defenders; ++line)
            pad_.cboArmies[Side::Defender].Pick((line * 5 + 1) % pad_.NumArmies().Value());
        pad_.Settle();
    }

    /// Picks one more attacker, and takes it out again; the time of the pick alone.
    double SecondsOfPick(std::int32_t unit) {
        const auto start = Clock::now();
        pad_.cboArmies[Side::Attacker].Pick(unit % pad_.NumArmies().Value());
        pad_.Settle();
        const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
        pad_.DeleteArmyFromList(Side::Attacker, attackers_);
        pad_.Settle();
        return seconds;
    }

private:
    test::FakeToolkit toolkit_;
    frmBrawlpad pad_;
    std::int32_t attackers_;
};

/// What the odds add to a pick, when both sides have as many lines already: the same pick in a window without
/// defenders has no odds. Both take turns, so that the machine's noise meets both.
void PickWithOdds(benchmark::State& state) {
    const CsvCatalogue catalogue = CsvCatalogue::BuiltIn();
    const auto lines = static_cast<std::int32_t>(state.range(0));
    FilledWindow without{catalogue, lines, 0};
    FilledWindow with{catalogue, lines, lines};
    std::array<std::vector<double>, 2> seconds;
    std::int32_t unit = 0;
    for ([[maybe_unused]] auto iteration : state) {
        ++unit;
        seconds[0].push_back(without.SecondsOfPick(unit));
        seconds[1].push_back(with.SecondsOfPick(unit));
    }
    state.counters["ms_without"] = Median(seconds[0]) * 1e3;
    state.counters["ms_with"] = Median(seconds[1]) * 1e3;
    state.counters["ms_added"] = (Median(seconds[1]) - Median(seconds[0])) * 1e3;
}
BENCHMARK(PickWithOdds)->Arg(4)->Arg(8)->Arg(16)->Arg(31)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
