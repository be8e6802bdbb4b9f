// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "odds/OrderSearch.h"
#include "ui/advice/Study.h"

#include <memory>
#include <vector>

namespace vorhaven {

/// An order of an attacking stack.
struct Order {
    /// The lines of the set-up from 0 that the stack's lines get, from the top. "None" stays in its
    /// place.
    std::vector<std::size_t> Lines;
    Prospect Outcome;
};

/// The set-up with a stack, from 0, in another order: the lines keep ids, marks, conditions and heroes.
[[nodiscard]] Setup WithOrder(const Setup& setup, std::size_t stack, const Order& order);

/// All orders of one attacking stack, the other stacks as they are.
class OrdersStudy final : public Study {
public:
    /// `stack`: from 0.
    OrdersStudy(const Setup& setup, const Units& units, std::size_t stack);

    /// Once the study is done: every order that no other beats or equals both in wins and in own turns lost,
    /// most wins first. Of orders with the same odds there is one: that of the set-up if it is among them.
    [[nodiscard]] const std::vector<Order>& Best() const { return best_; }
    /// How many orders there are, those that only exchange equal armies counted once.
    [[nodiscard]] std::int64_t Compared() const { return orders_; }
    [[nodiscard]] std::size_t Stack() const { return stack_; }
    /// Counts orders.
    [[nodiscard]] Progress HowFar() const override { return {done_, orders_}; }

private:
    bool DoNext() override;
    bool SearchOn();
    bool TryNextOrder();
    void Try(const std::vector<std::size_t>& kinds);
    void Note(const std::vector<std::size_t>& kinds, const Prospect& outcome);
    [[nodiscard]] std::vector<std::size_t> LinesOf(const std::vector<std::size_t>& kinds) const;

    std::size_t stack_;
    /// The stack's lines, from the top, and those of them that hold armies.
    std::vector<std::size_t> lines_;
    std::vector<std::size_t> armies_;
    /// For each of armies_ the place of the first one that is the same army; the order that is tried next.
    std::vector<std::size_t> kinds_;
    std::vector<std::size_t> next_;
    /// Compares the orders without trying each; nothing where that is impossible.
    std::optional<Odds::OrderSearch> search_;
    std::int64_t orders_ = 1;
    std::int64_t done_ = 0;
    std::vector<Order> best_;
};

/// The best orders of all attacking stacks: the order that wins most of each stack with the others as they
/// are, in turn until no stack gains any more.
class BestOrdersStudy final : public Study {
public:
    BestOrdersStudy(const Setup& setup, const Units& units);

    /// Once the study is done: the set-up with these orders, and what becomes of it.
    [[nodiscard]] const Setup& Best() const { return best_; }
    [[nodiscard]] const Prospect& Outcome() const { return outcome_; }
    /// How many attacking stacks take part, and whether any of them has more than one order.
    [[nodiscard]] std::size_t Stacks() const { return stacks_; }
    [[nodiscard]] bool HasOrders() const { return hasOrders_; }
    /// Counts orders of the stack that is studied at the time.
    [[nodiscard]] Progress HowFar() const override;

private:
    bool DoNext() override;

    Setup best_;
    Prospect outcome_;
    std::size_t stacks_ = 0;
    bool hasOrders_ = false;
    std::unique_ptr<OrdersStudy> current_;
    std::size_t stack_ = 0;
    /// How many stacks in a row, up to the last one studied, have gained nothing.
    std::size_t settled_ = 0;
};

} // namespace vorhaven
