// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/State.h"
#include "tests/support/EngineTest.h"
#include "tests/support/Errors.h"

#include <limits>

namespace vorhaven::test {
namespace {

using namespace MBattleCalc;

TEST_F(Engine, HourglassIsSetBackBeforeTheResultsAreShown) {
    Fight("", "", "A D", 2);
    EXPECT_EQ(host_.Shown, "hourglass, bar, stats, 50, events, 50% Completed, events, 100, events, "
                           "100% Completed, events, pointer, 50%, 2:0.5, 3:0.5, 4:0.5, 5:0.5");
}

TEST_F(Engine, AbortEndsTheRunBeforeItsNextBattleWithoutResultsAndEndsNoOther) {
    host_.OnEvents = [] { AbortRequested = true; };
    Fight("", "", "A", 3);
    EXPECT_EQ(host_.Shown, "hourglass, bar, stats, 33, events, 33% Completed, events, pointer");
    EXPECT_EQ(RowOf(1), (Row{1, 0, 0, 1, 1}));
    EXPECT_EQ(RowOf(2), Row{});
    EXPECT_EQ(RowOf(3), Row{});
    EXPECT_FALSE(AbortRequested);
    EXPECT_EQ(Host, nullptr);
}

TEST_F(Engine, EveryBattleAndEveryRunBeginsAfresh) {
    std::string seen;
    host_.OnStats = [&](CStackAtt& a, CStackAtt& d) { seen += Describe(a) + ' ' + Describe(d); };
    Fight("Hits 4 Missle 1 Assass 10", "Hits 3 Acid 10", "98% 98% 98% 98%", 2);
    EXPECT_EQ(seen, "10/4 10/3") << "the stacks are shown once";
    for (const Long battle : {1, 2})
        EXPECT_EQ(RowOf(battle), (Row{1, 0, 0, 1, 1}));
    Fight(";Hits 2", "", "D D D");
    EXPECT_EQ(RowOf(1), (Row{0, 2, 2, 0, 0}));
    EXPECT_EQ(BattleResults.RowCount(), 1);
    EXPECT_THAT(host_.Shown, testing::EndsWith("pointer, 0%, 2:2, 3:2, 4:0, 5:0"));
}

TEST_F(Engine, QuickResultsAreTheirShortestTexts) {
    const struct {
        std::int32_t Battles;
        Row Totals;
        const char *Shown, *Reason;
    } cases[] = {
        // clang-format off
        {1000, {573, 1234, 4500, 2000, 0}, "57.3%, 2:1.234, 3:4.5, 4:2, 5:0", "no zeros at the end"},
        {3, {1, 1, 2, 100, 2147483}, "33.3333333333333%, 2:0.3333333, 3:0.6666667, 4:33.33333, 5:715827.7",
            "15 digits and 7"},
        {30, {0, 1, 0, 0, 0}, "0%, 2:0.03333334, 3:0, 4:0, 5:0", "averages have single precision"},
        {70, {51, 0, 0, 0, 0}, "72.8571428571428%, 2:0, 3:0, 4:0, 5:0", "the percentage divides first"},
        // clang-format on
    };
    Host = &host_;
    for (const auto& test : cases) {
        BattleResults.Redimension(test.Battles);
        for (std::int32_t column = 1; column <= ResultColumn::Last; ++column)
            BattleResults(test.Battles, column) = test.Totals.at(static_cast<std::size_t>(column) - 1);
        host_.Shown.clear();
        DisplayResults(test.Battles);
        EXPECT_EQ(host_.Shown, test.Shown) << test.Reason;
    }
    BattleResults(1, 3) = BattleResults(2, 3) = std::numeric_limits<std::int32_t>::max();
    EXPECT_THAT([] { DisplayResults(3); },
                Raises(6, {"MBattleCalc::ShowAverages", "MBattleCalc::DisplayResults"}));
}

TEST_F(Engine, ProgressIsShownEveryHundredthPartAndPumpsAfterBarAndText) {
    const struct {
        std::int32_t Battles, Battle;
        const char *Shown, *Reason;
    } cases[] = {
        {150, 1, "1, events, 1% Completed, events", "every battle of a short run"},
        {150, 150, "100, events, 100% Completed, events", "the last battle"},
        {8, 1, "12, events, 12% Completed, events", "the half of 12.5 goes to the even number"},
        {8, 3, "38, events, 38% Completed, events", "and so does that of 37.5"},
        {40, 23, "57, events, 57% Completed, events", "57.5 falls below the half in double precision"},
        {1000, 370, "37, events, 37% Completed, events", "every tenth battle of a thousand"},
        {1000, 375, "", "and none between"},
        {199, 1, "1, events, 1% Completed, events", "a hundredth of 199 is cut to 1"},
        {200, 1, "", "a hundredth of 200 is 2"},
        {250, 2, "1, events, 1% Completed, events", "a hundredth of 250 is cut to 2"},
        {1, 1, "100, events, 100% Completed, events", "the only battle"},
    };
    Host = &host_;
    for (const auto& test : cases) {
        host_.Shown.clear();
        ShowProgress(test.Battles, test.Battle);
        EXPECT_EQ(host_.Shown, test.Shown) << test.Reason;
    }
}

TEST_F(Engine, ResultsOutsideTheTableAreErrors) {
    for (const auto& [battle, column] : {std::pair{0, 1}, {2, 1}, {1, 0}, {1, 6}})
        EXPECT_EQ(ErrorOf([&, b = battle, c = column] { return BattleResults(b, c); }), 9)
            << battle << ' ' << column;
}

TEST_F(Engine, NumbersOfBattlesThatNoRunCanHaveAreErrors) {
    EXPECT_THAT(
        [this] { Add(host_, 0, 20, false, 0); },
        Raises(11, {"MBattleCalc::ShowWinPercent", "MBattleCalc::DisplayResults", "MBattleCalc::Add"}));
    EXPECT_EQ(Host, nullptr) << "a window that is gone is not kept";
    EXPECT_EQ(ErrorOf([] { return BattleResults(1, 1); }), 9);
    EXPECT_THAT([this] { Add(host_, -1, 20, false, 0); }, Raises(9, {"MBattleCalc::Add"}));
}

} // namespace
} // namespace vorhaven::test
