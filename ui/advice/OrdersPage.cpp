// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/advice/OrdersPage.h"

#include "base/Conversion.h"

#include <algorithm>
#include <set>

namespace vorhaven {
namespace {

/// How many attacking stacks take part.
Long StacksIn(const Setup& setup, const Units& units) {
    std::set<std::size_t> stacks;
    for (const std::size_t line : LinesInOrderOfFighting(setup, Side::Attacker, units))
        stacks.insert(line / LinesPerStack);
    return static_cast<std::int32_t>(stacks.size());
}

} // namespace

OrdersPage::OrdersPage(AdviceHost& host) : AdvicePage("&Orders", host) {
    cboStack.Click = [this] {
        if (cboStack.ListIndex() < 0 || stack_ == cboStack.ListIndex().Index())
            return;
        stack_ = cboStack.ListIndex().Index();
        if (RestartNeeded)
            RestartNeeded();
    };
    tblOrders.CurrentChanged = [this] {
        ShowLines();
        EnableButtons();
    };
    tblOrders.Activated = [this] { Use(); };
    cmdUse.Click = [this] { Use(); };
    cmdUse.Enabled = false;
}

std::string OrdersPage::WhyNothing(const Setup& setup, const Units& units) const {
    return LinesInOrderOfFighting(setup, Side::Attacker, units).size() < 2
               ? "Two attackers or more have an order"
               : "";
}

std::unique_ptr<Study> OrdersPage::MakeStudy() {
    const Long stacks = StacksIn(Present(), GetUnits());
    if (SizeOf(cboStack.Items()) != stacks) {
        cboStack.Clear();
        for (Long stack = 1; stack <= stacks; ++stack)
            cboStack.AddItem("Stack " + ToText(stack));
    }
    stack_ = std::min(stack_, (stacks - 1).Index());
    cboStack.SetListIndex(static_cast<std::int32_t>(stack_));
    return std::make_unique<OrdersStudy>(Present(), GetUnits(), stack_);
}

bool OrdersPage::IsAsItIs(const Order& order) const {
    return std::ranges::is_sorted(order.Lines);
}

void OrdersPage::ShowResults() {
    const auto& study = dynamic_cast<const OrdersStudy&>(*CurrentStudy());
    orders_ = study.Best();
    const bool isNoneBetter = orders_.size() == 1 && IsAsItIs(orders_.front());
    lblAbove.Caption = isNoneBetter ? "No order wins more, none loses fewer turns"
                                    : "No other order beats these both in wins and in own turns lost (" +
                                          std::to_string(study.Compared()) + " orders compared)";
    asItIs_ = Point{Wins(), OwnTurnsLost(), WinsText()};
    points_.clear();
    std::vector<AdviceTable::Row> rows;
    for (const Order& order : orders_) {
        const double wins = ShareOf(order.Outcome.Won);
        const double turns = order.Outcome.OwnTurnsLost;
        const std::string text = PercentText(order.Outcome.Won);
        points_.push_back({wins, turns, text});
        std::string key;
        for (const std::size_t line : order.Lines)
            key += std::to_string(Present().Sides.Attacker[line].Id) + ' ';
        rows.push_back({{{text, wins},
                         GainCell(100.0 * (wins - Wins())),
                         NumberCell(turns, 2),
                         DifferenceCell(turns - OwnTurnsLost(), 2)},
                        key});
    }
    tblLines.SetHeader(0, "Stack " + std::to_string(stack_ + 1));
    tblOrders.SetRows(std::move(rows));
}

void OrdersPage::ShowLines() {
    std::vector<AdviceTable::Row> rows;
    if (const auto current = tblOrders.Current())
        for (const std::size_t line : orders_[*current].Lines) {
            const SetupLine& army = Present().Sides.Attacker[line];
            const auto number = static_cast<std::int32_t>(line) + 1;
            rows.push_back({{{GetUnits().Name(army.Unit)},
                             {InWords(army.Health)},
                             {std::to_string(number), static_cast<double>(number)}},
                            std::to_string(army.Id)});
        }
    tblLines.SetRows(std::move(rows));
}

void OrdersPage::EnableButtons() {
    cmdUse.Enabled = CanAct() && tblOrders.Current() && !IsAsItIs(orders_[*tblOrders.Current()]);
}

void OrdersPage::Use() {
    Host().Settle();
    if (!IsUpToDate() || !tblOrders.Current())
        return;
    const Setup ordered = WithOrder(Present(), stack_, orders_[*tblOrders.Current()]);
    tblOrders.SetCurrent(std::nullopt);
    Host().Use(ordered);
}

} // namespace vorhaven
