// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/advice/Study.h"

#include <map>
#include <vector>

namespace vorhaven {

/// A part of the attackers, sent in the order of the list.
struct Part {
    /// Their lines, from the top.
    std::vector<std::size_t> Sent;
    /// Their production turns.
    Long Turns;
    Prospect Outcome;
};

/// The parts of the attackers that win most for their production turns. The battle of a part is that of the
/// set-up without the other armies, deleted as the player would; lines of "None" stay where they are.
class FewestArmiesStudy final : public Study {
public:
    /// Of so many armies all parts are compared; of more, the best ones that a search finds, which takes the
    /// armies away one by one.
    static constexpr std::size_t MostLinesCompared = 12;

    FewestArmiesStudy(const Setup& setup, const Units& units);

    /// Once the study is done: all that take part at first, then every part that wins more than any cheaper
    /// or equally cheap one, from many turns to few. Of parts of the same turns and odds the one of the
    /// fewest armies is there.
    [[nodiscard]] const std::vector<Part>& Parts() const { return parts_; }
    /// All parts were compared.
    [[nodiscard]] bool ComparesAll() const { return lines_.size() <= MostLinesCompared; }
    /// Counts parts, or in a search the turns that were saved.
    [[nodiscard]] Progress HowFar() const override;

private:
    bool DoNext() override;
    bool TryNextPart();
    bool SearchOn();
    void TryPart(const std::vector<std::size_t>& sent);
    void NotePart(Part part);
    void KeepBest();
    [[nodiscard]] Long TurnsOf(const std::vector<std::size_t>& sent) const;

    /// The attacking lines that take part, from the top, and their turns.
    std::vector<std::size_t> lines_;
    std::map<std::size_t, Long> turns_;
    /// The part of each number of turns that wins most.
    std::map<Long, Part> best_;
    /// How many parts are left to try, each a number with a bit for each line.
    std::uint64_t partsLeft_ = 0;
    /// Of which part lines are left out in turn, and of which is next.
    std::vector<std::size_t> searched_;
    std::size_t nextOut_ = 0;
    std::vector<Part> parts_;
};

} // namespace vorhaven
