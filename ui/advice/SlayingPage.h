// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/AdvicePage.h"

namespace vorhaven {

/// Who slays whom: a map of the attackers by the defenders, both in the order of the lists, so that the lower
/// right corner fights first.
class SlayingPage final : public AdvicePage {
public:
    explicit SlayingPage(AdviceHost& host);

    /// An army of the map.
    struct Army {
        std::string Name;
        /// In words, empty for none.
        std::string Conditions;
        /// Of its list, from 1; and what identifies the line wherever it is moved.
        std::size_t Line = 0;
        std::int32_t Id = 0;
        /// The first of a later stack.
        bool BeginsStack = false;
        /// How many armies it slays on average, and how often it is slain.
        double Slays = 0.0;
        double IsSlain = 0.0;

        [[nodiscard]] std::string NameWithConditions() const;
    };

    Label lblLegend{"In % of battles:"};
    /// What the half of a cell is that belongs to a side.
    PerSide<Label> lblHalf{Label{"left: the attacker slays the defender"},
                           Label{"right: the defender slays the attacker"}};
    /// What the current cell says, in one sentence.
    Label lblSentence;
    /// What the map is called.
    static constexpr const char* Title = "Who slays whom";
    // The headings of the sums at the right, and of those below in the order of the halves.
    static constexpr const char* SlaysHeading = "slays";
    static constexpr const char* IsSlainHeading = "is\nslain";
    static constexpr const char* BelowHeading = "is slain | slays";

    [[nodiscard]] const std::vector<Army>& Armies(Side side) const { return armies_[side]; }
    [[nodiscard]] const Odds::Slaying& At(std::size_t attacker, std::size_t defender) const {
        return slayings_[attacker][defender];
    }
    /// A chance in whole per cents, nothing where it is 0.
    [[nodiscard]] static std::string Figure(double chance);
    /// What is said about a cell.
    [[nodiscard]] std::string Sentence(std::size_t attacker, std::size_t defender) const;
    /// So many armies that the cells are small, with short figures.
    [[nodiscard]] bool IsSmall() const;
    /// A sum of one army of a side, with as many decimals as there is room for.
    [[nodiscard]] std::string SumText(double sum, Side side) const;
    /// The sums of all, which are the losses of the other side.
    [[nodiscard]] static std::string TotalText(double sum);
    [[nodiscard]] double TotalSlain(Side side) const;

    /// The current cell, by attacker and defender: at first the pair that fights first. It stays with its
    /// armies where they are still there.
    struct Cell {
        std::size_t Attacker = 0;
        std::size_t Defender = 0;
    };
    [[nodiscard]] Cell Current() const { return current_; }
    void Pick(const Cell& cell);

    /// Raised when the map is made anew.
    Signal<> Changed;

    [[nodiscard]] std::vector<AdviceTable*> Tables() override { return {}; }

private:
    [[nodiscard]] std::unique_ptr<Study> MakeStudy() override { return nullptr; }
    [[nodiscard]] std::string Counted() const override { return {}; }
    void ShowResults() override;

    PerSide<std::vector<Army>> armies_;
    Cell current_;
    /// Of the armies of the current cell.
    PerSide<std::int32_t> currentIds_{};
    /// By attacker and defender, as armies_ has them.
    std::vector<std::vector<Odds::Slaying>> slayings_;
};

} // namespace vorhaven
