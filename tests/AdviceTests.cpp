// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/RandomSetups.h"
#include "ui/advice/Changes.h"
#include "ui/advice/FewestArmies.h"
#include "ui/advice/Orders.h"
#include "ui/advice/Worth.h"

#include <algorithm>
#include <map>
#include <ranges>
#include <set>

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

TEST(Changes, AreThoseThatTheWindowAllowsAndChangeTheBattle) {
    RandomSetups setups{5};
    const Units& units = setups.GetUnits();
    auto setup = setups.Next({1}, 1);
    const auto line = [&](const std::string& name, const HealthRow& health) {
        Long unit = 0;
        while (units.Name(unit) != name)
            ++unit;
        return SetupLine{unit, name, health};
    };
    setup.Sides.Attacker = {line("Storm Heron", {.Diseased = true, .Medals = 4}), line(NoArmy, {}),
                            line("Vale Levy", {.Blacksmith = true, .Weaponsmaster = true})};
    setup.ChooseTerrain(Terrains::City);
    std::string texts;
    std::vector<SingleChange> armies;
    for (const SingleChange& change : PossibleChanges(setup, units))
        if (change.Kind == ChangeKind::OneMoreArmy)
            armies.push_back(change);
        else
            texts += change.Text + (change.Kind == ChangeKind::Place ? "!\n" : "\n");
    EXPECT_EQ(texts, "Blacksmith: Storm Heron (line 1)\n"
                     "Weaponsmaster: Storm Heron (line 1)\n"
                     "Bless: Vale Levy (line 3)\n"
                     "One medal more: Vale Levy (line 3)\n"
                     "Flying: Vale Levy (line 3)\n"
                     "Terrain: ice!\nTerrain: hills!\nTerrain: marsh!\nTerrain: field!\nTerrain: woods!\n"
                     "City level: Castle!\n");
    ASSERT_EQ(armies.size(), units.NumArmies().Index());
    EXPECT_EQ(armies[0].Text + ", " + armies[0].Tooltip,
              "One more army: Vale Levy, 1 turn, Line 4 of stack 1");
    EXPECT_EQ(armies[0].After.Sides.Attacker.back(), line("Vale Levy", {}));

    // The defenders stand in a city because they are many; the next line would open a stack that is hidden.
    setup.Sides.Attacker.resize(16, line(NoArmy, {}));
    setup.Sides.Attacker[0].Health = setup.Sides.Attacker[2].Health = {.Poisoned = true, .Flying = true};
    setup.Sides.Defender.resize(9, setup.Sides.Defender[0]);
    setup.CityLevel = 3;
    setup.AdjustTerrain();
    for (const SingleChange& change : PossibleChanges(setup, units))
        EXPECT_TRUE(change.Text.ends_with("(line 1)") || change.Text.ends_with("(line 3)")) << change.Text;
    setup.Sides.Attacker[0].Health = setup.Sides.Attacker[2].Health = {};
    const SingleChange first = PossibleChanges(setup, units).front();
    EXPECT_EQ(first.Text, "Bless all attackers");
    EXPECT_EQ(first.After.Sides.Attacker[0].Text + first.After.Sides.Attacker[2].Text,
              "Storm Heron *Vale Levy *");
    setup.Sides.Attacker[0].Health.Blessed = true;
    EXPECT_EQ(PossibleChanges(setup, units).front().Text, "One medal more: Storm Heron (line 1)")
        << "all that are left are one";
}

TEST(Changes, GainWhatTheirBattlesDo) {
    RandomSetups setups{6};
    for (std::size_t repeat = 0; repeat < 8; ++repeat) {
        const auto setup = setups.Next(Stacks(setups, 4, 1 + repeat % 2), 2);
        ChangesStudy study{setup, setups.GetUnits()};
        Finish(study);
        std::set<std::string> told;
        double before = 1.0;
        for (const TriedChange& change : study.Changes()) {
            ExpectProspect(change.Outcome, setups.Plain(change.Change.After));
            EXPECT_NEAR(change.Gain, change.Outcome.Wins() - setups.Plain(setup).Wins(), 1e-12);
            EXPECT_LE(change.Gain, before + 1e-11);
            before = change.Gain;
            told.insert(change.Change.Text);
        }
        for (const SingleChange& change : PossibleChanges(setup, setups.GetUnits()))
            EXPECT_TRUE(told.contains(change.Text) || change.Text.ends_with(')')) << change.Text;
    }
    // Of what brings the same to equal lines the first one is told: neither is ever struck by trample.
    auto setup = setups.Next({1}, 1);
    setup.Sides.Attacker[0] = {0, "Vale Levy"};
    setup.Sides.Attacker.push_back(setup.Sides.Attacker[0]);
    setup.Sides.Defender[0] = {0, "Vale Levy"};
    ChangesStudy study{setup, setups.GetUnits()};
    Finish(study);
    EXPECT_EQ(
        std::ranges::count_if(study.Changes(),
                              [](const auto& change) { return change.Change.Text.starts_with("Flying"); }),
        1);
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

TEST(FewestArmies, AreSearchedForWhereTheyAreMany) {
    RandomSetups setups{7};
    const auto setup = setups.Next({13}, 6);
    FewestArmiesStudy study{setup, setups.GetUnits()};
    Finish(study);
    ASSERT_FALSE(study.ComparesAll());
    ASSERT_GT(study.Parts().size(), 5U);
    for (const Part& part : study.Parts()) {
        auto sent = setup;
        for (std::size_t line = setup.Sides.Attacker.size(); line-- > 0;)
            if (!setups.GetUnits().IsNone(setup.Sides.Attacker[line].Unit) &&
                std::ranges::count(part.Sent, line) == 0)
                Erase(sent.Sides.Attacker, line);
        ExpectProspect(part.Outcome, setups.Plain(sent));
    }
    for (std::size_t i = 2; i < study.Parts().size(); ++i) {
        EXPECT_GT(study.Parts()[i - 1].Turns, study.Parts()[i].Turns);
        EXPECT_GT(study.Parts()[i - 1].Outcome.Wins(), study.Parts()[i].Outcome.Wins());
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
