// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/AdvicePage.h"
#include "ui/advice/Orders.h"

#include <optional>

namespace vorhaven {

/// The orders of an attacking stack that no other order beats both in wins and in own turns lost.
class OrdersPage final : public AdvicePage {
public:
    explicit OrdersPage(AdviceHost& host);

    Label lblAbove;
    Label lblStack{"S&tack:"};
    /// The stacks that take part; there is a choice from two on.
    ComboBox cboStack{"Select the stack whose orders are compared, the others staying as they are"};
    AdviceTable tblOrders{"Orders",
                          {{"Attacker\nwins"},
                           {"gain", true, AdviceTable::Weight::Strong},
                           {.Header = "Own turns\nlost", .IsCost = true},
                           {.Header = "more", .Look = AdviceTable::Weight::Quiet, .IsCost = true}}};
    AdviceTable tblLines{"Lines of the order",
                         {{"Stack 1", false},
                          {"Conditions", false, AdviceTable::Weight::Quiet},
                          {"line now", true, AdviceTable::Weight::Quiet}},
                         AdviceTable::Purpose::ToRead};
    Label lblBelow{"The last line fights first"};
    Button cmdUse{"&Use This Order", "Put the lines of the stack into this order"};

    /// What an order comes to.
    struct Point {
        /// Chance of winning, 0 to 1.
        double Wins = 0.0;
        double OwnTurnsLost = 0.0;
        std::string Text{};
    };
    /// By row of the table of orders; and the set-up as it is now, without figures nothing.
    [[nodiscard]] const std::vector<Point>& Points() const { return points_; }
    [[nodiscard]] const std::optional<Point>& AsItIs() const { return asItIs_; }
    static constexpr const char* AsItIsText = "as it is now";

    [[nodiscard]] std::vector<AdviceTable*> Tables() override { return {&tblOrders, &tblLines}; }
    [[nodiscard]] std::string WhyNothing(const Setup& setup, const Units& units) const override;

private:
    [[nodiscard]] std::unique_ptr<Study> MakeStudy() override;
    [[nodiscard]] std::string Counted() const override { return " orders compared"; }
    void ShowResults() override;
    void EnableButtons() override;
    void ShowLines();
    [[nodiscard]] bool IsAsItIs(const Order& order) const;
    void Use();

    std::size_t stack_ = 0;
    std::vector<Order> orders_;
    std::vector<Point> points_;
    std::optional<Point> asItIs_;
};

} // namespace vorhaven
