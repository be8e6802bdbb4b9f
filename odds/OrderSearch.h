// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Stacks.h"
#include "odds/Advance.h"
#include "odds/Budget.h"
#include "odds/Lineup.h"

#include <array>
#include <cstdint>
#include <map>
#include <vector>

namespace vorhaven::Odds {

/// An order of an attacking stack, and what comes of it.
struct FoundOrder {
    /// The kinds of its armies in order of fighting.
    std::vector<std::size_t> Kinds;
    /// The attacker's chance of winning, and the production turns of the attackers slain on average.
    double Won = 0.0;
    double OwnTurnsLost = 0.0;
};

/// Compares all orders of an attacking stack, the other stacks as they are, without summing up each by
/// itself.
///
/// Between two attackers nothing matters but which defender is in front and in what state: a standing. An
/// attacker turns the chances of all standings into those at its fall, a linear map. So orders share their
/// beginnings, whose chances are carried forward, and their endings, whose prospects from each standing are
/// carried backward; the products of all beginnings of half the stack with all endings of the rest are the
/// prospects of all orders.
class OrderSearch {
public:
    /// `stack`: from 0; it must take part. `kinds`: for each of its armies in order of fighting a number, the
    /// same for equal armies. `flyers` must outlive the search. Raises what OddsOf raises.
    OrderSearch(const MBattleCalc::BattleStacks& stacks, std::size_t stack,
                const std::vector<std::size_t>& kinds, const MBattleCalc::Flyers& flyers, Long dice,
                Long cityLevel);

    /// Does a piece of the work. Throws TooManyOutcomes when the budget does not cover it, or when there are
    /// too many standings.
    void GoOn(Budget& budget);

    [[nodiscard]] bool IsDone() const { return stage_ == Stage::Done; }
    /// The orders must be compared one by one: what an army is depends on its place, or a battle may have no
    /// end or raise an error.
    [[nodiscard]] bool IsImpossible() const { return stage_ == Stage::Impossible; }
    /// How many orders have been compared.
    [[nodiscard]] std::int64_t Compared() const { return compared_; }
    /// Every order that no other beats or equals both in wins and in turns lost, once the search is done;
    /// none where no order makes a difference since the stack is never needed.
    [[nodiscard]] const std::vector<FoundOrder>& Best() const { return best_; }

private:
    enum class Stage { Opening, Exploring, LookingAhead, Beginning, Ending, Comparing, Done, Impossible };

    /// An army in front: which defender it is or meets, and in what state.
    struct Standing {
        std::size_t Defender = 0;
        Condition InCondition;
        std::size_t HitsIndex = 0;
    };

    /// Gives standings their places.
    class Standings {
    public:
        /// Calls `take` with the place and the chance of each number of hits in which a state may be; new
        /// standings join.
        void Place(std::size_t defender, const State& state, const auto& take);

        [[nodiscard]] std::size_t Size() const { return all_.size(); }
        [[nodiscard]] const Standing& operator[](std::size_t place) const { return all_[place]; }

    private:
        std::vector<Standing> all_;
        /// Places from 1, by hits.
        std::map<std::pair<std::size_t, std::uint64_t>, std::array<std::size_t, HitChances{}.size()>> places_;
    };

    /// Where a battle passes during an advance: at a standing before it, with the attacker as survivor on its
    /// way to the next defender, at a standing at its fall, or at its victory over all.
    struct Node {
        enum class Of { Standing, Survivor, Fall, Victory } Kind;
        std::size_t Place;
    };
    /// What a duel leads to.
    struct Duel {
        std::size_t Defender;
        Node From;
        Node To;
        double Chance;
    };
    /// The same by the nodes' rows: first come the standings before the advance, then those at its fall, then
    /// the survivors, last the victory.
    struct Step {
        std::size_t From;
        std::size_t To;
        double Chance;
    };
    /// The armies of a kind, and the advance of one of them.
    struct Kind {
        std::size_t Number;
        const Entrant* Army;
        double Turns;
        /// How many there are, and what one counts in a selection.
        std::size_t Count = 1;
        std::size_t Unit = 0;
        Standings Survivors{};
        /// The steps of so many survivors are known.
        std::size_t Explored = 0;
        std::vector<Duel> Duels{};
        /// In an order in which whatever leads to a node comes before what it leads to.
        std::vector<Step> Steps{};
    };
    /// The beginnings of orders that send the same armies: what has come of each until then, and the chances
    /// of the standings, by standing first and beginning second.
    struct Beginnings {
        std::vector<double> Won;
        std::vector<double> TurnsLost;
        std::vector<double> Chances;
    };
    /// The endings of orders that send the same armies: what each comes to from each standing, in the same
    /// way.
    struct Endings {
        std::vector<double> Won;
        std::vector<double> TurnsLost;
    };

    using Selections = std::vector<std::size_t>;

    // The stages, in pieces that next_ counts.
    void Open(Budget& budget);
    void Explore(Budget& budget);
    void LookAhead(Budget& budget);
    void Begin(Budget& budget);
    void End(Budget& budget);
    void Compare(Budget& budget);
    void GoOnTo(Stage stage);

    void AddDuel(Kind& kind, const Node& from, std::size_t defender, const Advance::Meeting& meeting);
    void Arrange(Kind& kind) const;
    [[nodiscard]] std::size_t Rows(const Kind& kind) const;
    void ForEachJoined(const Kind& kind, std::size_t armies, const auto& take) const;
    void Note(double won, double turnsLost, std::size_t selection, std::size_t beginning, std::size_t ending);
    [[nodiscard]] bool IsBeaten(double won, double turnsLost);

    [[nodiscard]] std::size_t CountIn(std::size_t selection, const Kind& kind) const {
        return selection / kind.Unit % (kind.Count + 1);
    }
    [[nodiscard]] std::size_t ColumnOf(std::size_t selection, const Kind& outermost) const;
    [[nodiscard]] std::vector<std::size_t> PartAt(std::size_t selection, std::size_t column) const;

    const MBattleCalc::Flyers* flyers_;
    Long dice_;
    Lineup lineup_;
    /// Where the stack's attackers begin and end in the line-up.
    std::size_t first_ = 0;
    std::size_t end_ = 0;
    std::vector<Kind> kinds_;
    /// A selection of the stack's armies is a number, so many units of each kind. How many armies and orders
    /// each has. A part of an order is a column among those of its selection: first come those whose
    /// outermost army, the last one of a beginning or the first one of an ending, is of the first kind, and
    /// so on.
    std::vector<std::size_t> armies_;
    std::vector<std::size_t> orders_;
    /// The armies of a beginning.
    std::size_t half_ = 0;

    Stage stage_ = Stage::Opening;
    std::size_t next_ = 0;
    Standings standings_;
    /// By selection.
    std::vector<Beginnings> beginnings_;
    std::vector<Endings> endings_;
    /// The nodes' chances or prospects while parts of orders become longer, by node first.
    std::vector<double> nodes_;
    std::int64_t compared_ = 0;
    std::vector<FoundOrder> best_;
    /// Which of the best orders beat the last one that was beaten: most often the next one too.
    std::size_t beater_ = 0;
};

} // namespace vorhaven::Odds
