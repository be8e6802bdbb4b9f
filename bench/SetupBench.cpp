// SPDX-License-Identifier: GPL-3.0-or-later

#include "catalogue/CsvCatalogue.h"
#include "ui/setup/frmBrawlpad.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

using namespace vorhaven;
using Clock = std::chrono::steady_clock;

/// A toolkit without a screen or a user.
class NoToolkit final : public Toolkit {
public:
    [[nodiscard]] Size ScreenSize() const override { return {}; }
    void ShowBusy(bool /*busy*/) override {}
    void ProcessEvents() override {}
    void ShowMessage(const std::string& /*prompt*/) override {}
    [[nodiscard]] std::string ClipboardText() const override { return {}; }
    void SetClipboardText(const std::string& /*text*/) override {}
    void ShowModal(frmHero& /*window*/) override {}
    void ShowModal(frmStats& /*window*/) override {}
    void Show(frmMoreResults& /*window*/) override {}
};

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// What the odds add to a pick, when both sides have as many lines already. Half of the picks are given no
/// time for the odds; both kinds take turns, so that the machine's noise meets both.
void PickWithOdds(benchmark::State& state) {
    const CsvCatalogue catalogue = CsvCatalogue::BuiltIn();
    NoToolkit toolkit;
    frmBrawlpad pad{catalogue, toolkit};
    pad.Form_Load();
    // Units of every power, in turn.
    const auto lines = static_cast<std::int32_t>(state.range(0));
    for (std::int32_t line = 0; line < lines; ++line)
        for (const std::size_t side : {0U, 1U})
            pad.cboArmies[side].Pick((line * 5 + static_cast<std::int32_t>(side)) % pad.NumArmies().Value());
    pad.Settle();

    const std::chrono::milliseconds budget = pad.OddsBudget;
    std::array<std::vector<double>, 2> seconds;
    std::int32_t unit = 0;
    for ([[maybe_unused]] auto iteration : state)
        for (const std::size_t kind : {0U, 1U}) {
            pad.OddsBudget = kind == 0 ? std::chrono::milliseconds{0} : budget;
            const auto start = Clock::now();
            pad.cboArmies[0].Pick(++unit % pad.NumArmies().Value());
            pad.Settle();
            seconds[kind].push_back(std::chrono::duration<double>(Clock::now() - start).count());
            pad.DeleteArmyFromList(Side::Attack, lines);
            pad.OddsBudget = std::chrono::milliseconds{0};
            pad.Settle();
        }
    state.counters["ms_without"] = Median(seconds[0]) * 1e3;
    state.counters["ms_with"] = Median(seconds[1]) * 1e3;
    state.counters["ms_added"] = (Median(seconds[1]) - Median(seconds[0])) * 1e3;
}
BENCHMARK(PickWithOdds)->Arg(4)->Arg(8)->Arg(16)->Arg(31)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
