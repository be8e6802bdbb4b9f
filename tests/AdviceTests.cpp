// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/RandomSetups.h"
#include "ui/advice/Changes.h"
#include "ui/advice/FewestArmies.h"
#include "ui/advice/Orders.h"
#include "ui/advice/Worth.h"

#include <algorithm>
#include <map>
#include <ranges>

namespace vorhaven::test {
namespace {

/// The armies of one stack or of several.
std::vector<std::size_t> Stacks(RandomSetups& setups, std::size_t most, std::size_t stacks) {
    std::vector<std::size_t> armies(stacks);
    for (std::size_t& number : armies)
        number = 1 + setups.UpTo(most - 1);
    return armies;
}

void Erase(std::vector<SetupLine>& lines, std::size_t line) {
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(line));
}

TEST(Worth, IsTheBattleWithoutTheLine) {
    RandomSetups setups{1};
    for (std::size_t repeat = 0; repeat < 60; ++repeat) {
        const auto setup = setups.Next(Stacks(setups, 4, 1 + repeat % 3), 1 + repeat % 4);
        WorthStudy study{setup, setups.GetUnits()};
        Finish(study);
        for (const Side side : BothSides) {
            Odds::Losses slain;
            for (std::size_t line = 0; line < setup.Sides[side].size(); ++line) {
                const std::optional<LineWorth>& worth = study.Lines()[side][line];
                ASSERT_EQ(worth.has_value(), !setups.GetUnits().IsNone(setup.Sides[side][line].Unit));
                if (!worth)
                    continue;
                slain.Armies += worth->Slays.Armies;
                slain.Turns += worth->Slays.Turns;
                auto without = setup;
                Erase(without.Sides[side], line);
                ExpectProspect(worth->Without.value(), setups.Plain(without));
            }
            const Odds::BattleOdds& odds = *study.AsItIs();
            const auto& lost = side == Side::Attacker ? odds.Defenders : odds.Attackers;
            EXPECT_NEAR(slain.Armies, lost.Overall.value().Armies, 1e-11);
            EXPECT_NEAR(slain.Turns, lost.Overall.value().Turns, 1e-11);
        }
    }
}

TEST(FewestArmies, AreTheCheapestPartsThatWinSoOften) {
    RandomSetups setups{2};
    const Units& units = setups.GetUnits();
    for (std::size_t repeat = 0; repeat < 20; ++repeat) {
        const auto setup = setups.Next({1 + setups.UpTo(5)}, 1 + repeat % 4);
        const std::vector<std::size_t> lines = LinesInOrderOfFighting(setup, Side::Attacker, units);
        // The chance of the best part of each number of turns.
        std::map<Long, double> most;
        for (unsigned mask = 1; mask < 1U << lines.size(); ++mask) {
            auto part = setup;
            Long turns = 0;
            for (std::size_t i = 0; i < lines.size(); ++i)
                if ((mask >> i & 1U) == 0)
                    Erase(part.Sides.Attacker, lines[i]);
                else
                    turns += units.EntryOf(setup.Sides.Attacker[lines[i]].Unit, {}).Turns;
            most[turns] = std::max(most[turns], setups.Plain(part).Wins());
        }
        FewestArmiesStudy study{setup, units};
        Finish(study);
        ASSERT_TRUE(std::ranges::equal(study.Parts().front().Sent, lines | std::views::reverse));
        ExpectProspect(study.Parts().front().Outcome, setups.Plain(setup));
        auto told = study.Parts().rbegin();
        double before = 0.0;
        for (const auto& [turns, wins] : most) {
            if (wins <= before + 1e-12)
                continue;
            before = wins;
            ASSERT_NE(told, study.Parts().rend());
            EXPECT_EQ(told->Turns, turns);
            EXPECT_NEAR(told->Outcome.Wins(), wins, 1e-12);
            auto part = setup;
            for (const std::size_t line : lines)
                if (std::ranges::count(told->Sent, line) == 0)
                    Erase(part.Sides.Attacker, line);
            ExpectProspect(told->Outcome, setups.Plain(part));
            ++told;
        }
        EXPECT_LE(study.Parts().rend() - told, 1) << "all of them, which win no more";
    }
}

/// Compares a stack's best orders with all of its orders, each tried by itself.
void ExpectBestOrders(const vorhaven::Setup& setup, std::size_t stack, const RandomSetups& setups) {
    const std::vector<SetupLine>& lines = setup.Sides.Attacker;
    OrdersStudy study{setup, setups.GetUnits(), stack};
    Finish(study);
    ASSERT_FALSE(study.Best().empty());
    for (const Order& order : study.Best())
        ExpectProspect(order.Outcome, setups.Plain(WithOrder(setup, stack, order)));
    std::vector<std::size_t> armies;
    for (std::size_t line = stack * LinesPerStack; line < std::min(lines.size(), (stack + 1) * LinesPerStack);
         ++line)
        if (!setups.GetUnits().IsNone(lines[line].Unit))
            armies.push_back(line);
    std::vector<std::size_t> order;
    for (const std::size_t line : armies)
        order.push_back(*std::ranges::find_if(armies, [&](std::size_t other) {
            return IsSameArmy(lines[line], lines[other], setups.GetUnits());
        }));
    std::ranges::sort(order);
    std::int64_t compared = 0;
    do {
        auto ordered = setup;
        for (std::size_t i = 0; i < armies.size(); ++i)
            ordered.Sides.Attacker[armies[i]] = lines[order[i]];
        const Prospect outcome = setups.Plain(ordered);
        EXPECT_TRUE(std::ranges::any_of(study.Best(),
                                        [&](const Order& best) {
                                            return best.Outcome.Wins() > outcome.Wins() - 1e-10 &&
                                                   best.Outcome.OwnTurnsLost < outcome.OwnTurnsLost + 1e-10;
                                        }))
            << outcome.Wins() << ' ' << outcome.OwnTurnsLost;
        ++compared;
    } while (std::ranges::next_permutation(order).found);
    EXPECT_EQ(study.Compared(), compared);
    for (std::size_t i = 1; i < study.Best().size(); ++i) {
        EXPECT_GT(study.Best()[i - 1].Outcome.Wins(), study.Best()[i].Outcome.Wins());
        EXPECT_GT(study.Best()[i - 1].Outcome.OwnTurnsLost, study.Best()[i].Outcome.OwnTurnsLost);
    }
}

TEST(Orders, AreAllThatNoOtherOneBeats) {
    RandomSetups setups{3};
    for (std::size_t repeat = 0; repeat < 150; ++repeat) {
        auto setup = setups.Next(Stacks(setups, repeat % 5 == 0 ? 5 : 4, 1 + repeat % 3), 1 + setups.UpTo(3));
        // With few faces some duels never end, and each order is tried by itself.
        if (repeat % 10 == 0)
            setup.CombatDice = 8;
        ExpectBestOrders(setup, setups.UpTo(repeat % 3), setups);
    }
    for (std::size_t repeat = 0; repeat < 6; ++repeat) {
        auto setup = setups.Next({3}, 2 + repeat);
        auto& attackers = setup.Sides.Attacker;
        while (attackers.size() < 8)
            attackers.push_back(attackers[setups.UpTo(2)]);
        ExpectBestOrders(setup, 0, setups);
    }
}

TEST(BestOrders, AreThoseThatNoStackCanGainFrom) {
    RandomSetups setups{4};
    for (std::size_t repeat = 0; repeat < 20; ++repeat) {
        const auto setup = setups.Next(Stacks(setups, 3, 1 + repeat % 3), 2);
        BestOrdersStudy study{setup, setups.GetUnits()};
        Finish(study);
        ExpectProspect(study.Outcome(), setups.Plain(study.Best()));
        EXPECT_GE(study.Outcome().Wins(), setups.Plain(setup).Wins() - 1e-12);
        for (std::size_t stack = 0; stack < study.Stacks(); ++stack) {
            OrdersStudy orders{study.Best(), setups.GetUnits(), stack};
            Finish(orders);
            EXPECT_NEAR(orders.Best().front().Outcome.Wins(), study.Outcome().Wins(), 1e-10);
        }
    }
}

} // namespace
} // namespace vorhaven::test
