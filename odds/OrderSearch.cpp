// SPDX-License-Identifier: GPL-3.0-or-later

#include "odds/OrderSearch.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <limits>
#include <ranges>
#include <span>
#include <utility>

namespace vorhaven::Odds {
namespace {

using MBattleCalc::BattleStacks;
using MBattleCalc::Flyers;

/// Odds that differ by less are the same but for rounding.
constexpr double SameOdds = 1e-11;

/// So many numbers of beginnings and endings may be kept; they are most of the memory, some 64 MB.
constexpr std::size_t MostNumbers = 8'000'000;

/// So many products cost about as much as a step of a budget.
constexpr std::size_t ProductsAStep = 64;

constexpr std::size_t ColumnsAtOnce = 48;

void TakeProducts(Budget& budget, std::size_t products) {
    budget.Take(static_cast<std::int64_t>(products / ProductsAStep) + 1);
}

/// Whether what an army is in the first stack depends on the order of the stack: the first one of several
/// banding armies of a name gives its power's size to all, and a sum may fit in one order alone.
bool DependsOnOrder(const CStackAtt& stack) {
    for (const Long CArmy::* power : {&CArmy::Poison, &CArmy::Disease, &CArmy::Curse}) {
        std::int64_t sum = 0;
        for (const CArmy& army : stack)
            sum += std::abs(std::int64_t{(army.*power).Value()});
        if (sum > std::numeric_limits<std::int32_t>::max())
            return true;
    }
    return std::ranges::any_of(stack, [&](const CArmy& one) {
        return one.Banding != 0 && std::ranges::any_of(stack, [&](const CArmy& other) {
                   return other.Banding != 0 && other.Name == one.Name && other.PowerValue != one.PowerValue;
               });
    });
}

double FallenIn(const Advance::Outcome& outcome) {
    double fallen = 0.0;
    for (const Slaying& slaying : outcome.Slayings)
        fallen += slaying.ByDefender;
    return fallen;
}

/// Thrown where a battle may have no end.
struct NoEnd {};

/// Adds a multiple of a row to another one.
void AddProduct(double* to, double factor, const double* from, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        to[i] += factor * from[i];
}

Advance::Outcome SendToAnEnd(Advance& advance, const Entrant& attacker, Fronts& fronts) {
    Advance::Outcome outcome = advance.Send(attacker, fronts);
    if (outcome.Endless > 0.0)
        throw NoEnd{};
    return outcome;
}

} // namespace

OrderSearch::OrderSearch(const BattleStacks& stacks, std::size_t stack, const std::vector<std::size_t>& kinds,
                         const Flyers& flyers, Long dice, Long cityLevel)
    : flyers_(&flyers), dice_(dice), lineup_(LineUp(stacks, cityLevel)), half_(kinds.size() / 2) {
    for (std::size_t before = 0; before < stack; ++before)
        first_ += stacks.AttackStacks.at(before).Count().Index();
    end_ = first_ + kinds.size();
    for (std::size_t army = 0; army < kinds.size(); ++army) {
        const auto known = std::ranges::find(kinds_, kinds[army], &Kind::Number);
        const Entrant& entrant = lineup_.Attackers[first_ + army];
        if (known != kinds_.end())
            ++known->Count;
        else
            kinds_.push_back({kinds[army], &entrant, static_cast<double>(entrant.Army.Turns.Value())});
    }
    std::size_t selections = 1;
    for (Kind& kind : kinds_) {
        kind.Unit = selections;
        selections *= kind.Count + 1;
    }
    armies_.resize(selections);
    orders_.assign(selections, 1);
    for (std::size_t selection = 1; selection < selections; ++selection) {
        orders_[selection] = 0;
        for (const Kind& kind : kinds_)
            if (CountIn(selection, kind) > 0) {
                armies_[selection] = armies_[selection - kind.Unit] + 1;
                orders_[selection] += orders_[selection - kind.Unit];
            }
    }
    if (stack == 0 && DependsOnOrder(stacks.AttackStacks[0]))
        stage_ = Stage::Impossible;
}

void OrderSearch::GoOn(Budget& budget) {
    try {
        switch (stage_) {
        case Stage::Opening:
            return Open(budget);
        case Stage::Exploring:
            return Explore(budget);
        case Stage::LookingAhead:
            return LookAhead(budget);
        case Stage::Beginning:
            return Begin(budget);
        case Stage::Ending:
            return End(budget);
        case Stage::Comparing:
            return Compare(budget);
        case Stage::Done:
        case Stage::Impossible:
            return;
        }
    } catch (const NoEnd&) {
        stage_ = Stage::Impossible;
    } catch (const RunTimeError&) {
        stage_ = Stage::Impossible;
    }
}

void OrderSearch::GoOnTo(Stage stage) {
    stage_ = stage;
    next_ = 0;
}

/// Fights the stacks before this one.
void OrderSearch::Open(Budget& budget) {
    beginnings_.resize(orders_.size());
    endings_.resize(orders_.size());
    Beginnings& empty = beginnings_.front();
    empty.Won.push_back(0.0);
    empty.TurnsLost.push_back(0.0);
    Advance advance{lineup_.Defenders, *flyers_, dice_, budget};
    Fronts fronts = advance.AtFirst(lineup_.Attackers.front());
    for (std::size_t i = 0; i < first_; ++i) {
        const Entrant& attacker = lineup_.Attackers[i];
        if (attacker.LeadsNewStack)
            Heal(fronts, attacker);
        const Advance::Outcome outcome = SendToAnEnd(advance, attacker, fronts);
        empty.Won[0] += outcome.Won;
        empty.TurnsLost[0] += FallenIn(outcome) * attacker.Army.Turns.Value();
    }
    if (first_ > 0)
        Heal(fronts, lineup_.Attackers[first_]);
    for (std::size_t defender = 0; defender < fronts.size(); ++defender)
        for (const State& state : fronts[defender])
            standings_.Place(defender, state,
                             [&](std::size_t /*place*/, double chance) { empty.Chances.push_back(chance); });
    if (standings_.Size() > 0)
        return GoOnTo(Stage::Exploring);
    // The stack is never needed, in any order.
    compared_ = static_cast<std::int64_t>(orders_.back());
    GoOnTo(Stage::Done);
}

/// Sends one army of each kind against a standing.
void OrderSearch::Explore(Budget& budget) {
    Advance advance{lineup_.Defenders, *flyers_, dice_, budget};
    const StateTable nobody;
    const auto inFront = [](const Standing& standing) {
        StateTable states;
        HitChances hits{};
        hits.at(standing.HitsIndex) = 1.0;
        states.Add(standing.InCondition, hits);
        return states;
    };
    const Standing standing = standings_[next_];
    for (Kind& kind : kinds_) {
        AddDuel(kind, {Node::Of::Standing, next_}, standing.Defender,
                advance.Meet(*kind.Army, standing.Defender, nobody, inFront(standing)));
        for (; kind.Explored < kind.Survivors.Size(); ++kind.Explored) {
            const Standing survivor = kind.Survivors[kind.Explored];
            AddDuel(kind, {Node::Of::Survivor, kind.Explored}, survivor.Defender,
                    advance.Meet(*kind.Army, survivor.Defender, inFront(survivor), nobody));
        }
        budget.Hold(standings_.Size() + kind.Survivors.Size());
    }
    if (++next_ < standings_.Size())
        return;
    std::size_t numbers = 0;
    for (std::size_t selection = 0; selection < orders_.size(); ++selection) {
        const std::size_t armies = armies_[selection];
        numbers += (armies <= half_ ? orders_[selection] : 0) * standings_.Size();
        numbers += (armies + half_ <= end_ - first_ ? orders_[selection] : 0) * standings_.Size() * 2;
    }
    if (numbers > MostNumbers)
        throw TooManyOutcomes{};
    for (Kind& kind : kinds_)
        Arrange(kind);
    beginnings_.front().Chances.resize(standings_.Size());
    GoOnTo(Stage::LookingAhead);
}

void OrderSearch::AddDuel(Kind& kind, const Node& from, std::size_t defender,
                          const Advance::Meeting& meeting) {
    if (meeting.Endless > 0.0)
        throw NoEnd{};
    for (const State& state : meeting.Survivors.Defender)
        standings_.Place(defender, state, [&](std::size_t place, double chance) {
            kind.Duels.push_back({defender, from, {Node::Of::Fall, place}, chance});
        });
    for (const State& state : meeting.Survivors.Attacker)
        if (defender + 1 == lineup_.Defenders.size())
            kind.Duels.push_back({defender, from, {Node::Of::Victory, 0}, Sum(state.Chances)});
        else
            kind.Survivors.Place(defender + 1, state, [&](std::size_t place, double chance) {
                kind.Duels.push_back({defender, from, {Node::Of::Survivor, place}, chance});
            });
}

/// Puts the steps of a kind in order, now that all nodes are known.
void OrderSearch::Arrange(Kind& kind) const {
    const auto rowOf = [&](const Node& node) {
        switch (node.Kind) {
        case Node::Of::Standing:
            return node.Place;
        case Node::Of::Fall:
            return standings_.Size() + node.Place;
        case Node::Of::Survivor:
            return 2 * standings_.Size() + node.Place;
        case Node::Of::Victory:
            break;
        }
        return Rows(kind) - 1;
    };
    for (std::size_t defender = 0; defender < lineup_.Defenders.size(); ++defender)
        for (const Duel& duel : kind.Duels)
            if (duel.Defender == defender)
                kind.Steps.push_back({rowOf(duel.From), rowOf(duel.To), duel.Chance});
    kind.Duels.clear();
}

/// Fights the stacks behind this one from a standing that it may leave.
void OrderSearch::LookAhead(Budget& budget) {
    const Standing& standing = standings_[next_];
    Endings& empty = endings_.front();
    // Whatever hits are left, the next stack gives the defender its own back.
    std::size_t same = 0;
    while (standings_[same].Defender != standing.Defender ||
           standings_[same].InCondition != standing.InCondition)
        ++same;
    double won = same < next_ ? empty.Won[same] : 0.0;
    double turnsLost = same < next_ ? empty.TurnsLost[same] : 0.0;
    if (same == next_ && end_ < lineup_.Attackers.size()) {
        Advance advance{lineup_.Defenders, *flyers_, dice_, budget};
        Fronts fronts(lineup_.Defenders.size());
        HitChances hits{};
        hits.at(standing.HitsIndex) = 1.0;
        fronts[standing.Defender].Add(standing.InCondition, hits);
        for (std::size_t i = end_; i < lineup_.Attackers.size(); ++i) {
            const Entrant& attacker = lineup_.Attackers[i];
            if (attacker.LeadsNewStack)
                Heal(fronts, attacker);
            const Advance::Outcome outcome = SendToAnEnd(advance, attacker, fronts);
            won += outcome.Won;
            turnsLost += FallenIn(outcome) * attacker.Army.Turns.Value();
        }
    }
    empty.Won.push_back(won);
    empty.TurnsLost.push_back(turnsLost);
    if (++next_ == standings_.Size())
        GoOnTo(Stage::Beginning);
}

/// Calls `take` with the selections of so many armies that one more of a kind can join: with a few at a time,
/// whose columns it counts, so that the nodes stay in the processor's nearest memory.
void OrderSearch::ForEachJoined(const Kind& kind, std::size_t armies, const auto& take) const {
    std::vector<std::size_t> selections;
    std::size_t columns = 0;
    const auto flush = [&] {
        if (!selections.empty())
            take(selections, columns);
        selections.clear();
        columns = 0;
    };
    for (std::size_t selection = 0; selection < orders_.size(); ++selection) {
        if (armies_[selection] != armies || CountIn(selection, kind) == kind.Count)
            continue;
        selections.push_back(selection);
        columns += orders_[selection];
        if (columns >= ColumnsAtOnce)
            flush();
    }
    flush();
}

/// Puts an army of one kind behind all beginnings of some number of armies.
void OrderSearch::Begin(Budget& budget) {
    const Kind& last = kinds_[next_ % kinds_.size()];
    const std::size_t standings = standings_.Size();
    ForEachJoined(last, next_ / kinds_.size(), [&](const Selections& shorter, std::size_t width) {
        nodes_.resize(Rows(last) * width);
        std::size_t column = 0;
        for (const std::size_t selection : shorter) {
            const std::size_t count = orders_[selection];
            for (std::size_t s = 0; s < standings; ++s)
                std::copy_n(&beginnings_[selection].Chances[s * count], count, &nodes_[s * width + column]);
            column += count;
        }
        std::fill_n(&nodes_[standings * width], (Rows(last) - standings) * width, 0.0);
        for (const Step& step : last.Steps)
            AddProduct(&nodes_[step.To * width], step.Chance, &nodes_[step.From * width], width);
        TakeProducts(budget, last.Steps.size() * width);
        const double* victory = &nodes_[(Rows(last) - 1) * width];
        column = 0;
        for (const std::size_t selection : shorter) {
            const std::size_t count = orders_[selection];
            const std::size_t longer = selection + last.Unit;
            const std::size_t first = ColumnOf(longer, last);
            const Beginnings& before = beginnings_[selection];
            Beginnings& all = beginnings_[longer];
            all.Won.resize(orders_[longer]);
            all.TurnsLost.resize(orders_[longer]);
            all.Chances.resize(orders_[longer] * standings);
            for (std::size_t i = 0; i < count; ++i) {
                all.Won[first + i] = before.Won[i] + victory[column + i];
                // Every battle ends: where it is not won, the last army of the beginning has fallen.
                all.TurnsLost[first + i] = before.TurnsLost[i] + last.Turns * (1.0 - all.Won[first + i]);
            }
            for (std::size_t s = 0; s < standings; ++s)
                std::copy_n(&nodes_[(standings + s) * width + column], count,
                            &all.Chances[s * orders_[longer] + first]);
            column += count;
        }
    });
    if (++next_ == half_ * kinds_.size())
        GoOnTo(Stage::Ending);
}

/// Puts an army of one kind before all endings of some number of armies.
void OrderSearch::End(Budget& budget) {
    const Kind& first = kinds_[next_ % kinds_.size()];
    const std::size_t standings = standings_.Size();
    ForEachJoined(first, next_ / kinds_.size(), [&](const Selections& shorter, std::size_t count) {
        // The chances of winning, and behind them the turns lost.
        const std::size_t width = 2 * count;
        nodes_.assign(Rows(first) * width, 0.0);
        std::size_t column = 0;
        for (const std::size_t selection : shorter) {
            const std::size_t endings = orders_[selection];
            for (std::size_t s = 0; s < standings; ++s) {
                double* row = &nodes_[(standings + s) * width + column];
                std::copy_n(&endings_[selection].Won[s * endings], endings, row);
                for (std::size_t e = 0; e < endings; ++e)
                    row[count + e] = first.Turns + endings_[selection].TurnsLost[s * endings + e];
            }
            column += endings;
        }
        std::fill_n(&nodes_[(Rows(first) - 1) * width], count, 1.0);
        for (const Step& step : first.Steps | std::views::reverse)
            AddProduct(&nodes_[step.From * width], step.Chance, &nodes_[step.To * width], width);
        TakeProducts(budget, first.Steps.size() * width);
        column = 0;
        for (const std::size_t selection : shorter) {
            const std::size_t endings = orders_[selection];
            const std::size_t longer = selection + first.Unit;
            Endings& all = endings_[longer];
            all.Won.resize(orders_[longer] * standings);
            all.TurnsLost.resize(orders_[longer] * standings);
            const std::size_t to = ColumnOf(longer, first);
            for (std::size_t s = 0; s < standings; ++s) {
                const double* row = &nodes_[s * width + column];
                std::copy_n(row, endings, &all.Won[s * orders_[longer] + to]);
                std::copy_n(row + count, endings, &all.TurnsLost[s * orders_[longer] + to]);
            }
            column += endings;
        }
    });
    if (++next_ == (end_ - first_ - half_) * kinds_.size())
        GoOnTo(Stage::Comparing);
}

/// Joins the beginnings of a selection with the endings of the other armies.
void OrderSearch::Compare(Budget& budget) {
    const std::size_t selection = next_++;
    if (armies_[selection] == half_) {
        const Beginnings& beginnings = beginnings_[selection];
        const Endings& endings = endings_[orders_.size() - 1 - selection];
        const std::size_t width = orders_[selection];
        const std::size_t count = orders_[orders_.size() - 1 - selection];
        // No ending comes to more than the best one of each standing.
        std::vector<double> most = beginnings.Won;
        std::vector<double> least = beginnings.TurnsLost;
        for (std::size_t s = 0; s < standings_.Size(); ++s) {
            const auto endingsOf = [&](const std::vector<double>& all) {
                return std::span{all}.subspan(s * count, count);
            };
            const double* chances = &beginnings.Chances[s * width];
            AddProduct(most.data(), std::ranges::max(endingsOf(endings.Won)), chances, width);
            AddProduct(least.data(), std::ranges::min(endingsOf(endings.TurnsLost)), chances, width);
        }
        std::vector<double> won;
        std::vector<double> turnsLost;
        for (std::size_t b = 0; b < width; ++b) {
            if (IsBeaten(most[b], least[b]))
                continue;
            won.assign(count, beginnings.Won[b]);
            turnsLost.assign(count, beginnings.TurnsLost[b]);
            for (std::size_t s = 0; s < standings_.Size(); ++s) {
                const double chance = beginnings.Chances[s * width + b];
                if (chance <= 0.0)
                    continue;
                AddProduct(won.data(), chance, &endings.Won[s * count], count);
                AddProduct(turnsLost.data(), chance, &endings.TurnsLost[s * count], count);
            }
            TakeProducts(budget, 2 * count * standings_.Size());
            for (std::size_t e = 0; e < count; ++e)
                if (!IsBeaten(won[e], turnsLost[e]))
                    Note(won[e], turnsLost[e], selection, b, e);
        }
        TakeProducts(budget, 2 * (width + count) * standings_.Size());
        compared_ += static_cast<std::int64_t>(width * count);
    }
    if (next_ == orders_.size())
        GoOnTo(Stage::Done);
}

/// Whether an order found is as good.
bool OrderSearch::IsBeaten(double won, double turnsLost) {
    const auto beats = [&](const FoundOrder& order) {
        return order.Won > won - SameOdds && order.OwnTurnsLost < turnsLost + SameOdds;
    };
    if (beater_ < best_.size() && beats(best_[beater_]))
        return true;
    beater_ = static_cast<std::size_t>(std::ranges::find_if(best_, beats) - best_.begin());
    return beater_ < best_.size();
}

/// Keeps an order that is not beaten instead of those that it beats.
void OrderSearch::Note(double won, double turnsLost, std::size_t selection, std::size_t beginning,
                       std::size_t ending) {
    std::erase_if(best_, [&](const FoundOrder& order) {
        return won > order.Won - SameOdds && turnsLost < order.OwnTurnsLost + SameOdds;
    });
    FoundOrder found{PartAt(selection, beginning), won, turnsLost};
    std::ranges::reverse(found.Kinds);
    const std::vector<std::size_t> behind = PartAt(orders_.size() - 1 - selection, ending);
    found.Kinds.insert(found.Kinds.end(), behind.begin(), behind.end());
    best_.push_back(std::move(found));
}

void OrderSearch::Standings::Place(std::size_t defender, const State& state, const auto& take) {
    auto& places = places_[{defender, std::bit_cast<std::uint64_t>(state.InCondition)}];
    for (std::size_t hits = 0; hits < state.Chances.size(); ++hits) {
        if (state.Chances[hits] <= 0.0)
            continue;
        if (places[hits] == 0) {
            all_.push_back({defender, state.InCondition, hits});
            places[hits] = all_.size();
        }
        take(places[hits] - 1, state.Chances[hits]);
    }
}

std::size_t OrderSearch::Rows(const Kind& kind) const {
    return 2 * standings_.Size() + kind.Survivors.Size() + 1;
}

/// The first column of the parts whose outermost army is of a kind.
std::size_t OrderSearch::ColumnOf(std::size_t selection, const Kind& outermost) const {
    std::size_t column = 0;
    for (const Kind* kind = kinds_.data(); kind != &outermost; ++kind)
        if (CountIn(selection, *kind) > 0)
            column += orders_[selection - kind->Unit];
    return column;
}

/// The kinds of a part from its outermost army inward.
std::vector<std::size_t> OrderSearch::PartAt(std::size_t selection, std::size_t column) const {
    std::vector<std::size_t> part;
    while (selection > 0)
        for (const Kind& kind : kinds_) {
            if (CountIn(selection, kind) == 0)
                continue;
            const std::size_t count = orders_[selection - kind.Unit];
            if (column < count) {
                part.push_back(kind.Number);
                selection -= kind.Unit;
                break;
            }
            column -= count;
        }
    return part;
}

} // namespace vorhaven::Odds
