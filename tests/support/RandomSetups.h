// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "catalogue/CsvCatalogue.h"
#include "model/Terrain.h"
#include "ui/advice/Study.h"

#include <gtest/gtest.h>

#include <random>

namespace vorhaven::test {

/// Makes set-ups of the built-in catalogue's units at random: every power, condition and terrain, heroes with
/// every value of theirs, equal lines, lines of "None".
class RandomSetups {
public:
    explicit RandomSetups(unsigned seed) : random_(seed) {}

    [[nodiscard]] const Units& GetUnits() const { return units_; }

    /// Attacking stacks of so many armies each, of which all but the last are filled up with "None".
    Setup Next(const std::vector<std::size_t>& attackers, std::size_t defenders) {
        Setup setup;
        for (std::size_t stack = 0; stack < attackers.size(); ++stack) {
            setup.Sides.Attacker.resize(stack * LinesPerStack, {None(), NoArmy});
            Bring(setup.Sides.Attacker, attackers[stack]);
        }
        Bring(setup.Sides.Defender, defenders);
        setup.ChooseTerrain(Terrains::All.at(UpTo(5)));
        if (setup.CityLevel > 0)
            setup.CityLevel = 1 + Number(2);
        setup.AdjustTerrain();
        setup.CombatDice = 15 + Number(10);
        return setup;
    }

    /// How the battle goes by its odds alone; lost or won where a side has no army to send.
    [[nodiscard]] Prospect Plain(const Setup& setup) const {
        if (!HasArmies(setup, units_))
            return std::ranges::all_of(setup.Sides.Defender,
                                       [this](const SetupLine& line) { return units_.IsNone(line.Unit); })
                       ? Prospect{{1.0, 0.0}, 0.0}
                       : Prospect{{0.0, 1.0}, 0.0};
        Odds::Budget budget{10'000'000};
        const auto odds = OddsOf(setup, units_, budget).value();
        return {odds.AttackerWins(), odds.Attackers.Overall.value_or(Odds::Losses{}).Turns};
    }

    std::size_t UpTo(std::size_t most) { return random_() % (most + 1); }

private:
    [[nodiscard]] Long None() const { return units_.NumArmies() + units_.NumHeroes(); }
    std::int32_t Number(std::int32_t most) {
        return static_cast<std::int32_t>(UpTo(static_cast<std::size_t>(most)));
    }

    void Bring(std::vector<SetupLine>& lines, std::size_t armies) {
        for (; armies > 0; --armies) {
            if (!lines.empty() && UpTo(4) == 0 && lines.back().Unit != None()) {
                lines.push_back(lines.back());
                continue;
            }
            if (UpTo(15) == 0)
                lines.push_back({None(), NoArmy});
            const Long unit = Number((units_.NumArmies() + units_.NumHeroes() - 1).Value());
            lines.push_back({unit, units_.Name(unit), RandomHealth()});
            if (units_.IsHero(unit) && UpTo(2) > 0) {
                lines.back().Hero.emplace();
                for (const HeroNumber& number : HeroNumbers)
                    (*lines.back().Hero).*number.Value =
                        UpTo(2) == 0 ? number.Lowest + Number(std::min(8, number.Highest - number.Lowest))
                                     : std::max(number.Lowest, 0);
            }
        }
    }

    HealthRow RandomHealth() {
        HealthRow row;
        for (bool HealthRow::* mark : {&HealthRow::Blessed, &HealthRow::Diseased, &HealthRow::Poisoned,
                                       &HealthRow::Blacksmith, &HealthRow::Weaponsmaster, &HealthRow::Flying})
            row.*mark = UpTo(5) == 0;
        row.Medals = static_cast<std::int16_t>(UpTo(2) == 0 ? Number(4) : 0);
        return row;
    }

    std::mt19937 random_;
    CsvCatalogue catalogue_ = CsvCatalogue::BuiltIn();
    Units units_{catalogue_};
};

/// Goes on in slices until a study is over.
inline void Finish(Study& study) {
    while (!study.IsDone() && !study.HasGivenUp())
        study.GoOn(2000);
    ASSERT_TRUE(study.IsDone());
}

inline void ExpectProspect(const Prospect& told, const Prospect& expected) {
    EXPECT_NEAR(told.Won.For, expected.Won.For, 1e-12);
    EXPECT_NEAR(told.Won.Against, expected.Won.Against, 1e-12);
    EXPECT_NEAR(told.OwnTurnsLost, expected.OwnTurnsLost, 1e-11);
}

} // namespace vorhaven::test
