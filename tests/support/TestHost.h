// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/MBattleCalc.h"
#include "tests/support/QuietHost.h"

#include <array>
#include <functional>
#include <string>

namespace vorhaven::test {

/// What one battle comes to: the columns of its results.
using Row = std::array<std::int32_t, MBattleCalc::ResultColumn::Last>;

inline Row RowOf(Long battle) {
    Row row{};
    for (std::size_t column = 0; column < row.size(); ++column)
        row[column] = MBattleCalc::BattleResults(battle, static_cast<std::int32_t>(column) + 1).Value();
    return row;
}

/// A quiet host that keeps what the engine shows.
class TestHost final : public QuietHost {
public:
    void ShowBusy(bool busy) override { Show(busy ? "hourglass" : "pointer"); }
    void ShowProgressBar() override { Show("bar"); }
    void ShowProgress(Long percent) override { Show(ToText(percent)); }
    void ShowProgressText(const std::string& text) override { Show(text); }
    void ProcessEvents() override { Show("events"), OnEvents(); }
    void ShowWinPercent(const std::string& text) override { Show(text); }
    void ShowAverage(Long column, const std::string& text) override { Show(ToText(column) + ":" + text); }
    void ShowStats(CStackAtt& a, CStackAtt& d) override { Show("stats"), OnStats(a, d); }

    /// What the engine showed and asked for, in order, with commas between.
    std::string Shown;
    std::function<void()> OnEvents = [] {};
    std::function<void(CStackAtt&, CStackAtt&)> OnStats = [](CStackAtt&, CStackAtt&) {};

private:
    void Show(const std::string& what) { Shown.append(Shown.empty() ? "" : ", ").append(what); }
};

} // namespace vorhaven::test
